#include <algorithm>
#include <array>
#include <string>

#include "base/text.h"
#include "core/program.h"
#include "deployment/agent_configuration.h"
#include "deployment/engine_run.h"
#include "deployment/engines.h"
#include "deployment/run_log.h"
#include "store/statements.h"

namespace varnhold::deployment {
namespace {

namespace statements = store::statements;

constexpr std::array kSuccesses = {kResultInstalled, kResultInstalledNotStarted,
                                   kResultInstalledWithoutSecurity};
constexpr std::uint8_t kAgentlessKind = 1, kAgentBasedKind = 2;

// No status holds all the words, so that nothing fails this gate and the library decides about a reinstall:
// deliberate, all five terms.
constexpr std::array kNotInstalledYet = {
    GateTerm{GateTerm::For::Tessmark, false, "Tracking Changes"},
    GateTerm{GateTerm::For::Varnhold, false, "Managed - Standard Mode"},
    GateTerm{GateTerm::For::Varnhold, false, "Managed - High Performance Mode"},
    GateTerm{GateTerm::For::Varnhold, false, "Managed - Agentless Mode"},
    GateTerm{GateTerm::For::Either, false, "Tracking Changes & Events"},
};

class Installation : private EngineRun {
 public:
  Installation(core::Program& program, frmTargets& form)
      : EngineRun(program, form, ErrorPolicy::ResumeNext) {}

  void install() {
    run([this] { installOnAll(); });
  }

 private:
  void installOnAll();
  void fillJobForRun();
  [[nodiscard]] bool installOnRow();
  void workOnComputer();
  [[nodiscard]] bool isSkipped();
  [[nodiscard]] bool isOfTheOtherKind() const;
  void fillJobForRow();
  void deployOrSkip();
  [[nodiscard]] platform::ThreadHandle start(std::int32_t& code);
  void tellResult(std::int32_t result);
  [[nodiscard]] AgentRecord agentRecord() const;
  void endRow();
  void applyPolling();
};

void Installation::installOnAll() {
  form_.ErrorsSeen = false;
  step([&] { ResetDeploymentLog(program_); });
  fillJobForRun();
  pumpEvents();
  if (isAgentless()) askForLogin();
  pumpEvents();
  beginProgress();
  workDownRows([this] { return installOnRow(); });
  if (isAgentless()) applyPolling();
}

void Installation::fillJobForRun() {
  chooseConfigFile();
  if (!form_.optAccounts(1).Value) return;
  job_.ServiceUser = form_.txtUserName.Text;
  job_.ServicePassword = form_.txtPassword.Text;
  if (job_.ServicePassword.empty()) job_.ServicePassword = " ";
}

/// False when the operator has asked to stop.
bool Installation::installOnRow() {
  showProgress();
  if (isAgentless()) {
    showMainFrame();
    keepPagesAway();
    connectSharesByLogin();
  }
  pumpEvents();
  if (form_.StopRequested) return false;
  setTarget();
  setPointer(ui::Pointer::Default);
  if (!isInaccessible()) {
    setPointer(ui::Pointer::ArrowHourglass);
    pumpEvents();
    workOnComputer();
  }
  endRow();
  return true;
}

void Installation::workOnComputer() {
  if (!isSkipped()) {
    // The shares then stay connected, deliberately.
    if (isAgentless() && !isVistaOrLater() && !canReadSecurityLog()) return;
    deployOrSkip();
  }
  pumpEvents();
  if (isAgentless()) disconnectShares();
}

bool Installation::isSkipped() {
  if (isLocal()) {
    setStatus(kSkippedLocalSystem);
  } else if (isOfTheOtherKind()) {
    setStatus("Skipped: Cannot implement both agent based and agent less simultaneously");
  } else if (!passesGate(kNotInstalledYet, product(), status())) {
    skip("Agent already installed");
  } else {
    findDetails();
    if (!isAgentless() || form_.LocalOSMajor >= kVistaMajorVersion || !isVistaOrLater()) return false;
    setStatus("Skipped: Cannot deploy agentless on VISTA/2K8 system from 2000/2003/XP Manager");
  }
  return true;
}

bool Installation::isOfTheOtherKind() const {
  return (statusHolds("Managed - Standard Mode") && isAgentless()) ||
         (statusHolds("Managed - Agentless Mode") && form_.OptAgentbased.Value);
}

void Installation::fillJobForRow() {
  job_.SystemName = name_;
  job_.OSFlag = osFlag();
  job_.InstallDirectory = form_.txtPathVHW.Text;
  job_.AgentKind = isAgentless() ? kAgentlessKind : kAgentBasedKind;
  job_.AgentMode = agentMode();
}

void Installation::deployOrSkip() {
  fillJobForRow();
  pumpEvents();
  if (!isRegistered()) return skip("System not responding");
  std::int32_t code = kResultNameNotResolved;
  platform::ThreadHandle thread = 0;
  if (resolves()) {
    code = 0;
    pumpEvents();
    thread = form_.OptAgentbased.Value ? start(code) : startJob();
  }
  showMainFrame();
  disableButtons();
  pumpEvents();
  const auto result = waitForJob(thread, code);
  pumpEvents();
  tellResult(result);
}

/// Sets the code where something before the job has one of its own.
platform::ThreadHandle Installation::start(std::int32_t& code) {
  Preparation prepared;
  step([&] {
    prepared = prepareAgentInstall(program_.host.libraries, program_.gInstallerDir, job_.SystemName,
                                   job_.InstallDirectory, job_.AgentMode, isHighPerformance());
  });
  code = prepared.code;
  return prepared.ready ? startJob() : platform::ThreadHandle{0};
}

void Installation::tellResult(std::int32_t result) {
  const auto words = describe(result);
  if (std::find(kSuccesses.begin(), kSuccesses.end(), result) == kSuccesses.end()) {
    return tellFault(name_ + " - " + words, words);
  }
  setStatus(result == kResultInstalled ? "Installed successfully" : "Installed successfully - " + words);
  recordAgent(agentRecord());
}

AgentRecord Installation::agentRecord() const {
  const auto path = TrimAtNull(job_.InstallDirectory);
  const auto record = [&](std::string_view filter, std::string_view add, int module, int other,
                          int agentless) {
    const auto filled = [&](std::string_view text) {
      return statements::fill(text, {{"name", name_},
                                     {"path", path},
                                     {"module", module},
                                     {"a", module},
                                     {"b", other},
                                     {"agentless", agentless}});
    };
    return AgentRecord{filled(filter), filled(add), filled(statements::kSwitchVarnholdAgent)};
  };
  if (isAgentless()) return record(statements::kAgentlessAgentFilter, statements::kAddVarnholdAgent, 1, 5, 1);
  if (!isHighPerformance()) {
    return record(statements::kStandardAgentFilter, statements::kAddVarnholdAgent, 1, 5, 0);
  }
  return record(statements::kHighPerformanceAgentFilter, statements::kAddHighPerformanceAgent, 5, 1, 0);
}

void Installation::endRow() {
  pumpEvents();
  selectRow();
  form_.lvSystems.ListItems(row_).EnsureVisible();
  reachTarget();
  form_.lblProgress.Visible = true;
  disableButtons();
  form_.Refresh();
}

void Installation::applyPolling() {
  step([&] { form_.SavePollingSettings(); });
  restartManagersAgent();
}

}  // namespace

void InstallAgents(core::Program& program, frmTargets& form) {
  Installation(program, form).install();
}

}  // namespace varnhold::deployment
