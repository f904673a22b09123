#pragma once

#include <optional>
#include <string>

namespace varnhold::platform {

/// What the process is told about itself. Main thread.
class Environment {
 public:
  virtual ~Environment() = default;

  /// The arguments as one string, as they were typed behind the program's name.
  [[nodiscard]] virtual std::string commandLine() = 0;
  /// The folder of the program, without a closing separator; on a host where a program must not write beside
  /// its file, its home.
  [[nodiscard]] virtual std::string programFolder() = 0;
  /// SetCurrentDirectory.
  [[nodiscard]] virtual bool setCurrentDirectory(const std::string& folder) = 0;
  /// GetComputerName, in at most 256 characters, as the host fills its buffer; nothing when the call fails.
  [[nodiscard]] virtual std::optional<std::string> getComputerName() = 0;
};

}  // namespace varnhold::platform
