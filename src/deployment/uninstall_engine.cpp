#include <algorithm>
#include <array>
#include <string>

#include "core/program.h"
#include "deployment/agent_rows.h"
#include "deployment/engine_run.h"
#include "deployment/engines.h"
#include "deployment/run_log.h"
#include "store/statements.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

namespace statements = store::statements;

constexpr std::array kInstalled = {
    GateTerm{GateTerm::For::Tessmark, true, "Tracking Changes"},
    GateTerm{GateTerm::For::Varnhold, true, "Managed - Agentless Mode"},
    GateTerm{GateTerm::For::Varnhold, true, "Managed - High Performance Mode"},
    GateTerm{GateTerm::For::Varnhold, true, "Managed - Standard Mode"},
    GateTerm{GateTerm::For::Either, true, "Tracking Changes & Events"},
};
constexpr std::array<std::int64_t, 4> kNoWindowsTypes = {0, 301, 101, 201};

bool isNoWindows(std::int64_t type) {
  return std::find(kNoWindowsTypes.begin(), kNoWindowsTypes.end(), type) != kNoWindowsTypes.end();
}

class Uninstallation : private EngineRun {
 public:
  Uninstallation(core::Program& program, frmTargets& form) : EngineRun(program, form, ErrorPolicy::EndRun) {}

  void uninstall() {
    run([this] { uninstallAll(); });
  }

 private:
  void uninstallAll();
  [[nodiscard]] bool uninstallFromRow();
  void uninstallUnlessSkipped();
  void startAndWait();
  void tellResult(std::int32_t result);
  [[nodiscard]] bool wantsAgentForgotten();
  void forgetAgent();
  [[nodiscard]] bool isAgentlessComputer() const { return IsAgentlessSystem(program_, name_); }

  bool restartNeeded_ = false;
};

void Uninstallation::uninstallAll() {
  ResetDeploymentLog(program_);
  // The account is for systems with an agent on them, and the first row alone decides.
  if (countRows() > 0 && !IsAgentlessSystem(program_, screen_.systemName(1))) askForLogin();
  pumpEvents();
  form_.pbProgress.Visible = true;
  beginProgress();
  openSystems();
  form_.Refresh();
  pumpEvents();
  workDownRows([this] { return uninstallFromRow(); });
  closeSystems();
  if (restartNeeded_) restartManagersAgent();
}

/// False when the operator has asked to stop.
bool Uninstallation::uninstallFromRow() {
  if (!isAgentlessComputer()) connectSharesByLogin();
  pumpEvents();
  if (form_.StopRequested) return false;
  if (isInaccessible()) return true;
  selectRow();
  setTarget();
  uninstallUnlessSkipped();
  reachTarget();
  // A computer that has just lost its agentless row comes through here too.
  if (!isAgentlessComputer()) disconnectShares();
  pumpEvents();
  return true;
}

void Uninstallation::uninstallUnlessSkipped() {
  if (isNoWindows(systemType())) {
    form_.screen().MsgBox({.text = "Selected system - " + name_ +
                                   " is not a windows based system, hence uninstallation not allowed."});
  } else if (isLocal()) {
    setStatus(kSkippedLocalSystem);
  } else if (!passesGate(kInstalled, product(), status())) {
    tellFault("Skipped: " + name_ +
                  " - Cannot uninstall because either Agent is not installed or it does not belong to this "
                  "manager",
              "Skipped: Either Agent is not installed or it does not belong to this manager");
  } else {
    startAndWait();
  }
}

void Uninstallation::startAndWait() {
  job_.SystemName = R"(\\)" + name_;
  job_.AgentKind = isAgentlessComputer() ? 1 : 0;
  if (job_.AgentKind == 1) restartNeeded_ = true;
  if (!program_.gChangesRoot.empty()) {
    auto& row = form_.lvSystems.ListItems(row_);
    job_.KeepSnapshots =
        row.ListSubItems(kKeepSnapsSubItem).Tag == kSnapsKept ? std::string("1") : std::string("0");
  }
  tellResult(waitForJob(startJob()));
}

void Uninstallation::tellResult(std::int32_t result) {
  if (result == kResultUninstalled) {
    forgetAgent();
    return setStatus("Agent uninstalled successfully");
  }
  auto words = describe(result);
  if (result == kResultNoSuchService && wantsAgentForgotten()) {
    forgetAgent();
    words += " - Removed from Manager config";
  }
  setStatus(words);
  const auto agent = product() == Product::Varnhold ? "Varnhold" : program_.gChangesName;
  log("Could not uninstall " + agent + " Agent on " + name_ + " - " + words);
}

bool Uninstallation::wantsAgentForgotten() {
  return form_.screen().MsgBox({.text = "Agent service on '" + name_ +
                                        "' does not exist. Do you want to remove it from Manager config "
                                        "anyway?",
                                .icon = ui::BoxIcon::Question,
                                .buttons = ui::BoxButtons::YesNo}) == ui::Answer::Yes;
}

void Uninstallation::forgetAgent() {
  const auto text = product() == Product::Varnhold ? statements::kUninstalledVarnholdAgent
                                                   : statements::kForgetTessmarkAgent;
  execute(statements::fill(text, {{"name", name_}}));
}

}  // namespace

void UninstallAgents(core::Program& program, frmTargets& form) {
  Uninstallation(program, form).uninstall();
}

}  // namespace varnhold::deployment
