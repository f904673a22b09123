#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/closed_libraries.h"
#include "store/connection.h"

namespace varnhold::fakes {

/// A real inventory of the product's tables, empty, in SQLite, behind the data source `qrvdb`. One at a time
/// in a process: each begins anew, in a folder that is the test program's own. A test program that uses it is
/// declared with `varnhold_inventory_test`, which tells the host's driver manager where to look.
///
/// What a test does here goes over a connection of its own and writes no line in a journal; for the
/// statements of the program give its `Program` the listener of `FakeHost::statementListener`.
class TestInventory {
 public:
  TestInventory();
  ~TestInventory();
  TestInventory(const TestInventory&) = delete;
  TestInventory& operator=(const TestInventory&) = delete;

  void execute(const std::string& statement);
  /// What the closed library does when it stores a computer: adds its row, with the address 10.1.1.1.
  void store(const platform::SystemDetails& details);
  /// A row of `Module_Table`, in `C:\OLD`.
  void addAgent(const std::string& system, int module, int agentless = 0);

  /// `System_Table` in the order of names: name|type.
  [[nodiscard]] std::vector<std::string> computers();
  /// `Module_Table` in the order of names and modules: name|module|directory|manual|agentless.
  [[nodiscard]] std::vector<std::string> agents();

  /// From now on the data source cannot be opened.
  void takeAway();

 private:
  [[nodiscard]] std::vector<std::string> rows(const std::string& query,
                                              const std::vector<std::string>& columns);

  std::filesystem::path folder_;
  varnhold::store::Connection connection_;
};

}  // namespace varnhold::fakes
