#include <charconv>

#include "base/text.h"
#include "companion/changes.h"
#include "companion/host.h"
#include "companion/job.h"
#include "companion/paths.h"
#include "companion/step_codes.h"
#include "companion/steps_shared.h"

namespace varnhold::companion {
namespace {

constexpr std::string_view kProgramFiles = "%Program Files%";
constexpr std::size_t kLargestConfiguration = 16U << 20;

/// The numbers of "7.0.12"; nothing for any other text.
std::optional<std::vector<unsigned>> versionNumbers(const std::string& version) {
  std::vector<unsigned> numbers;
  for (const std::string& part : split(trimBlanks(version), '.')) {
    unsigned number = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number);
    if (error != std::errc() || end != part.data() + part.size()) return std::nullopt;
    numbers.push_back(number);
  }
  while (numbers.size() > 1 && numbers.back() == 0) numbers.pop_back();
  return numbers;
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
  const bool relative =
      equalsIgnoringCase(std::string_view(path).substr(0, kProgramFiles.size()), kProgramFiles);
  return relative ? programFiles + path.substr(kProgramFiles.size()) : path;
}

Win32Error makeDirectory(JobContext& context) {
  const auto path =
      readDrivePath(expandFolder(context.record.installDirectory, context.computer.facts().programFiles));
  if (!path) return kBadPathName;
  context.folder = path->text();
  return makeFolders(context.computer.files(), context.folder, context.takeBack, context.madeFolders);
}

/// The list of files comes first, so that what a killed job left can still be uninstalled.
Win32Error writeFileList(JobContext& context, const std::vector<MaterialFile>& material) {
  const std::string list = below(context.folder, kAgentFilesList);
  AgentFiles files;
  if (const auto bytes = context.computer.files().read(list)) files = readAgentFiles(*bytes, context.folder);
  for (const std::string& folder : context.madeFolders) files.addFolder(folder);
  files.addFile(std::string(context.product.configuration));
  for (const MaterialFile& file : material) {
    files.addFile(file.name);
    for (auto cut = file.name.find('\\'); cut != std::string::npos; cut = file.name.find('\\', cut + 1))
      files.addFolder(below(context.folder, file.name.substr(0, cut)));
  }
  return writeFile(context.computer.files(), list, writeAgentFiles(files), context.takeBack);
}

Win32Error copyFile(JobContext& context, const MaterialFile& file) {
  const auto bytes = readMaterial(context.material, file);
  if (!bytes) return kFileMissing;
  const std::string target = below(context.folder, file.name);
  const auto folder = folderAbove(target);
  if (!folder) return kBadPathName;
  RemoteFiles& files = context.computer.files();
  if (const Win32Error error = makeFolders(files, *folder, context.takeBack, context.madeFolders))
    return error;
  return writeFile(files, target, *bytes, context.takeBack);
}

Win32Error copyMaterial(JobContext& context) {
  const auto material = listMaterial(context.material, context.product);
  if (!material) return kPathMissing;
  if (const Win32Error error = writeFileList(context, *material)) return error;
  for (const MaterialFile& file : *material)
    if (const Win32Error error = copyFile(context, file)) return error;
  return kDone;
}

bool hasConfigFile(const JobContext& context) {
  return !context.record.configFile.empty();
}

Win32Error copyConfigFile(JobContext& context) {
  const auto bytes = readWhole(host::localPath(context.record.configFile), kLargestConfiguration);
  if (!bytes) return kFileMissing;
  const std::string target = below(context.folder, context.product.configuration);
  return writeFile(context.computer.files(), target, *bytes, context.takeBack);
}

NamedValue textValue(const std::string& name, const std::string& text) {
  return {name, {platform::kRegText, text + '\0'}};
}

NamedValue numberValue(const std::string& name, std::int32_t number) {
  NamedValue value{name, {platform::kRegNumber, {}}};
  for (unsigned shift = 0; shift < 32; shift += 8)
    value.value.bytes += static_cast<char>(static_cast<std::uint32_t>(number) >> shift & 0xFF);
  return value;
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

Win32Error startService(JobContext& context) {
  RemoteServices& services = context.computer.services();
  const std::string name(context.product.serviceName);
  const Win32Error error = services.start(name);
  if (error == kServiceRunning) return kDone;
  if (error == kDone) context.takeBack.add([&services, name] { static_cast<void>(services.stop(name)); });
  return error;
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

}  // namespace

std::span<const Step> installSteps() {
  return kInstallSteps;
}

}  // namespace varnhold::companion
