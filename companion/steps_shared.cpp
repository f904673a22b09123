#include "companion/steps_shared.h"

#include <algorithm>

#include "base/text.h"
#include "companion/changes.h"
#include "companion/paths.h"

namespace varnhold::companion {

Win32Error reach(JobContext& context) {
  if (const Win32Error error = context.computer.files().connect()) return error;
  if (context.record.shareConnected) return kDone;
  return context.computer.logOn(context.record.serviceUser, context.record.servicePassword);
}

Win32Error openRegistry(JobContext& context) {
  return context.computer.registry().open();
}

Win32Error openServiceManager(JobContext& context) {
  return context.computer.services().open();
}

bool serviceRuns(const JobContext& context) {
  return context.earlierService && context.earlierService->running;
}

Win32Error stopService(JobContext& context) {
  RemoteServices& services = context.computer.services();
  const std::string name(context.product.serviceName);
  if (const Win32Error error = services.stop(name)) return error;
  context.takeBack.add([&services, name] { static_cast<void>(services.start(name)); });
  return kDone;
}

Win32Error startService(JobContext& context) {
  RemoteServices& services = context.computer.services();
  const std::string name(context.product.serviceName);
  const Win32Error error = services.start(name);
  if (error == kServiceRunning) return kDone;
  if (error == kDone) context.takeBack.add([&services, name] { static_cast<void>(services.stop(name)); });
  return error;
}

bool isVarnholdAgent(const JobContext& context) {
  return &context.product == &kVarnholdAgent;
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

std::optional<std::string> agentValue(JobContext& context, std::string_view name) {
  for (const NamedValue& value : context.computer.registry().values(std::string(context.product.registryKey)))
    if (equalsIgnoringCase(value.name, name) && value.value.type == platform::kRegText)
      return TrimAtNull(value.value.bytes);
  return std::nullopt;
}

void readEarlierAgent(JobContext& context) {
  if (const auto folder = agentValue(context, "InstallPath")) {
    const auto path = readDrivePath(*folder);
    if (path) context.earlierFolder = path->text();
  }
  ServiceEntry entry;
  if (context.computer.services().query(std::string(context.product.serviceName), entry) == kDone)
    context.earlierService = entry;
}

AgentFiles agentFilesIn(JobContext& context, const std::string& folder) {
  if (const auto bytes = context.computer.files().read(below(folder, kAgentFilesList)))
    return readAgentFiles(*bytes, folder);
  AgentFiles list;
  for (const MaterialFile& file : listMaterial(context.material).value_or(std::vector<MaterialFile>()))
    list.addFile(file.name);
  list.addFolder(folder);
  list.addFolder(below(folder, kMaterialFolder));
  return list;
}

Win32Error removeAgentFiles(JobContext& context, const std::string& folder) {
  RemoteFiles& files = context.computer.files();
  AgentFiles list = agentFilesIn(context, folder);
  list.addFile(std::string(kAgentFilesList));
  for (const std::string& name : list.files)
    if (const Win32Error error = removeFile(files, below(folder, name), context.takeBack)) return error;
  std::sort(list.folders.begin(), list.folders.end(),
            [](const std::string& left, const std::string& right) { return left.size() > right.size(); });
  for (const std::string& path : list.folders)
    if (const Win32Error error = removeEmptyFolder(files, path, context.takeBack)) return error;
  return kDone;
}

}  // namespace varnhold::companion
