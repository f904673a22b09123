#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace varnhold::platform {

using ServiceHandle = std::uintptr_t;  ///< SC_HANDLE; 0 is none

inline constexpr std::uint32_t kServiceAllAccess = 0xF01FF;         ///< winsvc.h SERVICE_ALL_ACCESS
inline constexpr std::uint32_t kServiceControlStop = 1;             ///< winsvc.h SERVICE_CONTROL_STOP
inline constexpr std::uint32_t kServiceWin32OwnProcess = 16;        ///< winnt.h SERVICE_WIN32_OWN_PROCESS
inline constexpr std::uint32_t kServiceNoChange = 0xFFFFFFFF;       ///< winsvc.h SERVICE_NO_CHANGE
inline constexpr std::uint32_t kErrorInvalidServiceAccount = 1057;  ///< winerror.h
inline constexpr std::uint32_t kErrorServiceAlreadyRunning = 1056;  ///< winerror.h

/// What is used of QUERY_SERVICE_CONFIG.
struct ServiceConfig {
  std::optional<std::string> serviceStartName;  ///< the account; nothing where the host tells none
};

/// The service control manager of a computer, call by call as winsvc.h has it. Main thread.
class ServiceControl {
 public:
  virtual ~ServiceControl() = default;

  /// OpenSCManager on `machine` (`\\NAME`) with all access; 0 when it fails.
  [[nodiscard]] virtual ServiceHandle openSCManager(const std::string& machine) = 0;
  /// OpenService; 0 when it fails.
  [[nodiscard]] virtual ServiceHandle openService(ServiceHandle manager, const std::string& service,
                                                  std::uint32_t access) = 0;
  /// ControlService; 0 when done, else the error's number.
  virtual std::uint32_t controlService(ServiceHandle service, std::uint32_t control) = 0;
  /// StartService without arguments; 0 when done, else the error's number.
  [[nodiscard]] virtual std::uint32_t startService(ServiceHandle service) = 0;
  /// QueryServiceConfig into the caller's `buffer` of `size` bytes; false when it fails, for want of room
  /// too. `bytesNeeded` is then the room that is needed, or 0. The config is read out of the buffer.
  [[nodiscard]] virtual bool queryServiceConfig(ServiceHandle service, std::uint8_t* buffer,
                                                std::uint32_t size, std::uint32_t& bytesNeeded,
                                                ServiceConfig& config) = 0;
  /// ChangeServiceConfig, with nothing changed but what is given; 0 when done, else the error's number.
  [[nodiscard]] virtual std::uint32_t changeServiceConfig(ServiceHandle service, std::uint32_t serviceType,
                                                          std::uint32_t startType, std::uint32_t errorControl,
                                                          const std::string& account,
                                                          const std::string& password) = 0;
  /// CloseServiceHandle.
  virtual void closeServiceHandle(ServiceHandle handle) = 0;
};

/// Owns a handle of a `ServiceControl` and closes it.
class OwnedServiceHandle {
 public:
  OwnedServiceHandle(ServiceControl& services, ServiceHandle handle) : services_(services), handle_(handle) {}
  ~OwnedServiceHandle() {
    if (handle_ != 0) services_.closeServiceHandle(handle_);
  }
  OwnedServiceHandle(const OwnedServiceHandle&) = delete;
  OwnedServiceHandle& operator=(const OwnedServiceHandle&) = delete;

  explicit operator bool() const { return handle_ != 0; }
  [[nodiscard]] ServiceHandle get() const { return handle_; }
  /// Nobody closes the handle from now on.
  void leaveOpen() { handle_ = 0; }

 private:
  ServiceControl& services_;
  ServiceHandle handle_;
};

}  // namespace varnhold::platform
