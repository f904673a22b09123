#pragma once

#include <string>

#include "platform/show_state.h"

namespace varnhold::platform {

/// Starting other programs. Main thread.
class Processes {
 public:
  virtual ~Processes() = default;

  /// ShellExecute without a folder. `file` is a file, an address ("https://..."), or, with `parameters`, a
  /// program, which is also looked for where the host looks for programs. The result is above 32 when it
  /// worked, as the call has it. A host without `net use` understands a batch file of one such line and hands
  /// it to its network.
  virtual int shellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                           ShowState show) = 0;
  /// The same without parameters.
  int shellExecute(const std::string& verb, const std::string& file, ShowState show) {
    return shellExecute(verb, file, {}, show);
  }
};

}  // namespace varnhold::platform
