#pragma once

#include <sys/types.h>

#include <functional>

namespace varnhold::platform::posix {

/// Runs `body` in a child process, to its end, and gives the exit status that it returned; -1 when the child
/// was killed by a signal or has not ended of itself after two minutes.
[[nodiscard]] int inChild(const std::function<int()>& body);

/// Starts `body` in a child process and leaves it running; its end is for `waitForChild`.
[[nodiscard]] pid_t startChild(const std::function<int()>& body);
[[nodiscard]] int waitForChild(pid_t child);

/// In a child: gives up the rights of the superuser, whom no file mode stops. False when that does not work.
[[nodiscard]] bool becomeOrdinaryUser();

/// In a child: no file may grow beyond this many bytes, as on a full disk.
void limitFileSize(std::size_t bytes);

}  // namespace varnhold::platform::posix
