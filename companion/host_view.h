#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "companion/remote_computer.h"

/// A computer's services, event logs and shares as the console sees them from afar; results are Win32 error
/// numbers. `machine` is `\\NAME`.
namespace varnhold::companion {

[[nodiscard]] Win32Error openServiceManager(const Network& network, const std::string& machine);
[[nodiscard]] Win32Error openService(const Network& network, const std::string& machine,
                                     const std::string& service);
/// Control 1 stops the service; any other is kInvalidControl.
[[nodiscard]] Win32Error controlService(const Network& network, const std::string& machine,
                                        const std::string& service, std::uint32_t control);
[[nodiscard]] Win32Error startService(const Network& network, const std::string& machine,
                                      const std::string& service);
/// QueryServiceConfig: the account that the service logs on with.
[[nodiscard]] Win32Error queryServiceAccount(const Network& network, const std::string& machine,
                                             const std::string& service, std::string& account);
/// ChangeServiceConfig: an empty account leaves the service as it is. kInvalidAccount for an account that is
/// neither LocalSystem nor of the form "DOMAIN\user", and for one that the computer does not let in.
[[nodiscard]] Win32Error changeServiceAccount(const Network& network, const std::string& machine,
                                              const std::string& service, const std::string& account,
                                              const std::string& password);
/// Stops the service when it runs, and starts it.
[[nodiscard]] Win32Error restartService(const Network& network, const std::string& machine,
                                        const std::string& service);
[[nodiscard]] Win32Error openEventLog(const Network& network, const std::string& machine,
                                      const std::string& log);

/// The administrative shares that this process is connected to. Any thread.
class ShareConnections {
 public:
  [[nodiscard]] Win32Error connect(const Network& network, const std::string& share,
                                   const std::string& account, const std::string& password);
  /// kNotConnected for a share that was not connected.
  [[nodiscard]] Win32Error disconnect(const std::string& share);
  /// Is a share of the computer connected?
  [[nodiscard]] bool isConnected(const Network& network, const std::string& nameOrAddress);

 private:
  std::mutex mutex_;
  std::map<std::string, std::string> connected_;  ///< share in upper case, computer
};

/// Those of this process. Never destroyed.
[[nodiscard]] ShareConnections& ownShareConnections();

/// The path on the computer, "C:\folder\file", behind `\\HOST\C$\folder\file`, and the host; nothing for
/// other paths.
struct AdminSharePath {
  std::string host, path;
};
[[nodiscard]] std::optional<AdminSharePath> readAdminSharePath(const std::string& uncPath);

}  // namespace varnhold::companion
