// The inventory work for one computer of a command-line run (look up, register, record), in an inventory of
// 1,000 and in one of 100,000 computers: the larger may cost at most 1.2 times the smaller. The library and
// the log are in memory.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "startup/command_line_installer.h"
#include "store/bulk_insert.h"
#include "store/recordset.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/test_inventory.h"

namespace {

using namespace varnhold;

constexpr double kLimit = 1.2;
constexpr int kRounds = 300;

std::string nameOf(int number) {
  return "PC" + std::to_string(1000000 + number);
}

void fill(int computers) {
  store::Connection connection;
  connection.Open("qrvdb", "", "");
  store::Transaction whole(connection);
  store::BulkInsert systems(connection, "System_Table",
                            {"System_Name", "System_Type", "IP_Address", "System_Description"});
  for (int i = 0; i < computers; ++i) systems.add({nameOf(i), 7, "10.0.0.1", ""});
  systems.finish();
  store::BulkInsert agents(connection, "Module_Table",
                           {"System_Name", "Module_ID", "Install_Directory", "Manual", "Agentless"});
  for (int i = 0; i < computers; ++i) agents.add({nameOf(i), 1, R"(C:\Program Files\Kelmont Works)", 0, 0});
  agents.finish();
  whole.commit();
}

/// What the closed library does for a computer that is not known yet, on a connection of its own.
void storeDetails(store::Connection& connection, const platform::SystemDetails& details) {
  store::Recordset rows;
  rows.Open("System_Table", connection, store::CursorType::Keyset, store::LockType::Optimistic);
  rows.AddNew();
  rows.Fields("System_Name").setValue(details.SystemName);
  rows.Fields("System_Type").setValue(7);
  rows.Fields("IP_Address").setValue("10.0.0.2");
  rows.Fields("System_Description").setValue("");
  rows.Update();
}

/// The median milliseconds of one new computer's whole turn.
double medianTurn(int computers) {
  const fakes::TestInventory inventory;
  fill(computers);
  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle};
  program.gConn.Open("qrvdb", "", "");
  program.gAppPath = fake.environment.folder;
  program.gInstallerDir = R"(C:\V\RemoteInstaller)";
  program.gCliAction = 1;
  store::Connection libraryConnection;
  libraryConnection.Open("qrvdb", "", "");
  fake.libraries.onStore = [&](const platform::SystemDetails& details) {
    storeDetails(libraryConnection, details);
  };

  std::vector<double> turns;
  for (int i = 0; i < kRounds; ++i) {
    const auto name = "NEW" + std::to_string(i);
    fake.libraries.computers[name] = {};
    const auto start = std::chrono::steady_clock::now();
    startup::CliInstall(program, name, R"(C:\Agent)");
    turns.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    fake.journal.clear();
  }
  std::nth_element(turns.begin(), turns.begin() + kRounds / 2, turns.end());
  return turns[kRounds / 2];
}

}  // namespace

int main() {
  const auto small = medianTurn(1'000);
  const auto large = medianTurn(100'000);
  std::cout << "one computer among   1,000: " << small << " ms\n"
            << "one computer among 100,000: " << large << " ms\n"
            << "ratio: " << large / small << " (at most " << kLimit << ")\n";
  return large / small <= kLimit ? EXIT_SUCCESS : EXIT_FAILURE;
}
