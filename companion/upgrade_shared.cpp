#include "companion/upgrade_shared.h"

#include "base/text.h"
#include "companion/agent_mode.h"
#include "companion/agent_version.h"
#include "companion/changes.h"
#include "companion/material_steps.h"
#include "companion/steps_shared.h"

namespace varnhold::companion {
namespace {

std::string configurationThere(const JobContext& context) {
  return below(context.folder, context.product.configuration);
}

bool isBelow(const std::string& name, std::string_view folder) {
  return name.size() > folder.size() && name[folder.size()] == '\\' &&
         equalsIgnoringCase(std::string_view(name).substr(0, folder.size()), folder);
}

}  // namespace

Win32Error readOwnVersion(JobContext& context) {
  return context.material.version.empty() ? kFileMissing : kDone;
}

bool readAgentToUpgrade(JobContext& context) {
  readEarlierAgent(context);
  if (!context.earlierFolder || !context.earlierService) return false;
  context.folder = *context.earlierFolder;
  return true;
}

bool belongsToManager(JobContext& context) {
  const std::string manager = agentValue(context, "Manager").value_or("");
  return manager.empty() || equalsIgnoringCase(manager, context.material.managerName);
}

AgentAge compareVersions(JobContext& context) {
  const auto there = versionNumbers(agentValue(context, "Version").value_or(""));
  const auto ours = versionNumbers(context.material.version);
  if (!there || !ours) return AgentAge::Older;
  if (there->front() == 1) return AgentAge::FirstVersion;
  if (*there == *ours) return AgentAge::Same;
  return *there > *ours ? AgentAge::Newer : AgentAge::Older;
}

bool isInMode(JobContext& context, std::int32_t mode) {
  const NamedValue wanted = numberValue("Mode", mode);
  for (const NamedValue& value : context.computer.registry().values(std::string(context.product.registryKey)))
    if (equalsIgnoringCase(value.name, wanted.name)) return value.value.bytes == wanted.value.bytes;
  return false;
}

bool isHighPerformanceThere(JobContext& context) {
  return isHighPerformance(IniText(context.computer.files().read(configurationThere(context)).value_or("")));
}

bool isHighPerformanceHere(JobContext& context) {
  const auto captured = context.material.captured.find(context.product.configuration);
  if (captured == context.material.captured.end()) return false;
  return isHighPerformance(IniText(captured->second));
}

Win32Error replaceAgentFiles(JobContext& context, SetupInformationGoes setupInformationGoes) {
  const std::string setupFile = below(std::string(kMaterialFolder), kSetupFile);
  return bringMaterial(context, [&](const std::string& name) {
    if (equalsIgnoringCase(name, context.product.configuration)) return true;
    if (isBelow(name, kScriptsFolder)) return !context.record.remedialActions;
    return equalsIgnoringCase(name, setupFile) && setupInformationGoes == SetupInformationGoes::No;
  });
}

Win32Error setModeThere(JobContext& context, bool isHighPerformance) {
  RemoteFiles& files = context.computer.files();
  const std::string file = configurationThere(context);
  const auto bytes = files.read(file);
  if (!bytes) return kFileMissing;
  IniText configuration(*bytes);
  setHighPerformance(configuration, isHighPerformance);
  return writeFile(files, file, configuration.text(), context.takeBack);
}

Win32Error writeUpgradedValues(JobContext& context) {
  const std::string key(context.product.registryKey);
  std::vector<NamedValue> values = {textValue("Version", context.material.version),
                                    numberValue("Mode", context.record.agentMode)};
  if (context.record.remedialActions) values.push_back(numberValue("RemedialActions", 1));
  for (const NamedValue& value : values)
    if (const Win32Error error = setValue(context.computer.registry(), key, value, context.takeBack))
      return error;
  return kDone;
}

}  // namespace varnhold::companion
