#include "platform/host_adapters.h"

#include <cstdlib>

#include "platform/posix/adapters.h"
#include "platform/posix/home.h"

namespace varnhold::platform {
namespace {

std::vector<std::string> argumentsOf(const ProcessStart& start) {
  std::vector<std::string> arguments;
  for (int i = 1; i < start.argc; ++i) arguments.emplace_back(start.argv[i]);
  return arguments;
}

class PosixHostAdapters : public HostAdapters {
 public:
  PosixHostAdapters(const std::string& home, std::vector<std::string> arguments, std::string userFile)
      : companion_(posix::companionFolders(home)),
        logonControl_(posix::companionFolders(home), posix::kLogonControlFile),
        environment_(posix::makeEnvironment(home, std::move(arguments), paths_)),
        registry_(posix::makeRegistry(home)),
        desktop_(posix::makeDesktop(home)),
        security_(posix::makeSecurityPackage(std::move(userFile))) {}

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
  SecurityPackage& secur32() override { return *security_; }
  Heap& heap() override { return *heap_; }
  Ui& unattendedUi() override { return *ui_; }

 private:
  posix::CompanionLibrary companion_, logonControl_;
  posix::PathResolver paths_{companion_};
  std::unique_ptr<Environment> environment_;
  std::unique_ptr<Registry> registry_;
  std::unique_ptr<Desktop> desktop_;
  std::unique_ptr<SecurityPackage> security_;
  std::unique_ptr<Files> files_ = posix::makeFiles(paths_);
  std::unique_ptr<Processes> processes_ = posix::makeProcesses(*files_, paths_, companion_);
  std::unique_ptr<ServiceControl> services_ = posix::makeServiceControl(companion_);
  std::unique_ptr<EventLog> eventLog_ = posix::makeEventLog(companion_);
  std::unique_ptr<Threads> threads_ = posix::makeThreads(companion_);
  std::unique_ptr<Clock> clock_ = posix::makeClock();
  std::unique_ptr<ClosedLibraries> libraries_ = posix::makeClosedLibraries(companion_, logonControl_);
  std::unique_ptr<Accounts> accounts_ = posix::makeAccounts(companion_);
  std::unique_ptr<Heap> heap_ = posix::makeHeap();
  std::unique_ptr<Ui> ui_ = posix::makeUnattendedUi();
};

}  // namespace

std::unique_ptr<HostAdapters> makeHostAdapters(const ProcessStart& start) {
  const auto home = posix::homeFolder(start.home);
  // The companion finds its home by itself, and ODBC its data sources.
  if (start.home) ::setenv("VARNHOLD_HOME", home.c_str(), 1);
  ::setenv("ODBCINI", (home + "/odbc.ini").c_str(), 0);
  // The NTLM mechanism knows its accounts by this name only.
  ::setenv("NTLM_USER_FILE", (home + "/ntlm-users").c_str(), start.home ? 1 : 0);
  return std::make_unique<PosixHostAdapters>(home, argumentsOf(start), ::getenv("NTLM_USER_FILE"));
}

}  // namespace varnhold::platform
