#include "platform/formats/path_translation.h"

#include "base/text.h"

namespace varnhold::platform {

bool isSharePath(std::string_view path) {
  return path.starts_with(R"(\\)");
}

std::optional<SharePath> splitSharePath(std::string_view path) {
  if (!isSharePath(path)) return std::nullopt;
  path.remove_prefix(2);
  const auto hostEnd = path.find('\\');
  if (hostEnd == 0 || hostEnd == std::string_view::npos) return std::nullopt;
  const auto behindHost = path.substr(hostEnd + 1);
  const auto shareEnd = behindHost.find('\\');
  if (shareEnd == 0 || behindHost.empty()) return std::nullopt;
  const auto rest = shareEnd == std::string_view::npos ? std::string_view{} : behindHost.substr(shareEnd + 1);
  return SharePath{std::string(path.substr(0, hostEnd)), std::string(behindHost.substr(0, shareEnd)),
                   std::string(rest)};
}

std::string toSlashes(std::string_view path) {
  return replaceAll(path, "\\", "/");
}

std::vector<std::string> pathComponents(std::string_view path) {
  auto names = split(toSlashes(path), '/');
  std::erase(names, std::string{});
  return names;
}

}  // namespace varnhold::platform
