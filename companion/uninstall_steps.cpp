#include "companion/changes.h"
#include "companion/job.h"
#include "companion/step_codes.h"
#include "companion/steps_shared.h"

namespace varnhold::companion {
namespace {

/// A job that was killed may have left an agent without its service; that one can be taken away too.
Win32Error findAgent(JobContext& context) {
  readEarlierAgent(context);
  return context.earlierService || context.earlierFolder ? kDone : kServiceMissing;
}

bool hasService(const JobContext& context) {
  return context.earlierService.has_value();
}

Win32Error deleteService(JobContext& context) {
  RemoteServices& services = context.computer.services();
  if (const Win32Error error = services.remove(context.earlierService->name)) return error;
  ServiceEntry stopped = *context.earlierService;
  stopped.running = false;
  context.takeBack.add([&services, stopped] { static_cast<void>(services.create(stopped)); });
  return kDone;
}

/// The key of the agent, and those above it that only led to it, up to the one that belongs to all products.
Win32Error removeRegistry(JobContext& context) {
  RemoteRegistry& registry = context.computer.registry();
  std::string key(context.product.registryKey);
  if (const Win32Error error = removeKeyTree(registry, key, context.takeBack)) return error;
  for (key.erase(key.rfind('\\')); key.find('\\') != std::string::npos; key.erase(key.rfind('\\'))) {
    if (!registry.values(key).empty() || !registry.subkeys(key).empty()) break;
    if (const Win32Error error = removeKeyTree(registry, key, context.takeBack)) return error;
  }
  return kDone;
}

bool hasFolder(const JobContext& context) {
  return context.earlierFolder.has_value();
}

Win32Error removeFiles(JobContext& context) {
  return removeAgentFiles(context, *context.earlierFolder);
}

constexpr Step kUninstallSteps[] = {
    {"connect", reach, 154, kConnectCodes},
    {"remote_registry", openRegistry, 159},
    {"service_manager", openServiceManager, 194, kUninstallManagerCodes},
    {"find", findAgent, 196, kFindCodes},
    {"stop", stopService, 223, kStopCodes, serviceRuns},
    {"delete", deleteService, 223, kDeleteCodes, hasService},
    {"remove_files", removeFiles, 149, {}, hasFolder},
    // Last, since the registry is what tells a later job where the rest is.
    {"remove_registry", removeRegistry, 158},
};

}  // namespace

std::span<const Step> uninstallSteps() {
  return kUninstallSteps;
}

}  // namespace varnhold::companion
