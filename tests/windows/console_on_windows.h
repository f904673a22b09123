#pragma once

#include "tests/windows/program_on_windows.h"

namespace varnhold::windows_test {

inline constexpr const wchar_t* kModeForm = L"Select 'Auto Discover' Mode";

inline const Names& allComputers() {
  static const Names names{L"ANVIL", L"BELLOWS", L"CRUCIBLE", L"DIE", L"EMBER", L"FORGE"};
  return names;
}

/// A home with a known inventory, and the console in it.
class ConsoleOnWindows : public ProgramOnWindows {
 protected:
  ConsoleOnWindows() { fillInventory(); }

  static void fillInventory() {
    for (const char* values :
         {"'ANVIL', 7, '10.1.1.21', 'File server'", "'BELLOWS', 10, '10.1.1.22', ''",
          "'CRUCIBLE', 2, '10.1.1.23', 'Museum piece'", "'DIE', 9, '10.1.2.24', 'Reception'",
          "'EMBER', 7, '10.1.2.25', 'Backup'", "'FORGE', 4, '', 'Not resolved'"}) {
      cli::Stage::execute(std::string("INSERT INTO System_Table VALUES (") + values + ")");
    }
    for (const char* values :
         {"'ANVIL', 1, 0, 8821, 0", "'bellows', 2, 0, NULL, 0", "'CRUCIBLE', 1, 0, 8821, 0",
          "'DIE', 1, 1, 8822, 0", "'EMBER', 1, 0, 8823, 1"}) {
      cli::Stage::execute(
          std::string(
              "INSERT INTO Module_Table (System_Name, Module_ID, Agentless, Port, SystemType) VALUES (") +
          values + ")");
    }
    cli::Stage::execute("INSERT INTO System_Group_Master VALUES ('Servers', 'All that must not stop', 1)");
    cli::Stage::execute("INSERT INTO System_Group_Detail VALUES ('Servers', 0, '', '')");
    cli::Stage::execute("INSERT INTO System_Group VALUES ('ANVIL', 'Servers')");
    cli::Stage::execute("INSERT INTO System_Group VALUES ('EMBER', 'Servers')");
  }

  void startAndFill() {
    start();
    waitForConsole(allComputers());
  }
};

}  // namespace varnhold::windows_test
