#pragma once

#include <cstdint>

namespace varnhold::platform {

/// A worker thread of a closed library: on Windows its HANDLE. 0 is none.
using ThreadHandle = std::uintptr_t;

inline constexpr std::uint32_t kStillActive = 259;  ///< winbase.h STILL_ACTIVE

/// What may be asked of a closed library's worker threads. Main thread.
class Threads {
 public:
  virtual ~Threads() = default;

  /// GetExitCodeThread: false when the call fails, and `exitCode` then stays as it was.
  [[nodiscard]] virtual bool getExitCodeThread(ThreadHandle thread, std::uint32_t& exitCode) = 0;
  /// TerminateThread: the thread ends with that code, wherever it is; one that has ended keeps its own. False
  /// for what is no thread, and where the host refuses. A host without such a call lets the thread end itself
  /// at its next safe place; its exit code is the given one at once.
  virtual bool terminateThread(ThreadHandle thread, std::uint32_t exitCode) = 0;
  /// CloseHandle.
  virtual void closeHandle(ThreadHandle thread) = 0;
};

}  // namespace varnhold::platform
