#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace varnhold::platform {

using ServiceHandle = std::uintptr_t;  ///< SC_HANDLE; 0 is none

inline constexpr std::uint32_t kServiceAllAccess = 0xF01FF;         ///< winsvc.h SERVICE_ALL_ACCESS
inline constexpr std::uint32_t kServiceControlStop = 1;             ///< winsvc.h SERVICE_CONTROL_STOP
inline constexpr std::uint32_t kErrorServiceAlreadyRunning = 1056;  ///< winerror.h

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

 private:
  ServiceControl& services_;
  ServiceHandle handle_;
};

}  // namespace varnhold::platform
