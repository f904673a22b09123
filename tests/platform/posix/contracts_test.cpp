// The adapters of this host keep the contracts of their ports.
#include <atomic>
#include <chrono>
#include <filesystem>
#include <map>
#include <thread>

#include "platform/posix/adapters.h"
#include "tests/contract/clock_contract.h"
#include "tests/contract/closed_libraries_contract.h"
#include "tests/contract/desktop_contract.h"
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
  void forgetMode() { standin_->function<decltype(standinReset)>("standinReset")(); }
  void refuseMode() {}  // it refuses this one always
  platform::Threads& threads() { return *threads_; }
  void close(platform::ThreadHandle thread) { threads_->closeHandle(thread); }

 private:
  std::unique_ptr<posix::CompanionLibrary> standin_ = posix::makeStandin(),
                                           lacking_ = posix::makeLackingStandin(),
                                           missing_ = posix::makeMissingStandin();
  std::unique_ptr<platform::Threads> threads_ = posix::makeThreads(*standin_);
  std::unique_ptr<platform::ClosedLibraries> libraries_ = posix::makeClosedLibraries(*standin_, *standin_),
                                             lackingLibraries_ =
                                                 posix::makeClosedLibraries(*lacking_, *lacking_),
                                             missingLibraries_ =
                                                 posix::makeClosedLibraries(*missing_, *missing_);
};

/// A program with one window, which asks a few times a second what others want of it.
class WindowOwner {
 public:
  WindowOwner(const std::string& home, const std::string& title, bool visible)
      : desktop_(posix::makeDesktop(home)), visible_(visible) {
    desktop_->announceWindow(title,
                             [this](std::optional<platform::ShowState>) { return visible_.exchange(true); });
    loop_ = std::jthread([this](const std::stop_token& stop) {
      for (; !stop.stop_requested(); std::this_thread::sleep_for(std::chrono::milliseconds(2)))
        desktop_->answerRequests();
    });
  }

 private:
  std::unique_ptr<platform::Desktop> desktop_;
  std::atomic<bool> visible_;
  std::jthread loop_;
};

class PosixDesktopHost {
 public:
  platform::Desktop& desktop() { return *desktop_; }
  std::string title() { return "Varnhold / Window?"; }
  void openWindow(const std::string& title, bool visible) {
    windows_[title] = std::make_unique<WindowOwner>(home_.path(), title, visible);
  }
  void closeWindow(const std::string& title) { windows_.erase(title); }
  void startInstance(const std::string& title) {
    instances_[title] = posix::makeDesktop(home_.path());
    static_cast<void>(instances_[title]->isPreviousInstanceRunning(title));
  }
  void endInstance(const std::string& title) { instances_.erase(title); }

 private:
  posix::TemporaryFolder home_;
  std::unique_ptr<platform::Desktop> desktop_ = posix::makeDesktop(home_.path());
  std::map<std::string, std::unique_ptr<WindowOwner>> windows_;
  std::map<std::string, std::unique_ptr<platform::Desktop>> instances_;
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
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, DesktopContract, PosixDesktopHost);

}  // namespace
}  // namespace varnhold::contract
