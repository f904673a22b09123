#include "base/text.h"
#include "companion/agent_version.h"
#include "companion/changes.h"
#include "companion/job.h"
#include "companion/material_steps.h"
#include "companion/paths.h"
#include "companion/step_codes.h"
#include "companion/steps_shared.h"

namespace varnhold::companion {
namespace {

/// The two boxes of the wizard write it differently.
constexpr std::string_view kProgramFiles[] = {"%Program Files%", "%ProgramFiles%"};

Win32Error copyMaterial(JobContext& context) {
  return bringMaterial(context, [](const std::string&) { return false; });
}

/// An agent that is there already is replaced, unless it is of the first version or a later one than ours. A
/// version that cannot be read, the registry being out of reach, is left to the steps that need the registry.
Win32Error checkVersion(JobContext& context) {
  if (context.computer.registry().open() != kDone || context.computer.services().open() != kDone)
    return kDone;
  readEarlierAgent(context);
  const auto present = versionNumbers(agentValue(context, "Version").value_or(""));
  if (!present) return kDone;
  if (present->front() == 1) return kOldVersion;
  const auto ours = versionNumbers(context.material.version);
  return ours && *present > *ours ? kOtherVersion : kDone;
}

/// A service of that name that no agent is registered for is somebody else's.
bool isReinstall(const JobContext& context) {
  return context.earlierFolder && context.earlierService;
}

bool mustStop(const JobContext& context) {
  return isReinstall(context) && serviceRuns(context);
}

std::string expandFolder(const std::string& directory, const std::string& programFiles) {
  const std::string path = trimBlanks(directory);
  for (const std::string_view variable : kProgramFiles)
    if (equalsIgnoringCase(std::string_view(path).substr(0, variable.size()), variable))
      return programFiles + path.substr(variable.size());
  return path;
}

Win32Error makeDirectory(JobContext& context) {
  const auto path =
      readDrivePath(expandFolder(context.record.installDirectory, context.computer.facts().programFiles));
  if (!path) return kBadPathName;
  context.folder = path->text();
  return makeFolders(context.computer.files(), context.folder, context.takeBack, context.madeFolders);
}

Win32Error writeRegistry(JobContext& context) {
  const std::string key(context.product.registryKey);
  RemoteRegistry& registry = context.computer.registry();
  if (const Win32Error error = makeKeys(registry, key, context.takeBack)) return error;
  const NamedValue values[] = {
      textValue("InstallPath", context.folder), textValue("Version", context.material.version),
      textValue("Manager", context.material.managerName), numberValue("Mode", context.record.agentMode),
      numberValue("RemedialActions", context.record.remedialActions ? 1 : 0)};
  for (const NamedValue& value : values)
    if (const Win32Error error = setValue(registry, key, value, context.takeBack)) return error;
  return kDone;
}

/// As the service is to be, but for the account, which a step of its own changes.
ServiceEntry agentService(const JobContext& context) {
  ServiceEntry entry = isReinstall(context) ? *context.earlierService : ServiceEntry();
  entry.name = context.product.serviceName;
  entry.path = below(context.folder, context.product.serviceProgram);
  entry.account = ServiceEntry().account;
  entry.start = ServiceStart::Automatic;
  entry.description = context.product.serviceDescription;
  return entry;
}

Win32Error createService(JobContext& context) {
  RemoteServices& services = context.computer.services();
  const ServiceEntry entry = agentService(context);
  if (isReinstall(context)) {
    if (const Win32Error error = services.change(entry, {})) return error;
    context.takeBack.add(
        [&services, before = *context.earlierService] { static_cast<void>(services.change(before, {})); });
    return kDone;
  }
  if (const Win32Error error = services.create(entry)) return error;
  context.takeBack.add([&services, name = entry.name] { static_cast<void>(services.remove(name)); });
  return kDone;
}

bool hasAccount(const JobContext& context) {
  return !context.record.serviceUser.empty();
}

/// Needs no take-back of its own: the service itself goes, or is changed back whole.
Win32Error setAccount(JobContext& context) {
  ServiceEntry entry = agentService(context);
  entry.account = context.record.serviceUser;
  return context.computer.services().change(entry, context.record.servicePassword);
}

Win32Error configureSecurity(JobContext& context) {
  return context.computer.services().secure(std::string(context.product.serviceName));
}

bool hasMoved(const JobContext& context) {
  return context.earlierFolder && !equalsIgnoringCase(*context.earlierFolder, context.folder);
}

/// The agent runs from its new folder already: what cannot be removed of the earlier one stays behind.
Win32Error removeEarlierFolder(JobContext& context) {
  context.takeBack.keep();
  static_cast<void>(removeAgentFiles(context, *context.earlierFolder));
  return kDone;
}

constexpr Step kInstallSteps[] = {
    {"connect", reach, 154, kConnectCodes},
    {"version", checkVersion, 154, kVersionCodes},
    {"stop", stopService, 223, kStopCodes, mustStop},
    {"directory", makeDirectory, 155},
    {"copy", copyMaterial, 351},
    {"config_file", copyConfigFile, 376, {}, hasConfigFile},
    {"remote_registry", openRegistry, 159},
    {"registry", writeRegistry, 158},
    {"service_manager", openServiceManager, 170, kInstallManagerCodes},
    {"service", createService, 180, kCreateServiceCodes},
    {"account", setAccount, 377, {}, hasAccount},
    {"start", startService, kNotStarted, kStartCodes},
    {"security", configureSecurity, kSecurityNotConfigured},
    {"earlier_folder", removeEarlierFolder, kInstalled, {}, hasMoved},
};

/// What an earlier agent recorded stays; where there is nothing yet, the agent's first snapshot is made.
Win32Error provideSnapshots(JobContext& context) {
  RemoteFiles& files = context.computer.files();
  const std::string folder = below(context.folder, context.product.snapshotFolder);
  if (!files.names(folder).empty()) return kAlreadyExists;
  if (const Win32Error error = makeFolders(files, folder, context.takeBack, context.madeFolders))
    return error;
  return writeFile(files, below(folder, "first.tks"), "First snapshot.\r\n", context.takeBack);
}

/// Its catalogue knows no warning about security, and words rights and a silent service of its own.
constexpr Step kTessmarkInstallSteps[] = {
    {"connect", reach, 154, kTessmarkConnectCodes},
    {"version", checkVersion, 154, kVersionCodes},
    {"stop", stopService, 223, kStopCodes, mustStop},
    {"directory", makeDirectory, 155},
    {"copy", copyMaterial, 351},
    {"remote_registry", openRegistry, 159},
    {"registry", writeRegistry, 158},
    {"service_manager", openServiceManager, 170, kTessmarkManagerCodes},
    {"service", createService, 180, kCreateServiceCodes},
    {"start", startService, kNotStarted, kStartCodes},
    {"snapshots", provideSnapshots, 351, kSnapshotCodes},
    {"earlier_folder", removeEarlierFolder, kInstalled, {}, hasMoved},
};

}  // namespace

std::span<const Step> installSteps() {
  return kInstallSteps;
}

std::span<const Step> tessmarkInstallSteps() {
  return kTessmarkInstallSteps;
}

}  // namespace varnhold::companion
