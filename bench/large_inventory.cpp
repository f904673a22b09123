#include "bench/large_inventory.h"

#include <string>

#include "store/bulk_insert.h"

namespace varnhold::bench {
namespace {

constexpr int kMembers = 10;

std::string nameOf(int number) {
  return "COMPUTER" + std::to_string(1'000'000 + number);
}

std::string groupOf(int number) {
  return "Group " + std::to_string(1'000 + number);
}

void fillComputers(store::Connection& connection, int computers) {
  store::BulkInsert systems(connection, "System_Table",
                            {"System_Name", "System_Type", "IP_Address", "System_Description"});
  for (int i = 0; i < computers; ++i) {
    systems.add({nameOf(i), 4 + i % 5, "10.1." + std::to_string(i % 256) + ".7",
                 i % 4 == 0 ? "Mail server of the branch office, second floor" : ""});
  }
  systems.finish();
}

void fillAgents(store::Connection& connection, int computers) {
  store::BulkInsert agents(
      connection, "Module_Table",
      {"System_Name", "Module_ID", "Install_Directory", "Manual", "Agentless", "Port", "SystemType"});
  for (int i = 0; i < computers; ++i) {
    const int number = static_cast<int>((static_cast<long long>(i) * 7919) % computers);
    agents.add({nameOf(number), 1 + i % 2, R"(C:\Program Files\Kelmont Works\Varnhold)", 0, 0,
                i % 3 == 0 ? store::Value() : store::Value(32001), i % 2});
  }
  agents.finish();
}

void fillGroups(store::Connection& connection, int groups) {
  store::BulkInsert masters(connection, "System_Group_Master", {"Group_Name", "Description", "Auto"});
  for (int i = 0; i < groups; ++i) masters.add({groupOf(i), "picked by hand", 0});
  masters.finish();
  store::BulkInsert rules(connection, "System_Group_Detail",
                          {"Group_Name", "OS_Type", "IP_Subnet", "Domain"});
  for (int i = 0; i < groups; ++i) rules.add({groupOf(i), 0, "", ""});
  rules.finish();
  store::BulkInsert members(connection, "System_Group", {"System_Name", "Group_Name"});
  for (int i = 0; i < groups * kMembers; ++i) members.add({nameOf(i), groupOf(i / kMembers)});
  members.finish();
}

}  // namespace

void fillInventory(int computers, int groups) {
  store::Connection connection;
  connection.Open("qrvdb", "", "");
  store::Transaction whole(connection);
  fillComputers(connection, computers);
  fillAgents(connection, computers);
  fillGroups(connection, groups);
  whole.commit();
}

}  // namespace varnhold::bench
