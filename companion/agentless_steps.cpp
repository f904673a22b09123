// A computer that is watched from the manager: nothing runs there. The manager's own agent polls the
// computers that stand in a key of its registry, one text value for each: the computer's name, and its
// address.
#include "companion/changes.h"
#include "companion/job.h"
#include "companion/step_codes.h"
#include "companion/steps_shared.h"

namespace varnhold::companion {
namespace {

constexpr const char* kPolledKey = R"(SOFTWARE\Kelmont Works\Varnhold\Agent\Polled)";

const std::string& agentService() {
  static const std::string name(kVarnholdAgent.serviceName);
  return name;
}

/// It is the log that the manager's agent reads first of all.
Win32Error readSecurityLog(JobContext& context) {
  return context.computer.openEventLog("Security");
}

Win32Error openManagersRegistry(JobContext& context) {
  return context.manager->registry().open();
}

Win32Error findManagersAgent(JobContext& context) {
  RemoteServices& services = context.manager->services();
  if (const Win32Error error = services.open()) return error;
  ServiceEntry entry;
  if (const Win32Error error = services.query(agentService(), entry)) return error;
  context.earlierService = entry;
  return kDone;
}

Win32Error enterInList(JobContext& context) {
  RemoteRegistry& registry = context.manager->registry();
  if (const Win32Error error = makeKeys(registry, kPolledKey, context.takeBack)) return error;
  const NamedValue polled = textValue(context.polledName, context.computer.facts().address);
  return setValue(registry, kPolledKey, polled, context.takeBack);
}

bool managersAgentRests(const JobContext& context) {
  return !context.earlierService->running;
}

Win32Error startManagersAgent(JobContext& context) {
  RemoteServices& services = context.manager->services();
  if (const Win32Error error = services.start(agentService())) return error;
  context.takeBack.add([&services] { static_cast<void>(services.stop(agentService())); });
  return kDone;
}

Win32Error secureManagersAgent(JobContext& context) {
  return context.manager->services().secure(agentService());
}

/// A computer that is in no list is not polled, which is all that is wanted.
Win32Error takeFromList(JobContext& context) {
  RemoteRegistry& registry = context.manager->registry();
  if (!registry.hasKey(kPolledKey)) return kDone;
  if (const Win32Error error = removeValue(registry, kPolledKey, context.polledName, context.takeBack))
    return error;
  return removeEmptyKeys(registry, kPolledKey, context.takeBack);
}

constexpr Step kAgentlessInstallSteps[] = {
    {"connect", reach, kCannotConnect, kConnectCodes},
    {"security_log", readSecurityLog, kCannotConnect},
    {"local_registry", openManagersRegistry, kLocalRegistryUnreadable},
    {"find", findManagersAgent, 196, kFindCodes},
    {"poll", enterInList, 158},
    {"start", startManagersAgent, kNotStarted, kStartCodes, managersAgentRests},
    {"security", secureManagersAgent, kSecurityNotConfigured},
};

constexpr Step kAgentlessUninstallSteps[] = {
    {"local_registry", openManagersRegistry, kLocalRegistryUnreadable},
    {"find", findManagersAgent, 196, kFindCodes},
    {"unpoll", takeFromList, 158},
};

}  // namespace

std::span<const Step> agentlessInstallSteps() {
  return kAgentlessInstallSteps;
}

std::span<const Step> agentlessUninstallSteps() {
  return kAgentlessUninstallSteps;
}

}  // namespace varnhold::companion
