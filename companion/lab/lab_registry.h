#pragma once

#include <filesystem>
#include <functional>

#include "companion/lab/host_settings.h"
#include "companion/remote_computer.h"
#include "platform/formats/registry_file.h"

namespace varnhold::companion {

/// The registry of a lab computer: `registry.reg`, in the text form that the registry editor exports and
/// imports. The file goes away with its last line.
class LabRegistry : public RemoteRegistry {
 public:
  /// Both outlive the object.
  LabRegistry(const std::filesystem::path& computerFolder, const HostSettings& settings)
      : computerFolder_(computerFolder), settings_(settings) {}

  /// kNetworkPathMissing when the computer does not answer, kRegistryDamaged when the file cannot be
  /// understood.
  [[nodiscard]] Win32Error open() override;
  [[nodiscard]] bool hasKey(const std::string& key) override;
  [[nodiscard]] std::vector<NamedValue> values(const std::string& key) override;
  [[nodiscard]] std::vector<std::string> subkeys(const std::string& key) override;
  [[nodiscard]] Win32Error createKey(const std::string& key) override;
  [[nodiscard]] Win32Error set(const std::string& key, const NamedValue& value) override;
  [[nodiscard]] Win32Error removeValue(const std::string& key, const std::string& name) override;
  [[nodiscard]] Win32Error removeKey(const std::string& key) override;

 private:
  [[nodiscard]] std::optional<platform::RegistryFile> load() const;
  /// Loads, changes and saves the file under its lock; what `change` returns, unless that fails.
  [[nodiscard]] Win32Error edit(const std::function<Win32Error(platform::RegistryFile&)>& change) const;

  const std::filesystem::path& computerFolder_;
  const HostSettings& settings_;
};

}  // namespace varnhold::companion
