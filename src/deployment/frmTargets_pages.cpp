// What the wizard's pages show.
#include <array>
#include <initializer_list>

#include "core/program.h"
#include "deployment/frmTargets.h"
#include "deployment/job.h"
#include "deployment/service_account.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

/// What a page makes of a button.
enum class Button {
  Off,
  On,
  Kept,             ///< as it was; the page's own routine may set it
  OnToInstall,      ///< off for the other operations
  OffToInstall,     ///< on for the other operations
  KeptToUninstall,  ///< on for the other operations
};

void put(ui::CommandButton& button, Button state, std::int32_t operation) {
  switch (state) {
    case Button::Kept:
      return;
    case Button::Off:
      button.Enabled = false;
      return;
    case Button::On:
      button.Enabled = true;
      return;
    case Button::OnToInstall:
      button.Enabled = operation == kOperationInstall;
      return;
    case Button::OffToInstall:
      button.Enabled = operation != kOperationInstall;
      return;
    case Button::KeptToUninstall:
      if (operation != kOperationUninstall) button.Enabled = true;
      return;
  }
}

/// The text for an operation, or nothing for a number that is none.
const char* textFor(std::int32_t operation, const std::array<const char*, 3>& texts) {
  const auto place = static_cast<std::size_t>(operation) - 1;
  return place < texts.size() ? texts[place] : nullptr;
}

constexpr std::array<const char*, 3> kSelectionInfo = {"Select system to be monitored for events",
                                                       "Select computer(s) to uninstall Agent software.",
                                                       "Select computer(s) to upgrade Agent software."};
constexpr std::array<const char*, 3> kRunListInfo = {
    "Select system to be monitored for events",
    "Agent(s) will be uninstalled from the following remote computer(s).",
    "Agent(s) will be upgraded on the following remote computer(s)."};

std::string selectTo(const ui::CommandButton& button, const char* purpose) {
  return "Select '" + button.Caption + "' to " + purpose;
}

constexpr const char* kToSelectAgents = "select Agent software(s).";
constexpr const char* kToSelectPath = "select the install path.";
constexpr const char* kToProceed = "proceed.";

/// Fills a list with the names of another's rows. One without rows changes nothing, so that of several
/// sources the last one with rows wins.
void refill(ui::ListBox& list, const ui::ListView& source) {
  if (source.ListItems.Count() == 0) return;
  list.Clear();
  for (const auto& row : source.ListItems) list.AddItem(row.Text);
}

}  // namespace

struct frmTargets::PageRule {
  ui::Frame frmTargets::*frame;
  Button back, next, advanced, install;
  void (frmTargets::*details)();
  bool hidesUpgradeOpts = false;  ///< on the others it stays up beside the page, deliberately
};

void frmTargets::ShowCurrentPage() {
  using enum Button;
  static constexpr std::array<PageRule, 8> kPages{{
      {&frmTargets::freMain, Off, Kept, Off, Off, &frmTargets::showSelectionPage, true},
      {&frmTargets::freMain, On, Kept, Off, Kept, &frmTargets::showRunListPage, true},
      {&frmTargets::freSelectAgent, On, On, Off, Off, &frmTargets::showAgentTypePage},
      {&frmTargets::freAgents, On, OnToInstall, Off, OffToInstall, &frmTargets::showClientPage},
      {&frmTargets::frePath, On, Off, KeptToUninstall, On, &frmTargets::showPathPage},
      {&frmTargets::freConfig, On, Off, Off, On, nullptr},
      {&frmTargets::freLogon, On, Off, Off, On, nullptr},
      {&frmTargets::frePath, On, Off, KeptToUninstall, On, &frmTargets::showPathPageAgain},
  }};
  screen().MousePointer = ui::Pointer::Hourglass;
  const auto place = static_cast<std::size_t>(CurrentPage) - 1;
  if (place < kPages.size()) apply(kPages[place]);
  screen().MousePointer = ui::Pointer::Default;
}

void frmTargets::apply(const PageRule& rule) {
  hideFrames();
  if (rule.hidesUpgradeOpts) freUpgradeOpts.Visible = false;
  (this->*rule.frame).Visible = true;
  put(cmdBack, rule.back, Operation);
  put(cmdNext, rule.next, Operation);
  put(cmdAdvanced, rule.advanced, Operation);
  put(cmdInstall, rule.install, Operation);
  cmdCancel.Enabled = true;
  if (rule.details != nullptr) (this->*rule.details)();
}

void frmTargets::hideFrames() {
  for (auto* const frame : {&freMain, &freSelectAgent, &freAgents, &frePath, &freConfig, &freLogon})
    frame->Visible = false;
}

bool frmTargets::hasBothProducts() const {
  return !program_.gInstallerDir.empty() && !program_.gChangesRoot.empty();
}

bool frmTargets::asksForSnapshots() const {
  return !program_.gChangesRoot.empty() && Operation == kOperationUninstall;
}

