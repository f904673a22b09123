#include "companion/agent_files.h"

#include <algorithm>

#include "base/text.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

constexpr std::string_view kFolderWord = "folder ";
constexpr std::string_view kFileWord = "file ";

void addOnce(std::vector<std::string>& names, const std::string& name) {
  const auto same = [&](const std::string& known) { return equalsIgnoringCase(known, name); };
  if (std::none_of(names.begin(), names.end(), same)) names.push_back(name);
}

bool isAtOrBelow(const std::string& path, const std::string& folder) {
  return toUpper(path + '\\').starts_with(toUpper(folder + '\\'));
}

/// A folder of the agent's, or one on the way to it; both as `DrivePath::text` writes them.
bool belongsTo(const std::string& path, const std::string& agentFolder) {
  return isAtOrBelow(path, agentFolder) || isAtOrBelow(agentFolder, path);
}

}  // namespace

void AgentFiles::addFolder(const std::string& path) {
  addOnce(folders, path);
}
void AgentFiles::addFile(const std::string& name) {
  addOnce(files, name);
}

std::string writeAgentFiles(const AgentFiles& list) {
  std::string text;
  for (const std::string& folder : list.folders) text.append(kFolderWord).append(folder).append("\r\n");
  for (const std::string& file : list.files) text.append(kFileWord).append(file).append("\r\n");
  return text;
}

AgentFiles readAgentFiles(std::string_view bytes, const std::string& agentFolder) {
  AgentFiles list;
  for (const std::string& line : split(replaceAll(bytes, "\r", ""), '\n')) {
    const std::string_view text = line;
    if (text.starts_with(kFolderWord)) {
      const auto path = readDrivePath(text.substr(kFolderWord.size()));
      if (path && belongsTo(path->text(), agentFolder)) list.addFolder(path->text());
    } else if (text.starts_with(kFileWord)) {
      const std::string name(text.substr(kFileWord.size()));
      const auto path = readDrivePath(below(agentFolder, name));
      if (path && !equalsIgnoringCase(path->text(), agentFolder)) list.addFile(name);
    }
  }
  return list;
}

std::string below(const std::string& folder, std::string_view name) {
  return (folder.ends_with('\\') ? folder : folder + '\\') + std::string(name);
}

}  // namespace varnhold::companion
