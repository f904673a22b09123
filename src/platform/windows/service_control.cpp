#include "platform/service_control.h"

#include <windows.h>
#include <winsvc.h>

#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

static_assert(kServiceAllAccess == SERVICE_ALL_ACCESS);
static_assert(kServiceControlStop == SERVICE_CONTROL_STOP);
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
  void closeServiceHandle(ServiceHandle handle) override { CloseServiceHandle(native(handle)); }
};

}  // namespace

std::unique_ptr<ServiceControl> makeServiceControl() {
  return std::make_unique<WindowsServiceControl>();
}

}  // namespace varnhold::platform::windows
