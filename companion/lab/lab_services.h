#pragma once

#include <filesystem>
#include <functional>

#include "companion/ini_text.h"
#include "companion/lab/host_settings.h"
#include "companion/remote_computer.h"

namespace varnhold::companion {

/// The services of a lab computer: `services.ini`, one section per service with the keys path, account, state
/// (stopped, running), start (automatic, manual, disabled), description, security (configured) and interact
/// (yes). The file goes away with its last line.
class LabServices : public RemoteServices {
 public:
  /// Both outlive the object.
  LabServices(const std::filesystem::path& computerFolder, const HostSettings& settings)
      : computerFolder_(computerFolder), settings_(settings) {}

  /// kServerUnavailable when the computer does not answer, kServiceDatabaseMissing when the file is there but
  /// is no text of reasonable size.
  [[nodiscard]] Win32Error open() override;
  [[nodiscard]] Win32Error query(const std::string& name, ServiceEntry& entry) override;
  [[nodiscard]] Win32Error create(const ServiceEntry& entry) override;
  [[nodiscard]] Win32Error change(const ServiceEntry& entry, const std::string& password) override;
  [[nodiscard]] Win32Error secure(const std::string& name) override;
  [[nodiscard]] Win32Error start(const std::string& name) override;
  [[nodiscard]] Win32Error stop(const std::string& name) override;
  [[nodiscard]] Win32Error remove(const std::string& name) override;

 private:
  [[nodiscard]] std::optional<IniText> load() const;
  /// Loads, changes and saves the file under its lock; what `change` returns, unless that fails.
  [[nodiscard]] Win32Error edit(const std::function<Win32Error(IniText&)>& change) const;

  const std::filesystem::path& computerFolder_;
  const HostSettings& settings_;
};

}  // namespace varnhold::companion
