#include "platform/threads.h"

#include <windows.h>

#include "platform/windows/adapters.h"

namespace varnhold::platform::windows {
namespace {

static_assert(kStillActive == STILL_ACTIVE);

HANDLE native(ThreadHandle thread) {
  return reinterpret_cast<HANDLE>(thread);  // NOLINT(performance-no-int-to-ptr)
}

class WindowsThreads : public Threads {
 public:
  bool getExitCodeThread(ThreadHandle thread, std::uint32_t& exitCode) override {
    DWORD code = 0;
    if (!GetExitCodeThread(native(thread), &code)) return false;
    exitCode = code;
    return true;
  }
  bool terminateThread(ThreadHandle thread, std::uint32_t exitCode) override {
    // Not every host of Win32 leaves the code of a thread that has ended by itself.
    if (WaitForSingleObject(native(thread), 0) == WAIT_OBJECT_0) return false;
    return TerminateThread(native(thread), exitCode) != FALSE;
  }
  void closeHandle(ThreadHandle thread) override { CloseHandle(native(thread)); }
};

}  // namespace

std::unique_ptr<Threads> makeThreads() {
  return std::make_unique<WindowsThreads>();
}

}  // namespace varnhold::platform::windows
