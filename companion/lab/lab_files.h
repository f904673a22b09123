#pragma once

#include <filesystem>
#include <optional>

#include "companion/lab/host_settings.h"
#include "companion/remote_computer.h"

namespace varnhold::companion {

/// The drives of a lab computer: "C:\folder" is the folder `C/folder` below the computer's.
class LabFiles : public RemoteFiles {
 public:
  /// Both outlive the object.
  LabFiles(const std::filesystem::path& computerFolder, const HostSettings& settings)
      : computerFolder_(computerFolder), settings_(settings) {}
  /// Takes away a drive's folder that was made here and holds nothing.
  ~LabFiles() override;

  [[nodiscard]] Win32Error connect() override;
  [[nodiscard]] bool isFolder(const std::string& path) override;
  [[nodiscard]] std::optional<std::string> read(const std::string& path) override;
  [[nodiscard]] Win32Error write(const std::string& path, std::string_view bytes) override;
  [[nodiscard]] Win32Error remove(const std::string& path) override;
  [[nodiscard]] Win32Error createFolder(const std::string& path) override;
  [[nodiscard]] Win32Error removeFolder(const std::string& path) override;
  [[nodiscard]] std::vector<std::string> names(const std::string& path) override;

  /// Makes the drive's folder where the computer has the drive and its folder is missing; kShareMissing where
  /// it does not have it. The folder stays.
  [[nodiscard]] Win32Error provideDrive(char letter);
  /// Where the path lies on this host; nothing for what is no full path.
  [[nodiscard]] std::optional<std::filesystem::path> hostPath(const std::string& path) const;

 private:
  [[nodiscard]] std::filesystem::path driveFolder(char letter) const;
  /// As `hostPath`, with the drive's folder made for the time of need.
  [[nodiscard]] std::optional<std::filesystem::path> pathToWrite(const std::string& path);

  const std::filesystem::path& computerFolder_;
  const HostSettings& settings_;
  std::vector<std::filesystem::path> madeDrives_;
};

}  // namespace varnhold::companion
