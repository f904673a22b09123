#include "platform/processes.h"

#include <windows.h>
// shellapi.h wants windows.h before it.
#include <shellapi.h>

#include "base/secret.h"
#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

static_assert(kLogonWithProfile == LOGON_WITH_PROFILE && kLogonInteractive == LOGON32_LOGON_INTERACTIVE);
static_assert(kLogonProviderDefault == LOGON32_PROVIDER_DEFAULT);
static_assert(kCreateDefaultErrorMode == CREATE_DEFAULT_ERROR_MODE);
static_assert(static_cast<int>(ShowState::Hidden) == SW_HIDE);
static_assert(static_cast<int>(ShowState::Normal) == SW_SHOWNORMAL);
static_assert(static_cast<int>(ShowState::Maximised) == SW_MAXIMIZE);

class WindowsProcesses : public Processes {
 public:
  int shellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                   ShowState show) override {
    const auto wideVerb = toWide(verb);
    const auto wideFile = toWide(file);
    const auto wideParameters = toWide(parameters);
    SHELLEXECUTEINFOW start{};
    start.cbSize = sizeof start;
    // No error box of the shell may wait for a person, and the start must be complete when this returns: the
    // caller deletes the file soon, or ends.
    start.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    start.lpVerb = wideVerb.c_str();
    start.lpFile = wideFile.c_str();
    start.lpParameters = wideParameters.empty() ? nullptr : wideParameters.c_str();
    start.nShow = static_cast<int>(show);
    const bool started = ShellExecuteExW(&start) != FALSE;
    const auto result = static_cast<int>(reinterpret_cast<INT_PTR>(start.hInstApp));
    if (started) return result > kLastFailure ? result : kLastFailure + 1;
    return result > kLastFailure ? kGeneralFailure : result;
  }

  std::uint32_t createProcessWithLogon(const std::string& user, const std::string& domain,
                                       const std::string& password, std::uint32_t logonFlags,
                                       const std::string& commandLine, std::uint32_t creationFlags,
                                       const std::string& currentDirectory,
                                       ProcessInformation& information) override {
    auto widePassword = toWide(password);
    const WipedAtEnd wiped(widePassword);
    return start(commandLine, currentDirectory, information,
                 [&](wchar_t* line, const wchar_t* folder, STARTUPINFOW* startup, PROCESS_INFORMATION* made) {
                   return CreateProcessWithLogonW(toWide(user).c_str(), toWide(domain).c_str(),
                                                  widePassword.c_str(), logonFlags, nullptr, line,
                                                  creationFlags, nullptr, folder, startup, made);
                 });
  }

  std::uint32_t logonUser(const std::string& user, const std::string& domain, const std::string& password,
                          std::uint32_t logonType, std::uint32_t logonProvider, TokenHandle& token) override {
    auto widePassword = toWide(password);
    const WipedAtEnd wiped(widePassword);
    HANDLE made = nullptr;
    if (!LogonUserW(toWide(user).c_str(), toWide(domain).c_str(), widePassword.c_str(), logonType,
                    logonProvider, &made))
      return GetLastError();
    token = reinterpret_cast<TokenHandle>(made);
    return ERROR_SUCCESS;
  }

  std::uint32_t createProcessAsUser(TokenHandle token, const std::string& commandLine,
                                    std::uint32_t creationFlags, const std::string& currentDirectory,
                                    ProcessInformation& information) override {
    return start(commandLine, currentDirectory, information,
                 [&](wchar_t* line, const wchar_t* folder, STARTUPINFOW* startup, PROCESS_INFORMATION* made) {
                   return CreateProcessAsUserW(native(token), nullptr, line, nullptr, nullptr, FALSE,
                                               creationFlags, nullptr, folder, startup, made);
                 });
  }

  void closeHandle(TokenHandle token) override { CloseHandle(native(token)); }

 private:
  static HANDLE native(TokenHandle token) {
    return reinterpret_cast<HANDLE>(token);  // NOLINT(performance-no-int-to-ptr)
  }

  /// `call` gets a command line that it may write to, as those calls want it.
  template <typename Call>
  static std::uint32_t start(const std::string& commandLine, const std::string& currentDirectory,
                             ProcessInformation& information, Call call) {
    auto line = toWide(commandLine);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    SetLastError(ERROR_SUCCESS);
    if (!call(line.data(), toWide(currentDirectory).c_str(), &startup, &made)) {
      // A host without such a call may fail and say nothing.
      const auto error = GetLastError();
      return error != ERROR_SUCCESS ? error : kErrorCallNotImplemented;
    }
    information.process = reinterpret_cast<std::uintptr_t>(made.hProcess);
    information.thread = reinterpret_cast<std::uintptr_t>(made.hThread);
    return ERROR_SUCCESS;
  }

  static constexpr int kLastFailure = 32;    ///< shellapi.h: a result above it is a success
  static constexpr int kGeneralFailure = 0;  ///< ShellExecute: out of memory or resources
};

}  // namespace

std::unique_ptr<Processes> makeProcesses() {
  return std::make_unique<WindowsProcesses>();
}

}  // namespace varnhold::platform::windows
