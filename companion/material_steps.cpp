#include "companion/material_steps.h"

#include "companion/changes.h"
#include "companion/host.h"
#include "companion/paths.h"
#include "companion/steps_shared.h"

namespace varnhold::companion {
namespace {

constexpr std::size_t kLargestConfiguration = 16U << 20;

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

}  // namespace

Win32Error bringMaterial(JobContext& context, const StaysAsItIs& staysAsItIs) {
  const auto material = listMaterial(context.material);
  if (!material) return kPathMissing;
  if (const Win32Error error = writeFileList(context, *material)) return error;
  for (const MaterialFile& file : *material) {
    const bool stays =
        staysAsItIs(file.name) && context.computer.files().read(below(context.folder, file.name));
    if (stays) continue;
    if (const Win32Error error = copyFile(context, file)) return error;
  }
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

}  // namespace varnhold::companion
