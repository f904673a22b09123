#include "platform/host_adapters.h"

#include <windows.h>

#include "platform/windows/adapters.h"

namespace varnhold::platform {
namespace windows {
namespace {

class WindowsAdapters : public HostAdapters {
 public:
  Registry& registry() override { return *registry_; }
  ServiceControl& services() override { return *services_; }
  EventLog& eventLog() override { return *eventLog_; }
  Files& files() override { return *files_; }
  Processes& processes() override { return *processes_; }
  Threads& threads() override { return *threads_; }
  Clock& clock() override { return *clock_; }
  Environment& environment() override { return *environment_; }
  ClosedLibraries& libraries() override { return *libraries_; }
  Desktop& desktop() override { return *desktop_; }
  Accounts& accounts() override { return *accounts_; }
  SecurityPackage& security() override { return *security_; }
  SecurityPackage& secur32() override { return *secur32_; }
  Heap& heap() override { return *heap_; }
  Ui& unattendedUi() override { return *unattendedUi_; }

 private:
  std::unique_ptr<Registry> registry_ = makeRegistry();
  std::unique_ptr<ServiceControl> services_ = makeServiceControl();
  std::unique_ptr<EventLog> eventLog_ = makeEventLog();
  std::unique_ptr<Files> files_ = makeFiles();
  std::unique_ptr<Processes> processes_ = makeProcesses();
  std::unique_ptr<Threads> threads_ = makeThreads();
  std::unique_ptr<Clock> clock_ = makeClock();
  std::unique_ptr<Environment> environment_ = makeEnvironment();
  std::unique_ptr<ClosedLibraries> libraries_ = makeClosedLibraries(environment_->programFolder());
  std::unique_ptr<Desktop> desktop_ = makeDesktop();
  std::unique_ptr<Accounts> accounts_ = makeAccounts();
  std::unique_ptr<SecurityPackage> security_ = makeSecurityPackage("security");
  std::unique_ptr<SecurityPackage> secur32_ = makeSecurityPackage("secur32");
  std::unique_ptr<Heap> heap_ = makeHeap();
  std::unique_ptr<Ui> unattendedUi_ = makeUnattendedUi();
};

}  // namespace
}  // namespace windows

std::unique_ptr<HostAdapters> makeHostAdapters(const ProcessStart& /*start*/) {
  // Without these Windows asks a person about a damaged library or an empty drive, and waits.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
  return std::make_unique<windows::WindowsAdapters>();
}

}  // namespace varnhold::platform
