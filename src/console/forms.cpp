#include "console/forms.h"

namespace varnhold::console {
namespace {

inventory::ConsoleParts partsOf(frmMain& console) {
  return {console, console.lvListView, console.tvTreeView, console.imlIcons};
}

deployment::ConsoleOfWizard wizardsConsole(frmMain& console) {
  return {console.lvListView, console.tvTreeView, console.imlIcons,
          [&console](ui::TreeNode* node) { console.tvTreeView_NodeClick(node); },
          [&console] { console.mnuViewRefresh_Click(); }};
}

}  // namespace

Forms::Forms(core::Program& program, ui::Screen& screen)
    : frmSplash(program, screen),
      frmTKWSplash(program, screen),
      frmWait(program, screen),
      frmMain(program, screen, *this),
      frmNetAccessSel(program, screen, partsOf(frmMain)),
      frmDetails(program, screen, partsOf(frmMain)),
      frmSystemType(program, screen, partsOf(frmMain)),
      frmLogin(program, screen),
      frmRemedialActionHelp(program, screen),
      frmTargets(program, screen, wizardsConsole(frmMain), frmLogin, frmRemedialActionHelp) {
  frmMain.wizard.emplace(DeploymentWizard{frmTargets, frmTargets.Operation, frmTargets.CurrentPage,
                                          frmTargets.lvSystems, frmTargets.lvSelected,
                                          frmTargets.lstPathSystems});
}

}  // namespace varnhold::console
