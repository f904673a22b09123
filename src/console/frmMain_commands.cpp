// What the console's menus, pop-up menus and tool bars do. An entry that has no handler does nothing.
#include "base/text.h"
#include "console/agent_status.h"
#include "console/forms.h"
#include "console/frmMain.h"
#include "console/texts.h"
#include "core/online_help.h"
#include "core/program.h"
#include "ui/controls/screen.h"

namespace varnhold::console {
namespace {

/// Whether the commands start and status take the computer.
bool hasStartableAgent(const ui::ListItem& row) {
  const auto& status = row.SubItems(kStatusColumn);
  return containsIgnoringCase(status, "Managed - Standard Mode") ||
         containsIgnoringCase(status, "Tracking Changes");
}

}  // namespace

void frmMain::wireCommands() {
  const struct {
    ui::MenuItem& item;
    void (frmMain::*handler)();
  } commands[] = {{mnuFileExit, &frmMain::mnuFileExit_Click},
                  {mnuView, &frmMain::mnuView_Click},
                  {mnuAgent, &frmMain::mnuAgent_Click},
                  {mnuViewToolbarTools, &frmMain::mnuViewToolbarTools_Click},
                  {mnuViewToolbarsManager, &frmMain::mnuViewToolbarsManager_Click},
                  {mnuViewStatusBar, &frmMain::mnuViewStatusBar_Click},
                  {mnuViewRefresh, &frmMain::mnuViewRefresh_Click},
                  {mnuOptionsNetAccessMode, &frmMain::mnuOptionsNetAccessMode_Click},
                  {mnuPopUpTreeDetails, &frmMain::mnuPopUpTreeDetails_Click},
                  {mnuPopUpListDetails, &frmMain::mnuPopUpListDetails_Click},
                  {mnuPopUpModifySystemType, &frmMain::mnuPopUpModifySystemType_Click},
                  {mnuHelpContents, &frmMain::mnuHelpContents_Click}};
  for (const auto& command : commands) {
    command.item.Click = [this, handler = command.handler] { (this->*handler)(); };
  }
  wireWizard();
  wireAliases();
  wireToolBars();
  tvTreeView.MouseDown = [this](ui::MouseButton button, ui::TreeNode* node) {
    tvTreeView_MouseDown(button, node);
  };
  lvListView.MouseDown = [this](ui::MouseButton button, const ui::ListHit& hit) {
    lvListView_MouseDown(button, hit.item);
  };
}

void frmMain::wireWizard() {
  const struct {
    ui::MenuItem& item;
    void (frmMain::*open)(Operation);
    Operation operation;
  } commands[] = {{mnuToolsInstall, &frmMain::wizardFromMenu, Operation::Add},
                  {mnuToolsUninstall, &frmMain::wizardFromMenu, Operation::Remove},
                  {mnuToolsUpgrade, &frmMain::wizardFromMenu, Operation::Upgrade},
                  {mnuPopUpTreeInstall, &frmMain::wizardFromTree, Operation::Add},
                  {mnuPopUpTreeUninstall, &frmMain::wizardFromTree, Operation::Remove},
                  {mnuPopUpTreeUpgrade, &frmMain::wizardFromTree, Operation::Upgrade},
                  {mnuPopUpListInstall, &frmMain::wizardFromList, Operation::Add},
                  {mnuPopUpListUninstall, &frmMain::wizardFromList, Operation::Remove},
                  {mnuPopUpListUpgrade, &frmMain::wizardFromList, Operation::Upgrade}};
  for (const auto& command : commands) {
    command.item.Click = [this, open = command.open, operation = command.operation] {
      (this->*open)(operation);
    };
  }
}

void frmMain::wireAliases() {
  const struct {
    ui::MenuItem &alias, &command;
  } aliases[] = {{mnuPopUpListRemoveClientComp, mnuToolsRemoveComponents},
                 {mnuPopUpListStart, mnuToolsStart},
                 {mnuPopUpListStatus, mnuToolsStatus},
                 {mnuPopUpListConfigureClient, mnuToolsConfigureClient}};
  for (const auto& entry : aliases) {
    entry.alias.Click = [&command = entry.command] { command.Click.raise(); };
  }
}

void frmMain::wireToolBars() {
  tbOptToolBar.ButtonClick = [this](ui::ToolButton& button) {
    ui::MenuItem* const commands[] = {&mnuToolsConfigureClient, &mnuOptionsAddSystems, &mnuOptionsCreateGroup,
                                      &mnuOptionsDeleteGroup};
    commands[button.Index() - 1]->Click.raise();
  };
  tbClientManager.ButtonClick = [this](ui::ToolButton& button) {
    ui::MenuItem* const commands[] = {nullptr, &mnuToolsInstall, &mnuToolsUninstall, &mnuToolsUpgrade};
    if (auto* command = commands[button.Index() - 1]) command->Click.raise();
  };
}

void frmMain::mnuFileExit_Click() {
  program_.gClosing = true;
  Unload();
}

void frmMain::toggleBar(ui::MenuItem& entry, ui::Control& bar) {
  entry.Checked = !entry.Checked;
  bar.Visible = entry.Checked;
  SizeControls(imgSplitter.Position);
}

void frmMain::mnuViewToolbarTools_Click() {
  toggleBar(mnuViewToolbarTools, tbOptToolBar);
}

void frmMain::mnuViewToolbarsManager_Click() {
  toggleBar(mnuViewToolbarsManager, tbClientManager);
}

void frmMain::mnuViewStatusBar_Click() {
  toggleBar(mnuViewStatusBar, sbStatusBar);
}

void frmMain::applyStartRule(const ui::ListItem* row, ui::MenuItem& start, ui::MenuItem& status) {
  // One row alone, even when several are selected.
  start.Enabled = status.Enabled = row != nullptr && hasStartableAgent(*row);
}

void frmMain::mnuView_Click() {
  applyStartRule(lvListView.SelectedItem().get(), mnuToolsStart, mnuToolsStatus);
}

void frmMain::mnuAgent_Click() {
  applyStartRule(lvListView.SelectedItem().get(), mnuToolsStart, mnuToolsStatus);
}

void frmMain::mnuHelpContents_Click() {
  core::ShowOnlineHelp(program_.host.processes, screen());
}

void frmMain::mnuOptionsNetAccessMode_Click() {
  forms_.frmNetAccessSel.ShowModal(this);
  ShowBusy("Appling Changes...");  // the product's own spelling
  if (forms_.frmNetAccessSel.AutoDiscover) enumerateUnlessItRuns();
  showMode();
  ShowFree(kDisplaying);
}

void frmMain::showDetails(bool ofListItem) {
  forms_.frmDetails.ShowDetailsOfListItem = ofListItem;
  forms_.frmDetails.ShowModal(this);
}

void frmMain::mnuPopUpTreeDetails_Click() {
  showDetails(false);
}

void frmMain::mnuPopUpListDetails_Click() {
  showDetails(true);
}

void frmMain::mnuPopUpModifySystemType_Click() {
  forms_.frmSystemType.ShowModal(this);
}

void frmMain::Form_KeyDown(int& key, int) {
  if (key == ui::kKeyF1) mnuHelpContents_Click();
}

void frmMain::tvTreeView_MouseDown(ui::MouseButton button, ui::TreeNode* node) {
  if (button != ui::MouseButton::Right || node == nullptr) return;
  if (!node->Selected()) {
    node->Select();
    tvTreeView_NodeClick(node);
  }
  mnuPopUpTreeEdit.Enabled = true;
  PopupMenu(mnuPopUpTree);
}

void frmMain::lvListView_MouseDown(ui::MouseButton button, ui::ListItem* row) {
  if (button != ui::MouseButton::Right || row == nullptr) return;
  row->Selected = true;  // beside the rows that are selected already
  applyStartRule(row, mnuPopUpListStart, mnuPopUpListStatus);
  mnuPopUpModifySystemType.Visible = false;
  PopupMenu(mnuPopUpList);
}

}  // namespace varnhold::console
