#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnhold::companion {

/// The host's path for UTF-8 text with the host's own separators, and back.
[[nodiscard]] std::filesystem::path pathFromUtf8(std::string_view text);
[[nodiscard]] std::string utf8FromPath(const std::filesystem::path& path);

/// `base` followed by the names, each found without regard to case where it is not there exactly; a name that
/// is not there at all is taken as it stands.
[[nodiscard]] std::filesystem::path resolveIgnoringCase(std::filesystem::path base,
                                                        const std::vector<std::string>& names);

/// May this be the name of one file or folder on a Windows drive? No separator, colon, wildcard or control
/// character, no dot or blank at its end ("." and ".." among them), and at most 255 bytes.
[[nodiscard]] bool isFileName(std::string_view name);

/// A path on a drive of a computer: "C:\folder\file".
struct DrivePath {
  char drive = 'C';  ///< upper case
  std::vector<std::string> names;

  [[nodiscard]] std::string text() const;
};

/// Reads a drive path; slashes count as backslashes, a closing one and doubled ones don't count. Nothing when
/// it is no full path or a name in it may not be one.
[[nodiscard]] std::optional<DrivePath> readDrivePath(std::string_view path);

/// The part of `path` above its last name; nothing for a drive's root.
[[nodiscard]] std::optional<std::string> folderAbove(const std::string& path);

/// The whole file; nothing when it cannot be read or has more than `limit` bytes.
[[nodiscard]] std::optional<std::string> readWhole(const std::filesystem::path& file, std::size_t limit);

}  // namespace varnhold::companion
