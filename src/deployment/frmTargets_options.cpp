// What the operator chooses on the wizard's pages.
#include "core/program.h"
#include "deployment/frmRemedialActionHelp.h"
#include "deployment/frmTargets.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

constexpr const char* kNoFile = "*.ini";

// commctrl.h: on the item at all, and on its icon.
constexpr int kOnItem = 14, kOnItemIcon = 2;

void letEdit(ui::TextBox& box, bool can) {
  box.Enabled = can;
  box.BackColor = can ? ui::SystemColor::Window : ui::SystemColor::ButtonFace;
}

/// Digits, backspace and a full stop; every other key is dropped.
void keepDigits(int& key) {
  if ((key < '0' || key > '9') && key != ui::kKeyBack && key != '.') key = 0;
}

}  // namespace

void frmTargets::wireOptions() {
  for (int i = 0; i < optConfig.Count(); ++i) optConfig(i).Click = [this, i] { optConfig_Click(i); };
  for (auto& account : optAccounts) account.Click = [this] { optAccounts_Click(); };
  cmdBrowse.Click = [this] { cmdBrowse_Click(); };
  cmdEditAccount.Click = [this] { cmdEditAccount_Click(); };
  OptAgentbased.Click = [this] { chkCopyRemedialActionScripts.Enabled = true; };
  // The tick stays: what it means for an agentless system is the engine's affair.
  OptAgentless.Click = [this] { chkCopyRemedialActionScripts.Enabled = false; };
  for (auto* const box : {&chkCopyRemedialActionScripts, &chkUpgradeRemedialActionScripts})
    box->Click = [this, box] { remedialBox_Click(*box); };
  for (auto* const box : {&txtStartHour, &txtStartMin}) {
    box->GotFocus = [box] { box->SelectAll(); };
    box->KeyPress = keepDigits;
  }
  lvSystems.MouseUp = [this](ui::MouseButton button, const ui::ListHit& hit) {
    lvSystems_MouseUp(button, hit);
  };
}

void frmTargets::optConfig_Click(int index) {
  cmdBrowse.Enabled = index == 1;
  letEdit(txtTemplate, index == 1);
}

void frmTargets::cmdBrowse_Click() {
  ui::FileDialog dialog{.DialogTitle = "Select Config File",
                        .Filter = "Varnhold Agent Config Files (*.ini)|*.ini",
                        .FileName = kNoFile};
  screen().ShowOpen(dialog);
  if (dialog.FileName != kNoFile) txtTemplate.Text = dialog.FileName;
  // The dialog moves the working directory.
  (void)program_.host.environment.setCurrentDirectory(program_.gAppPath);
}

void frmTargets::optAccounts_Click() {
  for (auto* const box : {&txtUserName, &txtPassword, &txtConfirmPassword})
    letEdit(*box, !optAccounts(0).Value);
}

void frmTargets::cmdEditAccount_Click() {
  screen().messageBox(
      "This account will be used to access all systems\r\nwhich are configured for agentless monitoring.\r\n"
      "Please ensure that you configure an account \r\nthat can access these systems as an administrator.",
      platform::MessageIcon::Exclamation);
  for (auto* const box : {&txtAccount, &txtPwd, &txtConfirmPwd}) {
    box->Locked = false;
    box->BackColor = ui::SystemColor::Window;
  }
  cmdEditAccount.Enabled = false;
}

void frmTargets::remedialBox_Click(ui::CheckBox& box) {
  // The modal box ends in an activation of the wizard.
  cmdBack.Enabled = true;
  if (box.Value == 0) return;
  if (ShowRemedialDialogBox() == static_cast<std::int32_t>(ui::Answer::No)) box.Value = 0;
}

std::int32_t frmTargets::ShowRemedialDialogBox() {
  remedialHelp_.Load();
  auto& link = remedialHelp_.lblRemedialHelpLink;
  link.Caption = "Click here for more information.";
  link.Link = true;
  link.MouseIcon = "hand";
  remedialHelp_.ShowModal(this);
  return static_cast<std::int32_t>(remedialHelp_.Accepted ? ui::Answer::Yes : ui::Answer::No);
}

void frmTargets::lvSystems_MouseUp(ui::MouseButton button, const ui::ListHit& hit) {
  if (button != ui::MouseButton::Left || !asksForSnapshots() || hit.item == nullptr) return;
  const bool isOnItem = (hit.flags & kOnItem) != 0 && (hit.flags & kOnItemIcon) != 0;
  if (!isOnItem || hit.subItem != kKeepSnapsSubItem) return;
  auto cell = hit.item->ListSubItems(kKeepSnapsSubItem);
  // A cell with any other tag stays as it is: nothing is asked of its row.
  if (cell.Tag == kSnapsKept) {
    cell.Tag = kSnapsNotKept;
    cell.Text = "No";
  } else if (cell.Tag == kSnapsNotKept) {
    cell.Tag = kSnapsKept;
    cell.Text = "Yes";
  }
}

}  // namespace varnhold::deployment
