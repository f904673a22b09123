#include "platform/formats/windows_command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace varnhold::platform {
namespace {

struct Case {
  std::string whole, arguments;
};

const std::vector<Case>& cases() {
  static const std::vector<Case> all = {
      {"AgentInstaller.exe", ""},
      {"AgentInstaller.exe -I -N:host1", "-I -N:host1"},
      {"\"C:\\Program Files\\Varnhold\\AgentInstaller.exe\" -I -N:host1", "-I -N:host1"},
      {"\"C:\\Program Files\\Varnhold\\AgentInstaller.exe\"", ""},
      {"C:\\Program\" \"Files\\AgentInstaller.exe -U", "-U"},
      // The name ends at white space only.
      {"\"C:\\AgentInstaller.exe\"-I -U", "-U"},
      {"AgentInstaller.exe\t-I", "-I"},
      {"AgentInstaller.exe   -I", "-I"},
      // Behind the name nothing is touched.
      {"AgentInstaller.exe -I  -N:\"a b\" ", "-I  -N:\"a b\" "},
      {"AgentInstaller.exe \" \"", "\" \""},
      {"AgentInstaller.exe -N:Größe", "-N:Größe"},
      {"Größe.exe -I", "-I"},
      // No argument at all.
      {"AgentInstaller.exe  ", ""},
      {"\"AgentInstaller.exe -I", ""},
      {"\"\" -I", "-I"},
      {"", ""},
      // Without a name, as a program may start another.
      {" -I", "-I"},
  };
  return all;
}

TEST(WindowsCommandLine, CutsTheProgramsNameOff) {
  for (const auto& [whole, arguments] : cases()) EXPECT_EQ(argumentsOf(whole), arguments) << whole;
}

TEST(WindowsCommandLine, KeepsANulAmongTheArguments) {
  EXPECT_EQ(argumentsOf(std::string("a.exe x\0y", 9)), std::string("x\0y", 3));
}

}  // namespace
}  // namespace varnhold::platform
