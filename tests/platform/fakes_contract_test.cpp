// The fakes keep the contracts of the ports they stand for.
#include "tests/contract/accounts_contract.h"
#include "tests/contract/clock_contract.h"
#include "tests/contract/closed_libraries_contract.h"
#include "tests/contract/desktop_contract.h"
#include "tests/contract/environment_contract.h"
#include "tests/contract/event_log_contract.h"
#include "tests/contract/files_contract.h"
#include "tests/contract/heap_contract.h"
#include "tests/contract/registry_contract.h"
#include "tests/contract/security_package_contract.h"
#include "tests/contract/threads_contract.h"
#include "tests/fakes/fake_accounts.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_event_log.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_libraries.h"
#include "tests/fakes/fake_registry.h"
#include "tests/fakes/fake_security_package.h"
#include "tests/fakes/fake_small_ports.h"
#include "tests/fakes/fake_threads.h"

namespace varnhold::contract {
namespace {

class FakeRegistryHost {
 public:
  platform::Registry& registry() { return registry_; }
  std::string key() { return R"(SOFTWARE\Kelmont Works\Contract)"; }

 private:
  fakes::Journal journal_;
  fakes::FakeRegistry registry_{journal_};
};

class FakeFilesHost {
 public:
  FakeFilesHost() { files_.makeFolder(folder()); }
  platform::Files& files() { return files_; }
  std::string folder() { return R"(C:\Contract)"; }
  void makeFolder(const std::string& name) { files_.makeFolder(folder() + "\\" + name); }

 private:
  fakes::Journal journal_;
  fakes::FakeFiles files_{journal_};
};

class FakeClockHost {
 public:
  platform::Clock& clock() { return clock_; }
  std::uint64_t elapsedMs() { return clock_.sleptMs; }

 private:
  fakes::Journal journal_;
  fakes::FakeClock clock_{journal_};
};

class FakeEnvironmentHost {
 public:
  platform::Environment& environment() { return environment_; }

 private:
  fakes::Journal journal_;
  fakes::FakeEnvironment environment_{journal_};
};

class FakeThreadsHost {
 public:
  platform::Threads& threads() { return threads_; }
  platform::ThreadHandle startThatEndsWith(std::uint32_t exitCode) { return threads_.start(exitCode, 1); }
  platform::ThreadHandle startThatNeverEnds() { return threads_.start(0, 1'000'000); }

 private:
  fakes::Journal journal_;
  fakes::FakeThreads threads_{journal_};
};

class FakeEventLogHost {
 public:
  FakeEventLogHost() {
    eventLog_.refused[deadServer()] = 1722;
    eventLog_.messages[1722] = "The RPC server is unavailable.\r\n";
    eventLog_.messages[5] = "Access is denied.\r\n";
  }
  platform::EventLog& eventLog() { return eventLog_; }
  std::string server() { return R"(\\HOST1)"; }
  std::string deadServer() { return R"(\\GONE)"; }

 private:
  fakes::Journal journal_;
  fakes::FakeEventLog eventLog_{journal_};
};

class FakeLibrariesHost {
 public:
  FakeLibrariesHost() {
    libraries_.computers["HOST1"] = {
        .address = "10.1.1.11", .resolvedName = "HOST1.corp.example", .systemType = 7, .osMajorVersion = 6};
    libraries_.onJob = [](platform::DeploymentJob& job) { job.SystemName = toUpper(job.SystemName); };
    lacking_.failures.insert({"qrvCInstall", {kLibraryFunctionMissing, "qrvUtil has no qrvCInstall"}});
    missing_.failures.insert({"qrvCInstall", {kFileNotFound, "qrvUtil was not found"}});
  }
  platform::ClosedLibraries& libraries() { return libraries_; }
  platform::ClosedLibraries& lackingLibraries() { return lacking_; }
  platform::ClosedLibraries& missingLibraries() { return missing_; }
  void forgetMode() { libraries_.netAccessMode.reset(); }
  void refuseMode() { libraries_.storesNetAccessMode = false; }
  platform::Threads& threads() { return threads_; }
  void close(platform::ThreadHandle thread) { threads_.closeHandle(thread); }

 private:
  fakes::Journal journal_;
  fakes::FakeThreads threads_{journal_};
  fakes::FakeClosedLibraries libraries_{journal_, threads_}, lacking_{journal_, threads_},
      missing_{journal_, threads_};
};

class FakeDesktopHost {
 public:
  platform::Desktop& desktop() { return desktop_; }
  std::string title() { return "Varnhold"; }
  void openWindow(const std::string& title, bool visible) { desktop_.windows[title].visible = visible; }
  void closeWindow(const std::string& title) { desktop_.windows.erase(title); }
  void startInstance(const std::string& title) { desktop_.otherInstances.insert(title); }
  void endInstance(const std::string& title) { desktop_.otherInstances.erase(title); }

 private:
  fakes::Journal journal_;
  fakes::FakeDesktop desktop_{journal_};
};

class FakeSecurityHost {
 public:
  FakeSecurityHost() { sspi_.passwords[R"(CORP\ADMIN)"] = password(); }
  platform::SecurityPackage& sspi() { return sspi_; }
  std::string domain() { return "Corp"; }
  std::string user() { return "admin"; }
  std::string password() { return "secret"; }

 private:
  fakes::Journal journal_;
  fakes::FakeSecurityPackage sspi_{journal_, "secur32"};
};

class FakeHeapHost {
 public:
  platform::Heap& heap() { return heap_; }

 private:
  fakes::Journal journal_;
  fakes::FakeHeap heap_{journal_};
};

class FakeAccountsHost {
 public:
  FakeAccountsHost() { accounts_.accounts[R"(CORP\SVC)"] = {{1, 1, 0, 0, 0, 0, 0, 5, 18, 0, 0, 0}, "CORP"}; }
  platform::Accounts& accounts() { return accounts_; }
  std::string account() { return R"(Corp\svc)"; }

 private:
  fakes::Journal journal_;
  fakes::FakeAccounts accounts_{journal_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SecurityPackageContract, FakeSecurityHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, HeapContract, FakeHeapHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AccountsContract, FakeAccountsHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, RegistryContract, FakeRegistryHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, FilesContract, FakeFilesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ClockContract, FakeClockHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, EnvironmentContract, FakeEnvironmentHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ThreadsContract, FakeThreadsHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, EventLogContract, FakeEventLogHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ClosedLibrariesContract, FakeLibrariesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, DesktopContract, FakeDesktopHost);

}  // namespace
}  // namespace varnhold::contract
