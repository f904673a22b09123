#include "console/forms.h"

namespace varnhold::console {
namespace {

inventory::ConsoleParts partsOf(frmMain& console) {
  return {console, console.lvListView, console.tvTreeView, console.imlIcons};
}

}  // namespace

Forms::Forms(core::Program& program, ui::Screen& screen)
    : frmSplash(program, screen),
      frmTKWSplash(program, screen),
      frmWait(program, screen),
      frmMain(program, screen, *this),
      frmNetAccessSel(program, screen, partsOf(frmMain)),
      frmDetails(program, screen, partsOf(frmMain)),
      frmSystemType(program, screen, partsOf(frmMain)) {}

}  // namespace varnhold::console
