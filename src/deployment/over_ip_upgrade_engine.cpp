#include <array>
#include <string>

#include "core/program.h"
#include "deployment/agent_configuration.h"
#include "deployment/engines.h"
#include "deployment/upgrade_run.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

constexpr std::array kInstalled = {
    GateTerm{GateTerm::For::Varnhold, true, "Managed - High Performance Mode"},
    GateTerm{GateTerm::For::Varnhold, true, "Managed - Standard Mode"},
    GateTerm{GateTerm::For::Either, true, "Tracking Changes & Events"},
};
constexpr int kVersionRounds = 6;
constexpr std::uint32_t kVersionRoundMs = 5000;

/// An upgrade through the running agents, which then are asked for their version.
class OverIPUpgrade : private UpgradeRun {
 public:
  OverIPUpgrade(core::Program& program, frmTargets& form) : UpgradeRun(program, form) {}

  void upgrade() {
    run([this] { upgradeAll(); });
  }

 private:
  void upgradeAll();
  [[nodiscard]] bool upgradeRow();
  void upgradeComputer();
  void tellFailure(const std::string& what, std::int32_t result);
  [[nodiscard]] std::int32_t checkVersion();
};

void OverIPUpgrade::upgradeAll() {
  resetLog();
  chooseConfigFile();
  job_.AgentMode = overIPAgentMode(form_.OptAgentbased.Value, form_.chkHPMode.Value);
  if (!prepareOverIPUpgrade(program_, form_.OptAgentbased.Value, form_.chkHPMode.Value)) {
    // The one failure of an upgrade that ends a batch.
    return form_.screen().messageBox("Failed to create 'vhsetup.ins' file.",
                                     platform::MessageIcon::Information);
  }
  beginProgress();
  openSystems();
  workDownRows([this] { return upgradeRow(); });
  closeSystems();
}

/// False when the operator has asked to stop.
bool OverIPUpgrade::upgradeRow() {
  if (isAgentless() && !canReadSecurityLog()) return true;
  showProgress();
  if (isAgentless()) keepPagesAway();
  if (form_.StopRequested) return false;
  selectRow();
  setTarget();
  if (passesWindowsTest() && !isSkipped(kInstalled)) upgradeComputer();
  reachTarget();
  pumpEvents();
  return true;
}

void OverIPUpgrade::upgradeComputer() {
  job_.SystemName = name_;
  findDetails();
  job_.OSFlag = osFlag();
  const auto upgraded = waitForJob(startJob());
  if (upgraded != kResultOverIPSucceeded) return tellFailure("Upgrade failed. ", upgraded);
  const auto checked = checkVersion();
  if (checked != kResultOverIPSucceeded) return tellFailure("Failed to check version. ", checked);
  setStatus("Upgraded successfully");
}

void OverIPUpgrade::tellFailure(const std::string& what, std::int32_t result) {
  const auto words = what + describe(result);
  tellFault(name_ + " - " + words, words);
}

/// The rounds give the agent time to come back up. The result of the last one.
std::int32_t OverIPUpgrade::checkVersion() {
  const auto library = agentLibraryOverIP(program_, libraryPath(program_.gInstallerDir));
  std::int32_t result = 0;
  for (int round = 0; round < kVersionRounds && result != kResultOverIPSucceeded; ++round) {
    program_.host.clock.sleep(kVersionRoundMs);
    auto name = name_;
    result = waitForJob(program_.host.libraries.qrvCVHCheckVersion(library, name));
  }
  return result;
}

}  // namespace

void UpgradeAgentsOverIP(core::Program& program, frmTargets& form) {
  OverIPUpgrade(program, form).upgrade();
}

}  // namespace varnhold::deployment
