#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/processes.h"
#include "platform/ui.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// A clock that stands still and sleeps in no time. Journal line: `Sleep 200`.
class FakeClock : public platform::Clock {
 public:
  explicit FakeClock(Journal& journal) : journal_(journal) {}

  platform::LocalTime now{2026, 1, 31, 16, 5, 9};
  std::uint64_t sleptMs = 0;
  std::function<void()> onSleep;  ///< what happens meanwhile

  void sleep(std::uint32_t milliseconds) override;
  platform::LocalTime getLocalTime() override { return now; }

 private:
  Journal& journal_;
};

/// Journal lines: `SetCurrentDirectory <folder> -> yes`, `GetComputerName -> MANAGER`, `GetVersionEx -> 6
/// platform 2`.
class FakeEnvironment : public platform::Environment {
 public:
  explicit FakeEnvironment(Journal& journal) : journal_(journal) {}

  std::string arguments;
  std::string folder = R"(C:\VARNHOLD)";
  bool acceptsDirectory = true;  ///< the program's folder; there is no other
  std::optional<std::string> computerName = "MANAGER";
  platform::OsVersion version{6, platform::kPlatformWin32Nt};

  std::string commandLine() override { return arguments; }
  std::string programFolder() override { return folder; }
  bool setCurrentDirectory(const std::string& directory) override;
  std::optional<std::string> getComputerName() override;
  platform::OsVersion getVersionEx() override;

 private:
  Journal& journal_;
};

/// Journal line: `ShellExecute open <file> show 0 -> 33`, with parameters `ShellExecute open <file>
/// <parameters> show 0 -> 33`; as somebody else `CreateProcessWithLogon CORP\admin 1 <command line> 0x4000000
/// <folder> -> 0`, `LogonUser CORP\admin 2 0 -> 0, token 1`, `CreateProcessAsUser 1 <command line> 0x4000000
/// <folder> -> 0`, `CloseHandle 1`. A password is in none of them.
class FakeProcesses : public platform::Processes {
 public:
  explicit FakeProcesses(Journal& journal) : journal_(journal) {}

  int result = 33;
  std::map<std::string, int> resultOf;  ///< for a file, in place of `result`

  using platform::Processes::shellExecute;
  int shellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                   platform::ShowState show) override;

  std::uint32_t createError = 0, logonError = 0;  ///< of starting as somebody else
  std::string password;                           ///< the one that was last given

  std::uint32_t createProcessWithLogon(const std::string& user, const std::string& domain,
                                       const std::string& password, std::uint32_t logonFlags,
                                       const std::string& commandLine, std::uint32_t creationFlags,
                                       const std::string& currentDirectory,
                                       platform::ProcessInformation& information) override;
  std::uint32_t logonUser(const std::string& user, const std::string& domain, const std::string& password,
                          std::uint32_t logonType, std::uint32_t logonProvider,
                          platform::TokenHandle& token) override;
  std::uint32_t createProcessAsUser(platform::TokenHandle token, const std::string& commandLine,
                                    std::uint32_t creationFlags, const std::string& currentDirectory,
                                    platform::ProcessInformation& information) override;
  void closeHandle(platform::TokenHandle token) override;

  static constexpr platform::ProcessInformation kStarted{71, 72};  ///< what a start gives

 private:
  std::uint32_t start(const std::string& line, std::uint32_t creationFlags,
                      const std::string& currentDirectory, platform::ProcessInformation& information);

  Journal& journal_;
};

/// Journal line: `MessageBox critical: <text>`, or `MessageBox critical system modal: <text>`.
class FakeUi : public platform::Ui {
 public:
  explicit FakeUi(Journal& journal) : journal_(journal) {}

  void messageBox(const std::string& text, platform::MessageIcon icon) override;
  void systemModalBox(const std::string& text, platform::MessageIcon icon) override;

 private:
  void tell(const char* manner, const std::string& text, platform::MessageIcon icon);

  Journal& journal_;
};

}  // namespace varnhold::fakes
