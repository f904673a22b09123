#include "companion/paths.h"

#include <algorithm>
#include <fstream>

#include "base/text.h"

namespace varnhold::companion {

std::filesystem::path pathFromUtf8(std::string_view text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

std::string utf8FromPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

namespace {

/// The entry of `folder` with that name but for case.
std::filesystem::path entryIgnoringCase(const std::filesystem::path& folder, const std::string& name) {
  const std::filesystem::path exact = folder / pathFromUtf8(name);
  std::error_code error;
  if (std::filesystem::exists(std::filesystem::symlink_status(exact, error))) return exact;
  std::filesystem::directory_iterator entries(folder, error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error))
    if (equalsIgnoringCase(utf8FromPath(entries->path().filename()), name)) return entries->path();
  return exact;
}

}  // namespace

std::filesystem::path resolveIgnoringCase(std::filesystem::path base, const std::vector<std::string>& names) {
  for (const std::string& name : names) base = entryIgnoringCase(base, name);
  return base;
}

bool isFileName(std::string_view name) {
  constexpr std::size_t kLongestName = 255;
  if (name.empty() || name.size() > kLongestName || name.back() == '.' || name.back() == ' ') return false;
  return std::none_of(name.begin(), name.end(), [](unsigned char c) {
    return c < 0x20 || c == 0x7F ||
           std::string_view("\\/:*?\"<>|").find(static_cast<char>(c)) != std::string_view::npos;
  });
}

std::string DrivePath::text() const {
  std::string path{drive, ':'};
  for (const std::string& name : names) path += '\\' + name;
  return names.empty() ? path + '\\' : path;
}

std::optional<DrivePath> readDrivePath(std::string_view path) {
  const std::string text = replaceAll(trimBlanks(path), "/", "\\");
  if (text.size() < 2 || text[1] != ':' || (text.size() > 2 && text[2] != '\\')) return std::nullopt;
  const std::string drive = toUpper(text.substr(0, 1));
  if (drive < "A" || drive > "Z") return std::nullopt;
  DrivePath result{drive.front(), {}};
  for (std::string& name : split(text.substr(2), '\\')) {
    if (name.empty()) continue;
    if (!isFileName(name)) return std::nullopt;
    result.names.push_back(std::move(name));
  }
  return result;
}

std::optional<std::string> folderAbove(const std::string& path) {
  auto drivePath = readDrivePath(path);
  if (!drivePath || drivePath->names.empty()) return std::nullopt;
  drivePath->names.pop_back();
  return drivePath->text();
}

std::optional<std::string> readWhole(const std::filesystem::path& file, std::size_t limit) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;
  const auto size = std::filesystem::file_size(file, error);
  if (error || size > limit) return std::nullopt;
  std::ifstream in(file, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (!in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) return std::nullopt;
  return bytes;
}

}  // namespace varnhold::companion
