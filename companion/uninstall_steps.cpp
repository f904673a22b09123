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
  const std::string key(context.product.registryKey);
  if (const Win32Error error = removeKeyTree(registry, key, context.takeBack)) return error;
  return removeEmptyKeys(registry, key.substr(0, key.rfind('\\')), context.takeBack);
}

bool hasFolder(const JobContext& context) {
  return context.earlierFolder.has_value();
}

Win32Error removeFiles(JobContext& context) {
  return removeAgentFiles(context, *context.earlierFolder);
}

bool dropsSnapshots(const JobContext& context) {
  return hasFolder(context) && !context.record.keepsSnapshots;
}

Win32Error removeSnapshots(JobContext& context) {
  const std::string snapshots = below(*context.earlierFolder, context.product.snapshotFolder);
  return removeFolderTree(context.computer.files(), snapshots, context.takeBack);
}

/// The folder may be one that an earlier uninstall left for its snapshots, and so be in no list.
Win32Error removeFilesAndFolder(JobContext& context) {
  if (const Win32Error error = removeFiles(context)) return error;
  return removeEmptyFolder(context.computer.files(), *context.earlierFolder, context.takeBack);
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

/// Its catalogue has no text for 149, but one for missing rights.
constexpr Step kTessmarkUninstallSteps[] = {
    {"connect", reach, 154, kTessmarkConnectCodes},
    {"remote_registry", openRegistry, 159},
    {"service_manager", openServiceManager, 194, kUninstallManagerCodes},
    {"find", findAgent, 196, kFindCodes},
    {"stop", stopService, 223, kStopCodes, serviceRuns},
    {"delete", deleteService, 223, kDeleteCodes, hasService},
    {"remove_snapshots", removeSnapshots, 282, {}, dropsSnapshots},
    {"remove_files", removeFilesAndFolder, 282, {}, hasFolder},
    {"remove_registry", removeRegistry, 158},
};

}  // namespace

std::span<const Step> uninstallSteps() {
  return kUninstallSteps;
}

std::span<const Step> tessmarkUninstallSteps() {
  return kTessmarkUninstallSteps;
}

}  // namespace varnhold::companion
