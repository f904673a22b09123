#pragma once

#include <filesystem>
#include <optional>

#include "companion/lab/host_settings.h"
#include "companion/remote_computer.h"

namespace varnhold::companion {

/// The computers of the lab: one folder for each, named after it, that holds a `host.ini`.
class LabNetwork : public Network {
 public:
  /// `folder` is the lab's, which need not exist; an empty path is a network without computers.
  explicit LabNetwork(std::filesystem::path folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::unique_ptr<RemoteComputer> find(std::string_view nameOrAddress) const override;
  [[nodiscard]] JobScript script(std::string_view nameOrAddress, std::string_view job) const override;
  [[nodiscard]] std::vector<std::string> names() const override;

  /// The path on this host behind `\\HOST\C$\folder\file`; the drive's own folder is made where it is
  /// missing.
  [[nodiscard]] Win32Error sharePath(const std::string& uncPath, std::filesystem::path& place) const;

 private:
  struct Host {
    std::filesystem::path folder;
    HostSettings settings;
  };
  [[nodiscard]] std::optional<Host> findHost(std::string_view nameOrAddress) const;
  [[nodiscard]] std::optional<Host> findByAddress(const std::string& address) const;
  [[nodiscard]] static std::optional<Host> readHost(const std::filesystem::path& folder);

  std::filesystem::path folder_;
};

/// The name of a computer as it was meant: without leading backslashes and surrounding blanks.
[[nodiscard]] std::string plainComputerName(std::string_view name);

/// Writes what in the computer's `host.ini` cannot be used into `host.ini.problems` beside it, one sentence a
/// line, and removes that file when there is nothing to say.
void reportProblems(const std::filesystem::path& computerFolder, const std::vector<std::string>& problems);

}  // namespace varnhold::companion
