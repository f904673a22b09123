#pragma once

#include <string>

namespace varnhold::platform {

/// How a started program's first window shows (winuser.h, SW_*).
enum class ShowState : int { Hidden = 0, Normal = 1 };

/// Starting other programs. Main thread.
class Processes {
 public:
  virtual ~Processes() = default;

  /// ShellExecute without parameters and folder. The result is above 32 when it worked, as the call has it.
  /// A host without `net use` understands a batch file of one such line and hands it to its network.
  virtual int shellExecute(const std::string& verb, const std::string& file, ShowState show) = 0;
};

}  // namespace varnhold::platform
