#include "companion/agent_material.h"

#include <algorithm>

#include "companion/host.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestFile = 256U << 20;

fs::path productFolder(const fs::path& libraryFolder, const AgentProduct& product) {
  return resolveIgnoringCase(libraryFolder.parent_path(), {std::string(product.fileFolder)});
}

std::string withBackslashes(const fs::path& relative) {
  std::string name = utf8FromPath(relative);
  std::replace(name.begin(), name.end(), '/', '\\');
  return name;
}

bool addFolder(const fs::path& folder, const std::string& prefix, std::vector<MaterialFile>& files) {
  std::error_code error;
  fs::recursive_directory_iterator entries(folder, error);
  for (; !error && entries != fs::recursive_directory_iterator(); entries.increment(error)) {
    const fs::path& source = entries->path();
    std::error_code unknown;
    if (fs::is_regular_file(source, unknown) && source.extension() != host::kFreshEnding)
      files.push_back({prefix + withBackslashes(source.lexically_relative(folder)), source});
  }
  return !error;
}

}  // namespace

AgentMaterial captureMaterial(const fs::path& libraryFolder, const AgentProduct& product,
                              std::string managerName, std::string version) {
  AgentMaterial material{&product, libraryFolder, std::move(managerName), std::move(version), {}};
  const auto capture = [&](const fs::path& folder, const std::string& prefix, std::string_view name) {
    const MaterialFile file{prefix + std::string(name), resolveIgnoringCase(folder, {std::string(name)})};
    if (auto bytes = readWhole(file.source, kLargestFile)) material.captured[file.name] = std::move(*bytes);
  };
  capture(productFolder(libraryFolder, product), "", product.configuration);
  capture(libraryFolder, std::string(kMaterialFolder) + "\\", kSetupFile);
  return material;
}

std::optional<std::vector<MaterialFile>> listMaterial(const AgentMaterial& material) {
  std::vector<MaterialFile> files;
  if (!addFolder(productFolder(material.libraryFolder, *material.product), "", files)) return std::nullopt;
  if (!addFolder(material.libraryFolder, std::string(kMaterialFolder) + "\\", files)) return std::nullopt;
  std::sort(files.begin(), files.end(),
            [](const MaterialFile& left, const MaterialFile& right) { return left.name < right.name; });
  return files;
}

std::optional<std::string> readMaterial(const AgentMaterial& material, const MaterialFile& file) {
  const auto captured = material.captured.find(file.name);
  if (captured != material.captured.end()) return captured->second;
  return readWhole(file.source, kLargestFile);
}

}  // namespace varnhold::companion
