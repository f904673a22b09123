#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "companion/agent_product.h"

namespace varnhold::companion {

/// One file to bring to a computer.
struct MaterialFile {
  std::string name;  ///< below the agent's folder, with backslashes
  std::filesystem::path source;
};

/// What an install brings along, and who sends it.
struct AgentMaterial {
  const AgentProduct* product;
  std::filesystem::path libraryFolder;  ///< "...\remins" of the manager
  std::string managerName;
  std::string version;  ///< of the agent that is installed, "7.0"; empty: the manager does not say
  /// Files that the next call of the console may change: as they were when the job was asked for, by their
  /// name below the agent's folder.
  std::map<std::string, std::string, std::less<>> captured;
};

/// Reads what the next call may change (the configuration and the setup information), for the job to keep.
/// `product` outlives the material.
[[nodiscard]] AgentMaterial captureMaterial(const std::filesystem::path& libraryFolder,
                                            const AgentProduct& product, std::string managerName,
                                            std::string version);

/// All files of the product's folder, and of the installation material, for its own subfolder. Nothing when
/// one of the folders is not there or cannot be read.
[[nodiscard]] std::optional<std::vector<MaterialFile>> listMaterial(const AgentMaterial& material);

/// The content of one of them; nothing when it cannot be read.
[[nodiscard]] std::optional<std::string> readMaterial(const AgentMaterial& material,
                                                      const MaterialFile& file);

}  // namespace varnhold::companion
