// The upgrade over the Windows network: the manager's files take the place of the agent's, in the folder
// where it is, and the agent goes on with its own configuration unless another one was given.
#include "companion/changes.h"
#include "companion/job.h"
#include "companion/material_steps.h"
#include "companion/step_codes.h"
#include "companion/steps_shared.h"
#include "companion/upgrade_shared.h"

namespace varnhold::companion {
namespace {

Win32Error findAgent(JobContext& context) {
  return readAgentToUpgrade(context) ? kDone : kServiceMissing;
}

Win32Error checkOwner(JobContext& context) {
  return belongsToManager(context) ? kDone : kAccessDenied;
}

/// An agent of this very version is left alone, unless the upgrade changes something else in it. The Tessmark
/// catalogue has no word for that, so there it is upgraded all the same.
bool hasNothingToChange(JobContext& context) {
  const JobRecord& record = context.record;
  const bool asksForMore = hasConfigFile(context) || record.remedialActions ||
                           !isInMode(context, record.agentMode) ||
                           isHighPerformanceThere(context) != isHighPerformanceHere(context);
  return isVarnholdAgent(context) && !asksForMore;
}

Win32Error checkVersion(JobContext& context) {
  switch (compareVersions(context)) {
    case AgentAge::FirstVersion:
      return kOldVersion;
    case AgentAge::Newer:
      return kOtherVersion;
    case AgentAge::Same:
      return hasNothingToChange(context) ? kAlreadyExists : kDone;
    default:
      return kDone;
  }
}

/// The setup information was last written for an install, perhaps of another computer.
Win32Error replaceFiles(JobContext& context) {
  return replaceAgentFiles(context, SetupInformationGoes::No);
}

bool mustSetMode(const JobContext& context) {
  return isVarnholdAgent(context) && !hasConfigFile(context);
}

/// The number in the record is 1 for either mode on this way: what was asked for stands in the manager's
/// file.
Win32Error setMode(JobContext& context) {
  return setModeThere(context, isHighPerformanceHere(context));
}

/// A service of a named account cannot interact, nor can any from version 6 of the operating system on.
bool mayInteract(const JobContext& context) {
  const ServiceEntry& service = *context.earlierService;
  return !context.record.isVistaTarget && isVarnholdAgent(context) && !service.interacts &&
         service.account == ServiceEntry().account;
}

Win32Error interactWithDesktop(JobContext& context) {
  RemoteServices& services = context.computer.services();
  ServiceEntry entry = *context.earlierService;
  entry.interacts = true;
  if (const Win32Error error = services.change(entry, {})) return error;
  context.takeBack.add(
      [&services, before = *context.earlierService] { static_cast<void>(services.change(before, {})); });
  return kDone;
}

constexpr Step kUpgradeSteps[] = {
    {"local_registry", readOwnVersion, kLocalRegistryUnreadable},
    {"connect", reach, 154, kConnectCodes},
    {"remote_registry", openRegistry, 707},
    {"service_manager", openServiceManager, 194, kUninstallManagerCodes},
    {"find", findAgent, 196, kFindCodes},
    {"owner", checkOwner, 705},
    {"version", checkVersion, 707, kUpgradeVersionCodes},
    {"stop", stopService, 703, {}, serviceRuns},
    {"copy", replaceFiles, 708},
    {"config_file", copyConfigFile, 376, {}, hasConfigFile},
    {"mode", setMode, 708, {}, mustSetMode},
    {"registry", writeUpgradedValues, 709},
    {"desktop", interactWithDesktop, 712, {}, mayInteract},
    {"start", startService, kUpgradedNotStarted},
};

}  // namespace

std::span<const Step> upgradeSteps() {
  return kUpgradeSteps;
}

}  // namespace varnhold::companion
