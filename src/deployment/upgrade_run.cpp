#include "deployment/upgrade_run.h"

#include <algorithm>
#include <array>

#include "core/program.h"
#include "deployment/agent_rows.h"
#include "deployment/run_log.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

constexpr std::int64_t kUnknownType = 0, kSolarisType = 101;
constexpr std::array<std::int64_t, 3> kNoWindowsTypes = {301, 101, 201};
constexpr std::uint32_t kRefreshMs = 500;

bool isDoubtful(std::int64_t type) {
  return type == kUnknownType || type == kSolarisType;
}

}  // namespace

void UpgradeRun::resetLog() {
  ResetDeploymentLog(program_);
  pumpEvents();
}

bool UpgradeRun::passesWindowsTest() {
  auto type = systemType();
  if (isDoubtful(type)) {
    program_.host.libraries.qrvNetOpGetSystem(systems_.Fields("System_Name").value().asText());
    program_.host.clock.sleep(kRefreshMs);
    type = systemType();
  }
  if (isDoubtful(type)) answer_ = askWhetherWindows();
  if (type == kUnknownType && answer_ == ui::Answer::No) return false;
  return std::find(kNoWindowsTypes.begin(), kNoWindowsTypes.end(), type) == kNoWindowsTypes.end();
}

ui::Answer UpgradeRun::askWhetherWindows() {
  return form_.screen().MsgBox(
      {.text = "Unable to resolve system '" + name_ +
               "' as a Windows based system .\r\nIf you are sure this system is a Windows based system click "
               "\"Yes\" to proceed with upgrade,\r\nclick \"No\" to skip",
       .icon = ui::BoxIcon::Question,
       .buttons = ui::BoxButtons::YesNo});
}

bool UpgradeRun::isSkipped(std::span<const GateTerm> installed) {
  if (isLocal()) {
    setStatus(kSkippedLocalSystem);
  } else if (IsAgentlessSystem(program_, name_)) {
    setStatus("Skipped: No need to upgrade agent less agents");
  } else if (!passesGate(installed, product(), status())) {
    tellFault("Skipped: " + name_ + " - Cannot upgrade because Agent is not installed",
              "Skipped: Agent not installed");
  } else {
    return false;
  }
  return true;
}

}  // namespace varnhold::deployment
