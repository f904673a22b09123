// The service manager of this computer, with a service of the tests.
#include <windows.h>
#include <winsvc.h>

#include <string>

#include "base/text.h"
#include "platform/windows/adapters.h"
#include "platform/windows/text.h"
#include "tests/contract/service_control_contract.h"

namespace varnhold::contract {
namespace {

class WindowsServiceHost {
 public:
  WindowsServiceHost() {
    manager_ = OpenSCManagerW(nullptr, nullptr, SC_MANAGER_ALL_ACCESS);
    const auto name = platform::windows::toWide(service());
    const auto program =
        platform::windows::toWide(environment_->programFolder() + R"(\platform_windows_service.exe)");
    service_ = CreateServiceW(manager_, name.c_str(), name.c_str(), SERVICE_ALL_ACCESS,
                              SERVICE_WIN32_OWN_PROCESS, SERVICE_DEMAND_START, SERVICE_ERROR_IGNORE,
                              (L'"' + program + L'"').c_str(), nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_NE(service_, nullptr) << GetLastError();
  }
  ~WindowsServiceHost() {
    DeleteService(service_);
    CloseServiceHandle(service_);
    CloseServiceHandle(manager_);
  }
  WindowsServiceHost(const WindowsServiceHost&) = delete;
  WindowsServiceHost& operator=(const WindowsServiceHost&) = delete;

  platform::ServiceControl& services() { return *services_; }
  std::string machine() { return R"(\\)" + TrimAtNull(environment_->getComputerName().value_or("")); }
  std::string service() { return "Varnhold Test " + std::to_string(number_); }

 private:
  static inline unsigned made = 0;

  // A name of its own for each: a deleted service stays until its last handle is closed.
  unsigned long number_ = GetCurrentProcessId() * 100 + ++made;
  std::unique_ptr<platform::Environment> environment_ = platform::windows::makeEnvironment();
  std::unique_ptr<platform::ServiceControl> services_ = platform::windows::makeServiceControl();
  SC_HANDLE manager_ = nullptr;
  SC_HANDLE service_ = nullptr;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ServiceControlContract, WindowsServiceHost);

}  // namespace
}  // namespace varnhold::contract
