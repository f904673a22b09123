#include "tools/provision/home_files.h"

#include <cerrno>
#include <fstream>
#include <system_error>

#include "base/runtime_error.h"

namespace varnhold::provision {
namespace {

std::int32_t numberOf(std::error_code reason) {
  if (reason == std::errc::no_space_on_device) return kDiskFull;
  if (reason == std::errc::permission_denied || reason == std::errc::read_only_file_system ||
      reason == std::errc::operation_not_permitted)
    return kPermissionDenied;
  return kPathFileAccess;
}

std::error_code lastFileError() {
  return errno != 0 ? std::error_code(errno, std::generic_category())
                    : std::make_error_code(std::errc::io_error);
}

std::error_code writeBytes(const std::filesystem::path& file, std::string_view content) {
  errno = 0;
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  out.close();
  return out ? std::error_code{} : lastFileError();
}

}  // namespace

std::filesystem::path pathFromUtf8(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

std::string utf8FromPath(const std::filesystem::path& path) {
  const auto text = path.u8string();
  return {text.begin(), text.end()};
}

void raiseFileError(std::string_view what, const std::filesystem::path& path, std::error_code reason) {
  throw RuntimeError(numberOf(reason),
                     std::string(what) + " '" + utf8FromPath(path) + "': " + reason.message() + ".");
}

void makeFolder(const std::filesystem::path& folder) {
  std::error_code reason;
  std::filesystem::create_directories(folder, reason);
  if (reason) raiseFileError("Cannot make the folder", folder, reason);
}

void writeWhole(const std::filesystem::path& file, std::string_view content) {
  writeWhole(file, content, writeBytes);
}

void writeWhole(const std::filesystem::path& file, std::string_view content, WriteBytes write) {
  makeFolder(file.parent_path());
  auto beside = file;
  beside += ".new";
  auto reason = write(beside, content);
  if (!reason) std::filesystem::rename(beside, file, reason);
  if (!reason) return;
  std::error_code ignored;
  std::filesystem::remove(beside, ignored);
  raiseFileError("Cannot write", file, reason);
}

}  // namespace varnhold::provision
