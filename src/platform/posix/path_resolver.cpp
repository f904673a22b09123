#include "platform/posix/path_resolver.h"

#include <array>
#include <filesystem>

#include "base/text.h"
#include "platform/formats/path_translation.h"

namespace varnhold::platform::posix {
namespace {

namespace fs = std::filesystem;

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

/// The entry of the folder with that name but for case; the name itself where there is none.
std::string spelledAsIn(const fs::path& folder, const std::string& name) {
  std::string found;
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    auto candidate = entry->path().filename().string();
    if (equalsIgnoringCase(candidate, name) && (found.empty() || candidate < found))
      found = std::move(candidate);
  }
  return found.empty() ? name : found;
}

std::string inSpellingOfTheHost(const std::string& path) {
  if (isThere(path)) return path;
  fs::path resolved = path.starts_with('/') ? "/" : "";
  for (const auto& name : pathComponents(path)) {
    resolved = isThere(resolved / name) ? resolved / name : resolved / spelledAsIn(resolved, name);
  }
  return resolved.string();
}

}  // namespace

std::string PathResolver::resolve(const std::string& path) {
  if (!isSharePath(path)) return inSpellingOfTheHost(toSlashes(path));
  std::array<char, kQrvFolderSize> local{};
  const auto sharePath = companion_.function<decltype(qrvHostSharePath)>("qrvHostSharePath");
  if (sharePath(path.c_str(), local.data()) != 0) return {};
  return inSpellingOfTheHost(TrimAtNull({local.data(), local.size()}));
}

}  // namespace varnhold::platform::posix
