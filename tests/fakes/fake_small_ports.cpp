#include "tests/fakes/fake_small_ports.h"

#include <sstream>

namespace varnhold::fakes {

void FakeClock::sleep(std::uint32_t milliseconds) {
  journal_.push_back("Sleep " + std::to_string(milliseconds));
  sleptMs += milliseconds;
  if (onSleep) onSleep();
}

bool FakeEnvironment::setCurrentDirectory(const std::string& directory) {
  const bool done = acceptsDirectory && directory == folder;
  journal_.push_back("SetCurrentDirectory " + directory + (done ? " -> yes" : " -> no"));
  return done;
}

std::optional<std::string> FakeEnvironment::getComputerName() {
  journal_.push_back("GetComputerName -> " + (computerName ? shown(*computerName) : std::string("nothing")));
  return computerName;
}

platform::OsVersion FakeEnvironment::getVersionEx() {
  journal_.push_back("GetVersionEx -> " + std::to_string(version.majorVersion) + " platform " +
                     std::to_string(version.platformId));
  return version;
}

int FakeProcesses::shellExecute(const std::string& verb, const std::string& file,
                                const std::string& parameters, platform::ShowState show) {
  const auto own = resultOf.find(file);
  const int told = own == resultOf.end() ? result : own->second;
  journal_.push_back("ShellExecute " + verb + " " + shown(file) +
                     (parameters.empty() ? "" : " " + shown(parameters)) + " show " +
                     std::to_string(static_cast<int>(show)) + " -> " + std::to_string(told));
  return told;
}

std::uint32_t FakeProcesses::start(const std::string& line, std::uint32_t creationFlags,
                                   const std::string& currentDirectory,
                                   platform::ProcessInformation& information) {
  std::ostringstream text;
  text << line << " 0x" << std::hex << creationFlags << std::dec << ' ' << currentDirectory << " -> "
       << createError;
  journal_.push_back(text.str());
  if (createError == 0) information = kStarted;
  return createError;
}

std::uint32_t FakeProcesses::createProcessWithLogon(const std::string& user, const std::string& domain,
                                                    const std::string& givenPassword,
                                                    std::uint32_t logonFlags, const std::string& commandLine,
                                                    std::uint32_t creationFlags,
                                                    const std::string& currentDirectory,
                                                    platform::ProcessInformation& information) {
  password = givenPassword;
  return start(
      "CreateProcessWithLogon " + domain + "\\" + user + " " + std::to_string(logonFlags) + " " + commandLine,
      creationFlags, currentDirectory, information);
}

std::uint32_t FakeProcesses::logonUser(const std::string& user, const std::string& domain,
                                       const std::string& givenPassword, std::uint32_t logonType,
                                       std::uint32_t logonProvider, platform::TokenHandle& token) {
  password = givenPassword;
  if (logonError == 0) token = 1;
  journal_.push_back("LogonUser " + domain + "\\" + user + " " + std::to_string(logonType) + " " +
                     std::to_string(logonProvider) + " -> " + std::to_string(logonError) +
                     (logonError == 0 ? ", token 1" : ""));
  return logonError;
}

std::uint32_t FakeProcesses::createProcessAsUser(platform::TokenHandle token, const std::string& commandLine,
                                                 std::uint32_t creationFlags,
                                                 const std::string& currentDirectory,
                                                 platform::ProcessInformation& information) {
  return start("CreateProcessAsUser " + std::to_string(token) + " " + commandLine, creationFlags,
               currentDirectory, information);
}

void FakeProcesses::closeHandle(platform::TokenHandle token) {
  journal_.push_back("CloseHandle " + std::to_string(token));
}

void FakeUi::tell(const char* manner, const std::string& text, platform::MessageIcon icon) {
  constexpr const char* kNames[] = {"information", "exclamation", "critical"};
  journal_.push_back(std::string("MessageBox ") + kNames[static_cast<int>(icon)] + manner + ": " + text);
}

void FakeUi::messageBox(const std::string& text, platform::MessageIcon icon) {
  tell("", text, icon);
}

void FakeUi::systemModalBox(const std::string& text, platform::MessageIcon icon) {
  tell(" system modal", text, icon);
}

}  // namespace varnhold::fakes
