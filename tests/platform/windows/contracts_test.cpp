// The Win32 adapters keep the contracts of their ports.
#include <windows.h>

#include <filesystem>
#include <string>

#include "platform/windows/adapters.h"
#include "platform/windows/owned_handle.h"
#include "platform/windows/text.h"
#include "tests/contract/clock_contract.h"
#include "tests/contract/closed_libraries_contract.h"
#include "tests/contract/environment_contract.h"
#include "tests/contract/event_log_contract.h"
#include "tests/contract/files_contract.h"
#include "tests/contract/processes_contract.h"
#include "tests/contract/registry_contract.h"
#include "tests/contract/threads_contract.h"
#include "tests/platform/windows/temporary_folder.h"

namespace varnhold::contract {
namespace {

class WindowsRegistryHost {
 public:
  WindowsRegistryHost() { clear(); }
  ~WindowsRegistryHost() { clear(); }
  WindowsRegistryHost(const WindowsRegistryHost&) = delete;
  WindowsRegistryHost& operator=(const WindowsRegistryHost&) = delete;

  platform::Registry& registry() { return *registry_; }
  std::string key() { return R"(SOFTWARE\VarnholdContract)" + std::to_string(GetCurrentProcessId()); }

 private:
  void clear() { RegDeleteTreeW(HKEY_LOCAL_MACHINE, platform::windows::toWide(key()).c_str()); }

  std::unique_ptr<platform::Registry> registry_ = platform::windows::makeRegistry();
};

class WindowsFilesHost {
 public:
  platform::Files& files() { return *files_; }
  std::string folder() { return folder_.path(); }
  void makeFolder(const std::string& name) {
    std::filesystem::create_directory(platform::windows::toWide(folder_ / name));
  }

 private:
  platform::windows::TemporaryFolder folder_;
  std::unique_ptr<platform::Files> files_ = platform::windows::makeFiles();
};

class WindowsClockHost {
 public:
  platform::Clock& clock() { return *clock_; }
  std::uint64_t elapsedMs() {
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::round<milliseconds>(now).count());
  }

 private:
  std::unique_ptr<platform::Clock> clock_ = platform::windows::makeClock();
};

class WindowsEnvironmentHost {
 public:
  platform::Environment& environment() { return *environment_; }

 private:
  std::unique_ptr<platform::Environment> environment_ = platform::windows::makeEnvironment();
};

class WindowsEventLogHost {
 public:
  platform::EventLog& eventLog() { return *eventLog_; }
  std::string server() { return ""; }
  std::string deadServer() { return R"(\\no-such-host.invalid)"; }

 private:
  std::unique_ptr<platform::EventLog> eventLog_ = platform::windows::makeEventLog();
};

/// Threads as a closed library starts them.
class WindowsThreadsHost {
 public:
  ~WindowsThreadsHost() { SetEvent(end_.get()); }

  platform::Threads& threads() { return *threads_; }
  platform::ThreadHandle startThatEndsWith(std::uint32_t exitCode) {
    const auto body = [](void* code) -> DWORD {
      return static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(code));
    };
    return start(body, reinterpret_cast<void*>(static_cast<ULONG_PTR>(exitCode)));
  }
  platform::ThreadHandle startThatNeverEnds() {
    const auto body = [](void* end) -> DWORD { return WaitForSingleObject(end, INFINITE); };
    HANDLE own = nullptr;
    // The thread's own handle of the event, since this host may go first.
    DuplicateHandle(GetCurrentProcess(), end_.get(), GetCurrentProcess(), &own, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    return start(body, own);
  }

 private:
  static platform::ThreadHandle start(LPTHREAD_START_ROUTINE body, void* argument) {
    return reinterpret_cast<platform::ThreadHandle>(CreateThread(nullptr, 0, body, argument, 0, nullptr));
  }

  platform::windows::OwnedHandle end_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  std::unique_ptr<platform::Threads> threads_ = platform::windows::makeThreads();
};

class WindowsProcessesHost {
 public:
  platform::Processes& processes() { return *processes_; }
  std::string batchFile(const std::string& content) {
    const auto path = folder_ / "RmTempLog.bat";
    const auto made = files_->createNew(path, content, platform::FileAccess::OwnerOnly);
    EXPECT_EQ(made, platform::FileOutcome::Done);
    return path;
  }

 private:
  platform::windows::TemporaryFolder folder_;
  std::unique_ptr<platform::Files> files_ = platform::windows::makeFiles();
  std::unique_ptr<platform::Processes> processes_ = platform::windows::makeProcesses();
};

/// The libraries of the tests, each in a folder of its own beside this program.
class WindowsLibrariesHost {
 public:
  platform::ClosedLibraries& libraries() { return *libraries_; }
  platform::ClosedLibraries& lackingLibraries() { return *lacking_; }
  platform::ClosedLibraries& missingLibraries() { return *missing_; }
  void close(platform::ThreadHandle thread) { platform::windows::makeThreads()->closeHandle(thread); }

 private:
  static std::unique_ptr<platform::ClosedLibraries> in(const std::string& folder) {
    const auto program = platform::windows::makeEnvironment()->programFolder();
    return platform::windows::makeClosedLibraries(program + '\\' + folder);
  }

  std::unique_ptr<platform::ClosedLibraries> libraries_ = in("test_vendor");
  std::unique_ptr<platform::ClosedLibraries> lacking_ = in("test_lacking");
  std::unique_ptr<platform::ClosedLibraries> missing_ = in("test_missing");
};

INSTANTIATE_TYPED_TEST_SUITE_P(Windows, RegistryContract, WindowsRegistryHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, FilesContract, WindowsFilesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ClockContract, WindowsClockHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, EnvironmentContract, WindowsEnvironmentHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ProcessesContract, WindowsProcessesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ClosedLibrariesContract, WindowsLibrariesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, EventLogContract, WindowsEventLogHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ThreadsContract, WindowsThreadsHost);

}  // namespace
}  // namespace varnhold::contract
