// The upgrade through the running agent, and the question which version runs. Neither needs a share or an
// account: the agent does the work on its own computer, for the manager that it belongs to.
#include "companion/agent_mode.h"
#include "companion/job.h"
#include "companion/local_calls.h"
#include "companion/material_steps.h"
#include "companion/step_codes.h"
#include "companion/steps_shared.h"
#include "companion/upgrade_shared.h"

namespace varnhold::companion {
namespace {

Win32Error findAgentLibrary(JobContext& context) {
  return hasLibrary(context.record.agentLibrary) ? kDone : kFileMissing;
}

Win32Error resolveName(JobContext& context) {
  return context.computer.facts().address.empty() ? kHostUnknown : kDone;
}

/// An agent of another manager does not listen to this one.
Win32Error reachAgent(JobContext& context) {
  if (const Win32Error error = context.computer.connectAgent()) return error;
  return belongsToManager(context) ? kDone : kConnectionRefused;
}

Win32Error checkVersion(JobContext& context) {
  if (const Win32Error error = context.computer.registry().open()) return error;
  if (!readAgentToUpgrade(context)) return kFileMissing;
  switch (compareVersions(context)) {
    case AgentAge::FirstVersion:
      return kOldVersion;
    case AgentAge::Newer:
      return kOtherVersion;
    default:
      return kDone;
  }
}

Win32Error compareWithManager(JobContext& context) {
  if (const Win32Error error = context.computer.registry().open()) return error;
  if (!agentValue(context, "Version")) return kFileMissing;
  return compareVersions(context) == AgentAge::Same ? kDone : kOtherVersion;
}

/// The setup information was written for this run.
Win32Error replaceFiles(JobContext& context) {
  return replaceAgentFiles(context, SetupInformationGoes::Yes);
}

bool keepsConfiguration(const JobContext& context) {
  return !hasConfigFile(context);
}

/// The manager's own file may still be set for the mode of another computer.
Win32Error setMode(JobContext& context) {
  return setModeThere(context, context.record.agentMode == kHighPerformanceMode);
}

constexpr Step kOverIpUpgradeSteps[] = {
    {"local_registry", readOwnVersion, 3013},
    {"agent_library", findAgentLibrary, 3023},
    {"resolve", resolveName, kHostInformationMissing},
    {"agent", reachAgent, 3020, kSocketCodes},
    {"version", checkVersion, 3026, kOverIpVersionCodes},
    {"service_manager", openServiceManager, 3011},
    {"stop", stopService, 3012, {}, serviceRuns},
    {"copy", replaceFiles, 3023, kSocketCodes},
    {"config_file", copyConfigFile, 3023, kSocketCodes, hasConfigFile},
    {"mode", setMode, 3023, {}, keepsConfiguration},
    {"registry", writeUpgradedValues, 3013},
    {"start", startService, 3012},
    {"confirm", reachAgent, 3025},
};

constexpr Step kVersionCheckSteps[] = {
    {"local_registry", readOwnVersion, 3013},
    {"agent_library", findAgentLibrary, 3023},
    {"resolve", resolveName, kHostInformationMissing},
    {"agent", reachAgent, 3020, kSocketCodes},
    {"version", compareWithManager, 3026, kOverIpVersionCodes},
};

}  // namespace

std::span<const Step> overIpUpgradeSteps() {
  return kOverIpUpgradeSteps;
}

std::span<const Step> versionCheckSteps() {
  return kVersionCheckSteps;
}

}  // namespace varnhold::companion
