#include "console/background_thread.h"

namespace varnhold::console {

bool isRunning(platform::Threads& threads, platform::ThreadHandle& thread) {
  if (thread == 0) return false;
  std::uint32_t exitCode = 0;
  const bool isKnown = threads.getExitCodeThread(thread, exitCode);
  if (isKnown && exitCode == platform::kStillActive) return true;
  if (isKnown) threads.closeHandle(thread);
  thread = 0;
  return false;
}

}  // namespace varnhold::console
