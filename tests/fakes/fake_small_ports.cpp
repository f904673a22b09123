#include "tests/fakes/fake_small_ports.h"

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

int FakeProcesses::shellExecute(const std::string& verb, const std::string& file,
                                const std::string& parameters, platform::ShowState show) {
  const auto own = resultOf.find(file);
  const int told = own == resultOf.end() ? result : own->second;
  journal_.push_back("ShellExecute " + verb + " " + shown(file) +
                     (parameters.empty() ? "" : " " + shown(parameters)) + " show " +
                     std::to_string(static_cast<int>(show)) + " -> " + std::to_string(told));
  return told;
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
