#pragma once

#include <cstdint>
#include <string>

#include "platform/show_state.h"

namespace varnhold::platform {

using TokenHandle = std::uintptr_t;  ///< HANDLE of LogonUser; 0 is none

inline constexpr std::uint32_t kLogonWithProfile = 1;                ///< winbase.h LOGON_WITH_PROFILE
inline constexpr std::uint32_t kLogonInteractive = 2;                ///< LOGON32_LOGON_INTERACTIVE
inline constexpr std::uint32_t kLogonProviderDefault = 0;            ///< LOGON32_PROVIDER_DEFAULT
inline constexpr std::uint32_t kCreateDefaultErrorMode = 0x4000000;  ///< CREATE_DEFAULT_ERROR_MODE

/// PROCESS_INFORMATION; the handles are the caller's to close.
struct ProcessInformation {
  std::uintptr_t process = 0, thread = 0;
};

/// Starting other programs. Main thread.
class Processes {
 public:
  virtual ~Processes() = default;

  static constexpr int kLastShellError = 32;  ///< shellapi.h: above it, ShellExecute worked

  /// ShellExecute without a folder. `file` is a file, an address ("https://..."), or, with `parameters`, a
  /// program, which is also looked for where the host looks for programs. Above `kLastShellError` it worked.
  /// A host without `net use` understands a batch file of one such line and hands it to its network; one
  /// without Notepad opens the file that this is to show as it opens other files.
  virtual int shellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                           ShowState show) = 0;
  /// The same without parameters.
  int shellExecute(const std::string& verb, const std::string& file, ShowState show) {
    return shellExecute(verb, file, {}, show);
  }

  // Starting a program as somebody else, without application name and environment of its own. All of them
  // give 0 when it worked, else the error's number; a host that cannot do that gives
  // kErrorCallNotImplemented.
  static constexpr std::uint32_t kErrorCallNotImplemented = 120;  ///< winerror.h

  /// CreateProcessWithLogonW.
  [[nodiscard]] virtual std::uint32_t createProcessWithLogon(
      const std::string& user, const std::string& domain, const std::string& password,
      std::uint32_t logonFlags, const std::string& commandLine, std::uint32_t creationFlags,
      const std::string& currentDirectory, ProcessInformation& information) = 0;
  /// LogonUser.
  [[nodiscard]] virtual std::uint32_t logonUser(const std::string& user, const std::string& domain,
                                                const std::string& password, std::uint32_t logonType,
                                                std::uint32_t logonProvider, TokenHandle& token) = 0;
  /// CreateProcessAsUser, nothing inherited.
  [[nodiscard]] virtual std::uint32_t createProcessAsUser(TokenHandle token, const std::string& commandLine,
                                                          std::uint32_t creationFlags,
                                                          const std::string& currentDirectory,
                                                          ProcessInformation& information) = 0;
  /// CloseHandle of a token.
  virtual void closeHandle(TokenHandle token) = 0;
};

}  // namespace varnhold::platform
