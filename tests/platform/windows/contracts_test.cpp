// The Win32 adapters keep the contracts of their ports.
#include <windows.h>

#include <filesystem>
#include <future>
#include <map>
#include <string>
#include <thread>

#include "platform/windows/adapters.h"
#include "platform/windows/owned_handle.h"
#include "platform/windows/text.h"
#include "tests/contract/clock_contract.h"
#include "tests/contract/closed_libraries_contract.h"
#include "tests/contract/desktop_contract.h"
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
  void forgetMode() { static_cast<void>(libraries_->qrvSetNetAccessMode(254)); }
  void refuseMode() {}  // it refuses this one always
  platform::Threads& threads() { return *threads_; }
  void close(platform::ThreadHandle thread) { threads_->closeHandle(thread); }

 private:
  static std::unique_ptr<platform::ClosedLibraries> in(const std::string& folder) {
    const auto program = platform::windows::makeEnvironment()->programFolder();
    return platform::windows::makeClosedLibraries(program + '\\' + folder);
  }

  std::unique_ptr<platform::Threads> threads_ = platform::windows::makeThreads();
  std::unique_ptr<platform::ClosedLibraries> libraries_ = in("test_vendor");
  std::unique_ptr<platform::ClosedLibraries> lacking_ = in("test_lacking");
  std::unique_ptr<platform::ClosedLibraries> missing_ = in("test_missing");
};

/// A window with a message loop of its own, as another program has one.
class WindowOwner {
 public:
  WindowOwner(const std::string& title, bool visible) {
    std::promise<bool> made;
    auto isMade = made.get_future();
    loop_ = std::thread([&, title, visible] {
      threadId_ = GetCurrentThreadId();
      made.set_value(makeWindow(platform::windows::toWide(title), visible));
      MSG message{};
      while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    });
    EXPECT_TRUE(isMade.get()) << "no window";
  }
  ~WindowOwner() {
    PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
    loop_.join();
  }
  WindowOwner(const WindowOwner&) = delete;
  WindowOwner& operator=(const WindowOwner&) = delete;

 private:
  /// The first window of a session may come before its desktop is ready.
  static bool makeWindow(const std::wstring& title, bool visible) {
    const DWORD style = WS_OVERLAPPEDWINDOW | (visible ? WS_VISIBLE : 0U);
    HWND window = nullptr;
    for (int tries = 0; tries < 3 && window == nullptr; ++tries) {
      window = CreateWindowExW(0, L"STATIC", title.c_str(), style, 0, 0, 200, 100, nullptr, nullptr, nullptr,
                               nullptr);
    }
    return window != nullptr;
  }

  DWORD threadId_ = 0;  ///< set before the window is made
  std::thread loop_;
};

class WindowsDesktopHost {
 public:
  platform::Desktop& desktop() { return *desktop_; }
  std::string title() { return "Varnhold / Window? " + std::to_string(GetCurrentProcessId()); }
  void openWindow(const std::string& title, bool visible) {
    windows_[title] = std::make_unique<WindowOwner>(title, visible);
  }
  void closeWindow(const std::string& title) { windows_.erase(title); }
  void startInstance(const std::string& title) {
    instances_[title] = platform::windows::makeDesktop();
    static_cast<void>(instances_[title]->isPreviousInstanceRunning(title));
  }
  void endInstance(const std::string& title) { instances_.erase(title); }

 private:
  std::unique_ptr<platform::Desktop> desktop_ = platform::windows::makeDesktop();
  std::map<std::string, std::unique_ptr<WindowOwner>> windows_;
  std::map<std::string, std::unique_ptr<platform::Desktop>> instances_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Windows, RegistryContract, WindowsRegistryHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, FilesContract, WindowsFilesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ClockContract, WindowsClockHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, EnvironmentContract, WindowsEnvironmentHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ProcessesContract, WindowsProcessesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ClosedLibrariesContract, WindowsLibrariesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, DesktopContract, WindowsDesktopHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, EventLogContract, WindowsEventLogHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ThreadsContract, WindowsThreadsHost);

}  // namespace
}  // namespace varnhold::contract
