#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnhold::companion {

/// The list that an install leaves in the agent's folder, so that an uninstall takes away what was put there
/// and nothing else.
struct AgentFiles {
  std::vector<std::string> folders;  ///< full paths of the folders that were made, those above first
  std::vector<std::string> files;    ///< names below the agent's folder

  void addFolder(const std::string& path);
  void addFile(const std::string& name);
};

/// Its name in the agent's folder.
inline constexpr std::string_view kAgentFilesList = "vhfiles.lst";

[[nodiscard]] std::string writeAgentFiles(const AgentFiles& list);
/// Lines that are not understood, or name something outside of the agent's folder and of those above it, are
/// passed over.
[[nodiscard]] AgentFiles readAgentFiles(std::string_view bytes, const std::string& agentFolder);

/// The full path of a name below a folder.
[[nodiscard]] std::string below(const std::string& folder, std::string_view name);

}  // namespace varnhold::companion
