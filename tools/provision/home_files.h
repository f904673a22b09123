#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

/// Files and folders of a home while it is made. What fails raises RuntimeErrors that name the path:
/// kDiskFull, kPermissionDenied, or kPathFileAccess for anything else.
namespace varnhold::provision {

[[nodiscard]] std::filesystem::path pathFromUtf8(std::string_view text);
[[nodiscard]] std::string utf8FromPath(const std::filesystem::path& path);

/// Makes the folder and those above it where they are missing.
void makeFolder(const std::filesystem::path& folder);

/// Writes the whole file or none of it: the content goes to a file beside it that then takes its name. Makes
/// the folder where it is missing.
void writeWhole(const std::filesystem::path& file, std::string_view content);

/// The same for a file that is made in a way of its own. `write` puts the content into a new file and returns
/// why it could not, or no error.
using WriteBytes = std::error_code (*)(const std::filesystem::path& file, std::string_view content);
void writeWhole(const std::filesystem::path& file, std::string_view content, WriteBytes write);

/// The error for `path`: `what` was not possible, with the host's words for `reason`.
[[noreturn]] void raiseFileError(std::string_view what, const std::filesystem::path& path,
                                 std::error_code reason);

}  // namespace varnhold::provision
