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

/// Journal lines: `SetCurrentDirectory <folder> -> yes`, `GetComputerName -> MANAGER`.
class FakeEnvironment : public platform::Environment {
 public:
  explicit FakeEnvironment(Journal& journal) : journal_(journal) {}

  std::string arguments;
  std::string folder = R"(C:\VARNHOLD)";
  bool acceptsDirectory = true;  ///< the program's folder; there is no other
  std::optional<std::string> computerName = "MANAGER";

  std::string commandLine() override { return arguments; }
  std::string programFolder() override { return folder; }
  bool setCurrentDirectory(const std::string& directory) override;
  std::optional<std::string> getComputerName() override;

 private:
  Journal& journal_;
};

/// Journal line: `ShellExecute open <file> show 0 -> 33`, with parameters `ShellExecute open <file>
/// <parameters> show 0 -> 33`.
class FakeProcesses : public platform::Processes {
 public:
  explicit FakeProcesses(Journal& journal) : journal_(journal) {}

  int result = 33;
  std::map<std::string, int> resultOf;  ///< for a file, in place of `result`

  using platform::Processes::shellExecute;
  int shellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                   platform::ShowState show) override;

 private:
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
