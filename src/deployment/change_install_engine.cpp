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

constexpr std::array kSuccesses = {kResultInstalled, kResultInstalledSnapshotsKept,
                                   kResultInstalledNotStarted};

constexpr std::array kNotInstalledYet = {
    GateTerm{GateTerm::For::Tessmark, false, "Tracking Changes"},
    GateTerm{GateTerm::For::Varnhold, false, "Managed - Standard Mode"},
    GateTerm{GateTerm::For::Either, false, "Tracking Changes & Events"},
};

/// The plainer install: no login, no agentless form, no account and no configuration of its own.
class ChangeInstallation : private EngineRun {
 public:
  ChangeInstallation(core::Program& program, frmTargets& form)
      : EngineRun(program, form, ErrorPolicy::ResumeNext) {}

  void install() {
    run([this] { installOnAll(); });
  }

 private:
  void installOnAll();
  [[nodiscard]] bool installOnRow();
  void deployUnlessSkipped();
  [[nodiscard]] platform::ThreadHandle start(std::int32_t& code);
  void tellResult(std::int32_t result);
};

void ChangeInstallation::installOnAll() {
  form_.ErrorsSeen = false;
  step([&] { ResetDeploymentLog(program_); });
  pumpEvents();
  beginProgress();
  workDownRows([this] { return installOnRow(); });
}

/// False when the operator has asked to stop.
bool ChangeInstallation::installOnRow() {
  if (form_.StopRequested) return false;
  if (isInaccessible()) return true;
  selectRow();
  setTarget();
  deployUnlessSkipped();
  reachTarget();
  return true;
}

void ChangeInstallation::deployUnlessSkipped() {
  if (isLocal()) return setStatus(kSkippedLocalSystem);
  if (!passesGate(kNotInstalledYet, product(), status())) return skip("Agent already installed");
  job_.SystemName = name_;
  job_.InstallDirectory = form_.txtPathTKW.Text;
  if (!isRegistered()) return skip("System not responding");
  std::int32_t code = kResultNameNotResolved;
  const auto thread = resolves() ? start(code) : platform::ThreadHandle{0};
  tellResult(waitForJob(thread, code));
}

/// Sets the code of what stands before the job; 0 where it has none.
platform::ThreadHandle ChangeInstallation::start(std::int32_t& code) {
  Preparation prepared;
  step([&] {
    prepared = prepareTessmarkInstall(program_.host.libraries, program_.gChangesRoot, job_.SystemName,
                                      job_.InstallDirectory);
  });
  code = prepared.code;
  return prepared.ready ? startJob() : platform::ThreadHandle{0};
}

void ChangeInstallation::tellResult(std::int32_t result) {
  const auto words = describe(result);
  if (std::find(kSuccesses.begin(), kSuccesses.end(), result) == kSuccesses.end()) {
    return tellFault(name_ + " - " + words, words);
  }
  // The code of an upgrade, deliberately: a plain install leaves the status as it is.
  if (result == kResultUpgraded) setStatus("Installed successfully");
  if (result != kResultInstalled) setStatus("Installed successfully - " + words);
  const auto filled = [&](std::string_view text) {
    return statements::fill(text, {{"name", name_}, {"path", TrimAtNull(job_.InstallDirectory)}});
  };
  recordAgent({filled(statements::kTessmarkAgentFilter), filled(statements::kAddTessmarkAgent),
               filled(statements::kChangeTessmarkAgent)});
}

}  // namespace

void InstallChangeAgents(core::Program& program, frmTargets& form) {
  ChangeInstallation(program, form).install();
}

}  // namespace varnhold::deployment
