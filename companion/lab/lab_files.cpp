#include "companion/lab/lab_files.h"

#include <algorithm>

#include "companion/host.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

constexpr std::size_t kLargestFile = 256U << 20;

Win32Error win32Error(const std::error_code& error) {
  if (!error) return kDone;
  if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)
    return kPathMissing;
  if (error == std::errc::file_exists) return kAlreadyExists;
  if (error == std::errc::no_space_on_device) return kDiskIsFull;
  return kAccessDenied;
}

}  // namespace

LabFiles::~LabFiles() {
  std::error_code error;
  for (const auto& folder : madeDrives_)
    if (std::filesystem::is_empty(folder, error) && !error) std::filesystem::remove(folder, error);
}

Win32Error LabFiles::connect() {
  if (!settings_.answers) return kNetworkPathMissing;
  const auto refused = settings_.refusals.find("share");
  return refused == settings_.refusals.end() ? kDone : refused->second;
}

std::filesystem::path LabFiles::driveFolder(char letter) const {
  return resolveIgnoringCase(computerFolder_, {std::string(1, letter)});
}

Win32Error LabFiles::provideDrive(char letter) {
  const auto folder = driveFolder(letter);
  std::error_code error;
  if (std::filesystem::is_directory(folder, error)) return kDone;
  if (settings_.drives.find(letter) == std::string::npos) return kShareMissing;
  std::filesystem::create_directory(folder, error);
  return win32Error(error);
}

std::optional<std::filesystem::path> LabFiles::hostPath(const std::string& path) const {
  const auto drivePath = readDrivePath(path);
  if (!drivePath) return std::nullopt;
  return resolveIgnoringCase(driveFolder(drivePath->drive), drivePath->names);
}

std::optional<std::filesystem::path> LabFiles::pathToWrite(const std::string& path) {
  const auto drivePath = readDrivePath(path);
  if (!drivePath) return std::nullopt;
  const auto folder = driveFolder(drivePath->drive);
  std::error_code error;
  const bool present = std::filesystem::is_directory(folder, error);
  if (provideDrive(drivePath->drive) == kDone && !present) madeDrives_.push_back(folder);
  return resolveIgnoringCase(folder, drivePath->names);
}

bool LabFiles::isFolder(const std::string& path) {
  const auto place = hostPath(path);
  std::error_code error;
  return place && std::filesystem::is_directory(*place, error);
}

std::optional<std::string> LabFiles::read(const std::string& path) {
  const auto place = hostPath(path);
  return place ? readWhole(*place, kLargestFile) : std::nullopt;
}

Win32Error LabFiles::write(const std::string& path, std::string_view bytes) {
  const auto place = pathToWrite(path);
  return place ? host::replaceFile(*place, bytes) : kBadPathName;
}

Win32Error LabFiles::remove(const std::string& path) {
  const auto place = hostPath(path);
  if (!place) return kBadPathName;
  std::error_code error;
  if (std::filesystem::is_directory(*place, error)) return kAccessDenied;
  if (std::filesystem::remove(*place, error)) return kDone;
  return error ? win32Error(error) : kFileMissing;
}

Win32Error LabFiles::createFolder(const std::string& path) {
  const auto place = pathToWrite(path);
  if (!place) return kBadPathName;
  std::error_code error;
  if (std::filesystem::create_directory(*place, error)) return kDone;
  return error ? win32Error(error) : kAlreadyExists;
}

Win32Error LabFiles::removeFolder(const std::string& path) {
  const auto place = hostPath(path);
  if (!place) return kBadPathName;
  std::error_code error;
  if (!std::filesystem::is_directory(*place, error)) return kPathMissing;
  // Asked beforehand: the error that a full folder gives has no common name on all hosts.
  if (!std::filesystem::is_empty(*place, error) && !error) return kFolderNotEmpty;
  std::filesystem::remove(*place, error);
  return win32Error(error);
}

std::vector<std::string> LabFiles::names(const std::string& path) {
  std::vector<std::string> names;
  const auto place = hostPath(path);
  if (!place) return names;
  std::error_code error;
  std::filesystem::directory_iterator entries(*place, error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error))
    names.push_back(utf8FromPath(entries->path().filename()));
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace varnhold::companion
