#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnhold::platform {

/// A path on an administrative share, `\\HOST\C$\folder\file`, in its pieces.
struct SharePath {
  std::string host;   ///< "HOST"
  std::string share;  ///< "C$"
  std::string rest;   ///< "folder\file"; empty for the share itself

  friend bool operator==(const SharePath&, const SharePath&) = default;
};

/// True for a path that names another computer: one that begins with two backslashes.
[[nodiscard]] bool isSharePath(std::string_view path);

/// The pieces of `\\HOST\SHARE[\rest]`; nothing for any other path, and where host or share is empty.
[[nodiscard]] std::optional<SharePath> splitSharePath(std::string_view path);

/// A path of the product with slashes in place of its backslashes.
[[nodiscard]] std::string toSlashes(std::string_view path);

/// The names of a path between its separators of either kind, empty ones left out.
[[nodiscard]] std::vector<std::string> pathComponents(std::string_view path);

}  // namespace varnhold::platform