void frmTargets::showSelectionControls(bool shown) {
  for (auto* const control : std::initializer_list<ui::Control*>{&cboGroups, &lvSelect, &lvSelected, &cmdAdd,
                                                                 &cmdRemove, &cmdselectall, &cmdremoveall}) {
    control->Visible = shown;
  }
  lvSystems.Visible = lblProgress.Visible = !shown;
  pbProgress.Visible = false;
}

void frmTargets::showSelectionPage() {
  showSelectionControls(true);
  if (const char* const info = textFor(Operation, kSelectionInfo)) lblInfo.Caption = info;
  const bool isEmpty = lvSelected.ListItems.Count() == 0;
  if (Operation == kOperationInstall) {
    if (isEmpty) cmdNext.Enabled = false;
    lstPathSystems.Clear();
  } else if (Operation == kOperationUninstall) {
    cmdNext.Enabled = !isEmpty;
  }
  // An upgrade finds it enabled whatever is selected, deliberately: only a click catches an empty list.
}

void frmTargets::showRunListPage() {
  showSelectionControls(false);
  if (const char* const info = textFor(Operation, kRunListInfo)) lblInfo.Caption = info;
  if (Operation == kOperationUninstall) {
    showUninstallList();
  } else {
    cmdNext.Enabled = true;
    cmdInstall.Enabled = false;
    cmdNext.SetFocus();
  }
  if (Operation == kOperationInstall)
    lblProgress.Caption = selectTo(cmdNext, hasBothProducts() ? kToSelectAgents : kToSelectPath);
  if (Operation == kOperationUpgrade) refill(lstPathSystems, lvSelected);
}

void frmTargets::showUninstallList() {
  const bool asksForClient = hasBothProducts();
  cmdNext.Enabled = asksForClient;
  cmdInstall.Enabled = !asksForClient;
  if (asksForClient) {
    lblProgress.Caption = selectTo(cmdNext, kToSelectAgents);
  } else {
    lblProgress.Caption = selectTo(cmdInstall, kToProceed);
    cmdInstall.SetFocus();
  }
  refill(lstPathSystems, lvSystems);
  refill(lstPathSystems, lvSelected);
}

void frmTargets::showAgentTypePage() {
  lblProgress.Visible = true;
  if (Operation == kOperationInstall) refill(lstPathSystems, lvSystems);
  refill(lstPathSystems, lvSelected);
}

void frmTargets::showClientPage() {
  auto& button = Operation == kOperationInstall ? cmdNext : cmdInstall;
  lblAgentLast.Caption = selectTo(button, Operation == kOperationInstall ? kToSelectPath : kToProceed);
  button.SetFocus();
  lstSystems.Clear();
  refill(lstSystems, lvSystems);
}

void frmTargets::showPathPage() {
  if (Operation != kOperationUpgrade) OptAgentless.Visible = true;
  showPathPageAgain();
}

void frmTargets::showPathPageAgain() {
  cmdEditAccount.Visible = cmdEditAccount.Enabled = OptAgentless.Value.get();
  cmdInstall.SetFocus();
  lblPathLast.Caption = selectTo(cmdInstall, kToProceed);
  picPolling.Visible = picAccount.Visible = !OptAgentbased.Value;
  txtPathVHW.Visible = txtPathTKW.Visible = OptAgentbased.Value.get();
  if (OptAgentbased.Value) {
    lblPathInfo.Caption = "Select installation path on the remote machines:";
  } else {
    showPollingOptions();
  }
  if (Operation == kOperationInstall) showPathBoxes();
  if (Operation == kOperationUpgrade) showUpgradeOptions();
  SizefrmControls();
}

void frmTargets::showPollingOptions() {
  lblPathInfo.Caption = "Select the polling frequency :";
  ShowCurrentPolling();
  ShowAgentlessAccount(program_, *this);
}

/// With both products only the box of the Varnhold agent shows, whichever agent is chosen, deliberately.
void frmTargets::showPathBoxes() {
  (program_.gInstallerDir.empty() ? txtPathVHW : txtPathTKW).Visible = false;
  refill(lstPathSystems, lvSelected);
}

void frmTargets::showUpgradeOptions() {
  frePath.Visible = false;
  freUpgradeOpts.Visible = true;
  lblUptOptInfo.Caption =
      "Select the method of upgrade. Choose 'Upgrade Over IP' option to upgrade the agent which is outside "
      "the domain.";
  refill(lstPathSystems, lvSystems);
  refill(lstPathSystems, lvSelected);
}

void frmTargets::ShowCurrentPolling() {
  const auto stored = deployment::ShowCurrentPolling(program_.host.registry);
  cboPollFreq.ListIndex = stored.cboPollFreq;
  txtStartHour.Text = stored.txtStartHour;
  txtStartMin.Text = stored.txtStartMin;
}

}  // namespace varnhold::deployment
