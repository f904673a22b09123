#include "platform/service_control.h"

#include <windows.h>
#include <winsvc.h>

#include "base/secret.h"
#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

static_assert(kServiceAllAccess == SERVICE_ALL_ACCESS);
static_assert(kServiceControlStop == SERVICE_CONTROL_STOP);
static_assert(kServiceWin32OwnProcess == SERVICE_WIN32_OWN_PROCESS);
static_assert(kServiceNoChange == SERVICE_NO_CHANGE);
static_assert(kErrorInvalidServiceAccount == ERROR_INVALID_SERVICE_ACCOUNT);
static_assert(kErrorServiceAlreadyRunning == ERROR_SERVICE_ALREADY_RUNNING);

SC_HANDLE native(ServiceHandle handle) {
  return reinterpret_cast<SC_HANDLE>(handle);  // NOLINT(performance-no-int-to-ptr)
}

ServiceHandle handleOf(SC_HANDLE handle) {
  return reinterpret_cast<ServiceHandle>(handle);
}

class WindowsServiceControl : public ServiceControl {
 public:
  ServiceHandle openSCManager(const std::string& machine) override {
    return handleOf(OpenSCManagerW(toWide(machine).c_str(), nullptr, SC_MANAGER_ALL_ACCESS));
  }
  ServiceHandle openService(ServiceHandle manager, const std::string& service,
                            std::uint32_t access) override {
    return handleOf(OpenServiceW(native(manager), toWide(service).c_str(), access));
  }
  std::uint32_t controlService(ServiceHandle service, std::uint32_t control) override {
    SERVICE_STATUS status{};
    return ControlService(native(service), control, &status) ? ERROR_SUCCESS : GetLastError();
  }
  std::uint32_t startService(ServiceHandle service) override {
    return StartServiceW(native(service), 0, nullptr) ? ERROR_SUCCESS : GetLastError();
  }
  bool queryServiceConfig(ServiceHandle service, std::uint8_t* buffer, std::uint32_t size,
                          std::uint32_t& bytesNeeded, ServiceConfig& config) override {
    auto* const record = reinterpret_cast<QUERY_SERVICE_CONFIGW*>(buffer);
    DWORD needed = 0;
    const bool done = QueryServiceConfigW(native(service), record, size, &needed) != FALSE;
    bytesNeeded = needed;
    if (done && record->lpServiceStartName != nullptr)
      config.serviceStartName = fromWide(record->lpServiceStartName);
    return done;
  }
  std::uint32_t changeServiceConfig(ServiceHandle service, std::uint32_t serviceType, std::uint32_t startType,
                                    std::uint32_t errorControl, const std::string& account,
                                    const std::string& password) override {
    auto widePassword = toWide(password);
    const WipedAtEnd wiped(widePassword);
    const bool done =
        ChangeServiceConfigW(native(service), serviceType, startType, errorControl, nullptr, nullptr, nullptr,
                             nullptr, toWide(account).c_str(), widePassword.c_str(), nullptr) != FALSE;
    return done ? ERROR_SUCCESS : GetLastError();
  }
  void closeServiceHandle(ServiceHandle handle) override { CloseServiceHandle(native(handle)); }
};

}  // namespace

std::unique_ptr<ServiceControl> makeServiceControl() {
  return std::make_unique<WindowsServiceControl>();
}

}  // namespace varnhold::platform::windows
