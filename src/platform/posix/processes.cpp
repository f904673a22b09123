#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <vector>

#include "base/secret.h"
#include "base/text.h"
#include "platform/formats/net_use_line.h"
#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

// The results of ShellExecute (shellapi.h): above 32 is success.
constexpr int kStarted = 42;
constexpr int kFileMissing = 2;     // SE_ERR_FNF
constexpr int kNoAssociation = 31;  // SE_ERR_NOASSOC

/// True for what a browser or mail program opens, "https://..." or "mailto:...", and no path.
bool isAddress(const std::string& target) {
  return target.find("://") != std::string::npos || target.starts_with("mailto:");
}

bool isNotepad(const std::string& program) {
  return equalsIgnoringCase(program, "Notepad.exe");
}

/// Programs that run on by themselves; ended ones are collected at the next call.
class StartedPrograms {
 public:
  /// Starts the program, looked for where the host looks for programs, with one argument. False when there is
  /// none that can be started.
  bool start(std::string program, std::string argument) {
    std::erase_if(running_, [](pid_t process) { return ::waitpid(process, nullptr, WNOHANG) != 0; });
    const std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
    pid_t process = 0;
    if (::posix_spawnp(&process, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0)
      return false;
    running_.push_back(process);
    return true;
  }

 private:
  std::vector<pid_t> running_;
};

class ProcessesOfHost : public Processes {
 public:
  ProcessesOfHost(Files& files, PathResolver& paths, CompanionLibrary& companion)
      : files_(files), paths_(paths), companion_(companion) {}

  int shellExecute(const std::string&, const std::string& file, const std::string& parameters,
                   ShowState) override {
    if (isNotepad(file)) return openFile(parameters);
    if (!parameters.empty()) return programs_.start(file, parameters) ? kStarted : kFileMissing;
    if (isAddress(file)) return openOnDesktop(file);
    return files_.exists(file) && toUpper(file).ends_with(".BAT") ? runBatch(file) : openFile(file);
  }

  // There is no account of Windows to start a program as.
  std::uint32_t createProcessWithLogon(const std::string&, const std::string&, const std::string&,
                                       std::uint32_t, const std::string&, std::uint32_t, const std::string&,
                                       ProcessInformation&) override {
    return kErrorCallNotImplemented;
  }
  std::uint32_t logonUser(const std::string&, const std::string&, const std::string&, std::uint32_t,
                          std::uint32_t, TokenHandle&) override {
    return kErrorCallNotImplemented;
  }
  std::uint32_t createProcessAsUser(TokenHandle, const std::string&, std::uint32_t, const std::string&,
                                    ProcessInformation&) override {
    return kErrorCallNotImplemented;
  }
  void closeHandle(TokenHandle) override {}

 private:
  int openFile(const std::string& file) {
    return files_.exists(file) ? openOnDesktop(paths_.resolve(file)) : kFileMissing;
  }

  /// With the desktop's own opener of files and addresses.
  int openOnDesktop(const std::string& target) {
    return programs_.start("xdg-open", target) ? kStarted : kNoAssociation;
  }

  /// What the network says to the line is not told: starting the batch file is all that the call answers for.
  int runBatch(const std::string& file) {
    auto content = files_.read(file).value_or(std::string{});
    const WipedAtEnd wipedContent(content);
    auto line = parseNetUseLine(content);
    if (!line) return kNoAssociation;
    const WipedAtEnd wipedPassword(line->password);
    if (line->request == NetUseLine::Request::Connect) {
      const auto connect = companion_.function<decltype(qrvHostConnectShare)>("qrvHostConnectShare");
      connect(line->share.c_str(), line->account.c_str(), line->password.c_str());
    } else {
      const auto disconnect = companion_.function<decltype(qrvHostDisconnectShare)>("qrvHostDisconnectShare");
      disconnect(line->share.c_str());
    }
    return kStarted;
  }

  Files& files_;
  PathResolver& paths_;
  CompanionLibrary& companion_;
  StartedPrograms programs_;
};

}  // namespace

std::unique_ptr<Processes> makeProcesses(Files& files, PathResolver& paths, CompanionLibrary& companion) {
  return std::make_unique<ProcessesOfHost>(files, paths, companion);
}

}  // namespace varnhold::platform::posix
