// The run: what is checked before it, who does it, and what it ends with.
#include "base/runtime_error.h"
#include "core/program.h"
#include "deployment/account_validation.h"
#include "deployment/engines.h"
#include "deployment/frmTargets.h"
#include "deployment/job.h"
#include "deployment/run_log.h"
#include "deployment/service_account.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

constexpr const char* kFinish = "&Finish";
constexpr const char* kInstallCaption = "&Install";
constexpr const char* kViewLog = "View &Log";

struct RunTexts {
  std::int32_t operation;
  const char *running, *completed;
};
// The third ends without a full stop, deliberately.
constexpr RunTexts kRunTexts[] = {
    {kOperationInstall, "Installing Agent(s)...", "Completed installing Agent software."},
    {kOperationUninstall, "Uninstalling Agent(s)...", "Completed uninstalling Agent software."},
    {kOperationUpgrade, "Upgrading Agent(s)...", "Completed upgrading Agent software"}};

std::string textOf(std::int32_t operation, const char* RunTexts::*text) {
  for (const auto& texts : kRunTexts) {
    if (texts.operation == operation) return texts.*text;
  }
  return {};
}

}  // namespace

void frmTargets::wireRun() {
  cmdInstall.Click = [this] { cmdInstall_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmTargets::cmdInstall_Click() {
  // The prompt of a run shows the page anew, this button too; there is one run at a time.
  if (RunBusy) return;
  const bool hasSystems = lvSystems.ListItems.Count() > 0 || lvSelected.ListItems.Count() > 0;
  if (cmdInstall.Caption == kFinish || !hasSystems) {
    Unload();
    return;
  }
  const ResumeNext resume;
  bool passes = false;
  // A check that fails by an error has not passed.
  resume.step([&] { passes = mayRun(); });
  if (!passes) return;
  screen().MousePointer = ui::Pointer::ArrowHourglass;
  if (cmdInstall.Caption == kInstallCaption) resume.step([this] { listPathSystems(); });
  resume.step([this] { showRunScreen(); });
  lblInfo.Caption = "Please wait...\r" + textOf(Operation, &RunTexts::running);
  screen().MousePointer = ui::Pointer::ArrowHourglass;
  resume.step([this] { runEngine(); });
  resume.step([this] { showResultScreen(); });
  resume.step([this] { showOutcome(); });
  screen().MousePointer = ui::Pointer::Default;
  // One of the two is always chosen: the first is so at design.
  if (optWinDom.Value || optOverIP.Value)
    screen().messageBox("The process is complete. Please check the status against each computer.",
                        platform::MessageIcon::Information);
}

bool frmTargets::mayRun() {
  if (OptAgentless.Value && !validateAgentlessOptions()) return false;
  if (!ValidateLogonAccount(program_, *this)) return false;
  if (!OptAgentbased.Value || ValidateInstallPath()) return true;
  refuseInstallPath();
  return false;
}

/// An unlocked account is one that the operator has chosen to enter.
bool frmTargets::validateAgentlessOptions() {
  if (!ValidatePolling()) return false;
  if (txtAccount.Locked) return true;
  if (!ValidateAgentlessAccount(program_, *this)) return false;
  ResumeNext().step([this] { ChangeServiceAccount(program_, *this); });
  return true;
}

void frmTargets::listPathSystems() {
  const ui::ListView::BulkUpdate update(lvSystems);
  lvSystems.ListItems.Clear();
  for (int i = 0; i < lstPathSystems.ListCount(); ++i)
    lvSystems.ListItems.Add(lstPathSystems.List(i)).SubItems(kStatusSubItem) = "Unmanaged";
}

void frmTargets::showRunScreen() {
  hideFrames();
  freUpgradeOpts.Visible = false;
  freMain.Visible = true;
  showSelectionControls(false);
  pbProgress.Visible = true;
  cmdCancel.Enabled = true;
  cmdBack.Enabled = cmdNext.Enabled = cmdAdvanced.Enabled = cmdInstall.Enabled = false;
}

void frmTargets::runEngine() {
  switch (Operation) {
    case kOperationInstall:
      return optClient(0).Value ? InstallAgents(program_, *this) : InstallChangeAgents(program_, *this);
    case kOperationUninstall:
      return UninstallAgents(program_, *this);
    case kOperationUpgrade:
      OptAgentbased.Value = true;
      if (optWinDom.Value) return UpgradeAgents(program_, *this);
      if (optOverIP.Value) return UpgradeAgentsOverIP(program_, *this);
  }
}

void frmTargets::showResultScreen() {
  lblProgress.Visible = true;
  lblProgress.Caption = "Result";
  pbProgress.Visible = false;
  cmdCancel.Caption = kViewLog;
  cmdCancel.Enabled = false;
  cmdInstall.Caption = kFinish;
  cmdInstall.Enabled = true;
  lblInfo.Caption = textOf(Operation, &RunTexts::completed);
}

void frmTargets::showOutcome() {
  const std::string log = cmdCancel.Caption;
  if (ErrorsSeen) {
    lblProgress.Caption =
        StopRequested ? "Action stopped by user, there were some errors, select '" + log + "' for details"
                      : "Certain errors were encountered please select '" + log + "' to view the log";
    cmdCancel.Enabled = true;
  } else {
    lblProgress.Caption = StopRequested ? "Action stopped by user" : "Completed successfully";
  }
}

void frmTargets::cmdCancel_Click() {
  if (cmdCancel.Caption == kViewLog) {
    openLog();
  } else if (RunBusy) {
    // The engine finishes the computer in hand and stops before the next one.
    StopRequested = true;
    lblInfo.Caption = "Update cancelled (finishing current task)";
  } else {
    Unload();
  }
}

void frmTargets::openLog() {
  const auto log = program_.gAppPath + "\\" + std::string(kRunLogFile);
  const int result =
      program_.host.processes.shellExecute("open", "Notepad.exe", log, platform::ShowState::Normal);
  if (result <= platform::Processes::kLastShellError)
    screen().messageBox("Error: Could not load 'NotePad'.", platform::MessageIcon::Critical);
}

}  // namespace varnhold::deployment
