// The adapters of this host keep the contracts of their ports.
#include <filesystem>

#include "platform/posix/adapters.h"
#include "tests/contract/clock_contract.h"
#include "tests/contract/closed_libraries_contract.h"
#include "tests/contract/environment_contract.h"
#include "tests/contract/event_log_contract.h"
#include "tests/contract/files_contract.h"
#include "tests/contract/processes_contract.h"
#include "tests/contract/registry_contract.h"
#include "tests/contract/service_control_contract.h"
#include "tests/contract/threads_contract.h"
#include "tests/platform/posix/standin.h"
#include "tests/platform/posix/standin_library.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::contract {
namespace {

namespace posix = platform::posix;

class PosixRegistryHost {
 public:
  platform::Registry& registry() { return *registry_; }
  std::string key() { return R"(SOFTWARE\Kelmont Works\Contract)"; }

 private:
  posix::TemporaryFolder home_;
  std::unique_ptr<platform::Registry> registry_ = posix::makeRegistry(home_.path());
};

/// What the adapters that name files stand on.
struct Disk {
  posix::TemporaryFolder folder;
  std::unique_ptr<posix::CompanionLibrary> standin = posix::makeStandin();
  posix::PathResolver paths{*standin};
  std::unique_ptr<platform::Files> files = posix::makeFiles(paths);
};

class PosixFilesHost {
 public:
  platform::Files& files() { return *disk_.files; }
  std::string folder() { return disk_.folder.path(); }
  void makeFolder(const std::string& name) { std::filesystem::create_directory(disk_.folder / name); }

 private:
  Disk disk_;
};

class PosixShareHost {
 public:
  PosixShareHost() { posix::setStandinShare(*disk_.standin, disk_.folder.path()); }
  platform::Files& files() { return *disk_.files; }
  std::string folder() { return R"(\\host1\c$)"; }
  void makeFolder(const std::string& name) { std::filesystem::create_directory(disk_.folder / name); }

 private:
  Disk disk_;
};

class PosixClockHost {
 public:
  platform::Clock& clock() { return *clock_; }
  std::uint64_t elapsedMs() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::round<std::chrono::milliseconds>(now).count());
  }

 private:
  std::unique_ptr<platform::Clock> clock_ = posix::makeClock();
};

class PosixEnvironmentHost {
 public:
  platform::Environment& environment() { return *environment_; }

 private:
  Disk disk_;
  std::unique_ptr<platform::Environment> environment_ =
      posix::makeEnvironment(disk_.folder.path(), {}, disk_.paths);
};

class PosixProcessesHost {
 public:
  platform::Processes& processes() { return *processes_; }
  std::string batchFile(const std::string& content) {
    posix::writeFile(disk_.folder / "RmTempLog.bat", content);
    return disk_.folder.path() + "\\RmTempLog.bat";
  }

 private:
  Disk disk_;
  std::unique_ptr<platform::Processes> processes_ =
      posix::makeProcesses(*disk_.files, disk_.paths, *disk_.standin);
};

class PosixThreadsHost {
 public:
  platform::Threads& threads() { return *threads_; }
  platform::ThreadHandle startThatEndsWith(std::uint32_t exitCode) {
    const auto start = standin_->function<decltype(standinStartThread)>("standinStartThread");
    return reinterpret_cast<platform::ThreadHandle>(start(exitCode));
  }
  platform::ThreadHandle startThatNeverEnds() { return startThatEndsWith(platform::kStillActive); }

 private:
  std::unique_ptr<posix::CompanionLibrary> standin_ = posix::makeStandin();
  std::unique_ptr<platform::Threads> threads_ = posix::makeThreads(*standin_);
};

class PosixServicesHost {
 public:
  platform::ServiceControl& services() { return *services_; }
  std::string machine() { return R"(\\HOST1)"; }
  std::string service() { return "Varnhold Agent"; }

 private:
  std::unique_ptr<posix::CompanionLibrary> standin_ = posix::makeStandin();
  std::unique_ptr<platform::ServiceControl> services_ = posix::makeServiceControl(*standin_);
};

class PosixEventLogHost {
 public:
  platform::EventLog& eventLog() { return *eventLog_; }
  std::string server() { return R"(\\HOST1)"; }
  std::string deadServer() { return R"(\\GONE)"; }

 private:
  std::unique_ptr<posix::CompanionLibrary> standin_ = posix::makeStandin();
  std::unique_ptr<platform::EventLog> eventLog_ = posix::makeEventLog(*standin_);
};

class PosixLibrariesHost {
 public:
  platform::ClosedLibraries& libraries() { return *libraries_; }
  platform::ClosedLibraries& lackingLibraries() { return *lackingLibraries_; }
  platform::ClosedLibraries& missingLibraries() { return *missingLibraries_; }
  void close(platform::ThreadHandle thread) { posix::makeThreads(*standin_)->closeHandle(thread); }

 private:
  std::unique_ptr<posix::CompanionLibrary> standin_ = posix::makeStandin(),
                                           lacking_ = posix::makeLackingStandin(),
                                           missing_ = posix::makeMissingStandin();
  std::unique_ptr<platform::ClosedLibraries> libraries_ = posix::makeClosedLibraries(*standin_),
                                             lackingLibraries_ = posix::makeClosedLibraries(*lacking_),
                                             missingLibraries_ = posix::makeClosedLibraries(*missing_);
};

INSTANTIATE_TYPED_TEST_SUITE_P(Posix, RegistryContract, PosixRegistryHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, FilesContract, PosixFilesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(PosixShare, FilesContract, PosixShareHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ClockContract, PosixClockHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, EnvironmentContract, PosixEnvironmentHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ProcessesContract, PosixProcessesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ThreadsContract, PosixThreadsHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ServiceControlContract, PosixServicesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, EventLogContract, PosixEventLogHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ClosedLibrariesContract, PosixLibrariesHost);

}  // namespace
}  // namespace varnhold::contract
