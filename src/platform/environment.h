#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace varnhold::platform {

/// What is used of OSVERSIONINFO.
struct OsVersion {
  std::uint32_t majorVersion = 0;
  std::uint32_t platformId = 0;  ///< `kPlatformWin32Nt` on every system of the NT line
};
inline constexpr std::uint32_t kPlatformWin32Nt = 2;  ///< winnt.h VER_PLATFORM_WIN32_NT

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
  /// GetVersionEx; a host of another kind says that it is of the NT line, version 6.
  [[nodiscard]] virtual OsVersion getVersionEx() = 0;
};

}  // namespace varnhold::platform
