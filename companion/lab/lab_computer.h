#pragma once

#include <filesystem>
#include <map>

#include "companion/lab/host_settings.h"
#include "companion/lab/lab_files.h"
#include "companion/lab/lab_registry.h"
#include "companion/lab/lab_services.h"
#include "companion/remote_computer.h"

namespace varnhold::companion {

/// A computer of the lab: a folder that holds `host.ini`, `services.ini`, `registry.reg`, `rights.ini` and
/// one folder per drive.
class LabComputer : public RemoteComputer {
 public:
  LabComputer(const std::filesystem::path& folder, HostSettings settings);

  [[nodiscard]] const ComputerFacts& facts() const override { return settings_.facts; }
  [[nodiscard]] bool answers() const override { return settings_.answers; }
  LabFiles& files() override { return files_; }
  LabServices& services() override { return services_; }
  LabRegistry& registry() override { return registry_; }
  [[nodiscard]] Win32Error openEventLog(std::string_view log) override;
  [[nodiscard]] Win32Error logOn(const std::string& account, const std::string& password) override;
  [[nodiscard]] Win32Error connectAgent() override;
  [[nodiscard]] Win32Error grantServiceLogon(const std::string& sid) override;
  [[nodiscard]] std::unique_ptr<Hold> beginJob() override;
  [[nodiscard]] Win32Error refusal(std::string_view step) const override;

 private:
  std::filesystem::path folder_;
  HostSettings settings_;
  LabFiles files_;
  LabServices services_;
  LabRegistry registry_;
};

}  // namespace varnhold::companion
