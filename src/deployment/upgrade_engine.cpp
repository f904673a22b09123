#include <array>
#include <string>

#include "core/program.h"
#include "deployment/agent_configuration.h"
#include "deployment/engines.h"
#include "deployment/upgrade_run.h"

namespace varnhold::deployment {
namespace {

constexpr std::array kInstalled = {
    GateTerm{GateTerm::For::Tessmark, true, "Tracking Changes"},
    GateTerm{GateTerm::For::Varnhold, true, "Managed - High Performance Mode"},
    GateTerm{GateTerm::For::Varnhold, true, "Managed - Standard Mode"},
    GateTerm{GateTerm::For::Either, true, "Tracking Changes & Events"},
};

/// An upgrade over the Windows network.
class Upgrade : private UpgradeRun {
 public:
  Upgrade(core::Program& program, frmTargets& form) : UpgradeRun(program, form) {}

  void upgrade() {
    run([this] { upgradeAll(); });
  }

 private:
  void upgradeAll();
  [[nodiscard]] bool upgradeRow();
  void upgradeComputer();
  void prepareAgentSettings();
  void tellResult(std::int32_t result);
};

void Upgrade::upgradeAll() {
  resetLog();
  beginProgress();
  chooseConfigFile();
  openSystems();
  if (isAgentless()) askForLogin();
  workDownRows([this] { return upgradeRow(); });
  closeSystems();
}

/// False when the operator has asked to stop.
bool Upgrade::upgradeRow() {
  // Here the test is for computers of every version.
  if (isAgentless() && !canReadSecurityLog()) return true;
  showProgress();
  if (isAgentless()) {
    keepPagesAway();
    connectSharesByLogin();
  }
  pumpEvents();
  if (form_.StopRequested) return false;
  if (isInaccessible()) return true;
  selectRow();
  setTarget();
  if (passesWindowsTest() && !isSkipped(kInstalled)) upgradeComputer();
  reachTarget();
  if (isAgentless()) disconnectShares();
  pumpEvents();
  return true;
}

void Upgrade::upgradeComputer() {
  job_.SystemName = R"(\\)" + name_;
  findDetails();
  job_.OSFlag = osFlag();
  job_.AgentMode = agentMode();
  if (form_.OptAgentbased.Value) prepareAgentSettings();
  tellResult(waitForJob(startJob()));
}

void Upgrade::prepareAgentSettings() {
  const auto mode = agentIniMode(DeploymentPath::UpgradeOverDomain, isHighPerformance());
  // Whether that worked does not count here.
  if (mode) static_cast<void>(prepareAgentIni(program_.host.libraries, program_.gInstallerDir, *mode));
}

void Upgrade::tellResult(std::int32_t result) {
  if (result == kResultUpgraded) return setStatus("Upgraded successfully");
  const auto words = describe(result);
  tellFault(name_ + " - " + words, words);
}

}  // namespace

void UpgradeAgents(core::Program& program, frmTargets& form) {
  Upgrade(program, form).upgrade();
}

}  // namespace varnhold::deployment
