#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "platform/service_control.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// Service managers in memory. Journal lines: `OpenSCManager \\NAME -> 1`, `OpenService 1 Spooler 0xF01FF ->
/// 2`, `ControlService 2 1 -> 0`, `StartService 2 -> 0`, `CloseServiceHandle 2`,
/// `QueryServiceConfig 2 room 0 -> 0`, `ChangeServiceConfig 2 16 -1 -1 CORP\svc -> 0`. A password is in none.
class FakeServiceControl : public platform::ServiceControl {
 public:
  explicit FakeServiceControl(Journal& journal) : journal_(journal) {}

  std::set<std::string> services;     ///< names of the services that every machine has
  std::set<std::string> unreachable;  ///< machines (`\\NAME`) whose manager cannot be opened
  std::uint32_t controlError = 0, startError = 0;
  std::optional<std::string> startName = "LocalSystem";  ///< the account of every service
  std::uint32_t configSize = 300;                        ///< the room that its configuration takes
  bool tellsConfig = true;                               ///< false: it cannot be queried into any room
  std::uint32_t changeError = 0;                         ///< of changing it
  std::string password;                                  ///< the one that was last set

  /// Handles that were opened and not closed.
  [[nodiscard]] const std::set<platform::ServiceHandle>& openHandles() const { return openHandles_; }

  platform::ServiceHandle openSCManager(const std::string& machine) override;
  platform::ServiceHandle openService(platform::ServiceHandle manager, const std::string& service,
                                      std::uint32_t access) override;
  std::uint32_t controlService(platform::ServiceHandle service, std::uint32_t control) override;
  std::uint32_t startService(platform::ServiceHandle service) override;
  bool queryServiceConfig(platform::ServiceHandle service, std::uint8_t* buffer, std::uint32_t size,
                          std::uint32_t& bytesNeeded, platform::ServiceConfig& config) override;
  std::uint32_t changeServiceConfig(platform::ServiceHandle service, std::uint32_t serviceType,
                                    std::uint32_t startType, std::uint32_t errorControl,
                                    const std::string& account, const std::string& newPassword) override;
  void closeServiceHandle(platform::ServiceHandle handle) override;

 private:
  platform::ServiceHandle open(bool allowed);

  Journal& journal_;
  platform::ServiceHandle last_ = 0;
  std::set<platform::ServiceHandle> openHandles_;
};

}  // namespace varnhold::fakes
