#pragma once

#include "platform/threads.h"

namespace varnhold::console {

/// Whether a background thread of the closed library still runs. Whoever polls a thread gives its handle
/// back: that of an ended one is closed here. `thread` is 0 afterwards unless it runs. Main thread.
[[nodiscard]] bool isRunning(platform::Threads& threads, platform::ThreadHandle& thread);

}  // namespace varnhold::console
