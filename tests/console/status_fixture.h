#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "console/agent_status.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::console {

/// A list of computers as it is when it has just been filled, over an inventory of agents.
class StatusTest : public testing::Test {
 protected:
  StatusTest() { connection.Open("qrvdb", "", ""); }

  /// Empties list and inventory.
  void begin() {
    list.ListItems.Clear();
    inventory.execute("DELETE FROM Module_Table");
  }
  /// The inventory is one whose Module_Table has no such column.
  void withoutColumn(const std::string& column) {
    connection.Close();
    inventory.execute("ALTER TABLE Module_Table DROP COLUMN " + column);
    connection.Open("qrvdb", "", "");
  }
  void add(const std::string& name, const std::string& type) {
    list.ListItems.Add(name).SubItems(kTypeColumn) = type;
  }
  /// `values` are Module_ID, Agentless, Port and SystemType.
  void agent(const std::string& name, const std::string& values) {
    inventory.execute(
        "INSERT INTO Module_Table (System_Name, Module_ID, Agentless, Port, SystemType) VALUES ('" + name +
        "', " + values + ")");
  }
  /// `values` are Module_ID, Agentless and Port.
  void agentWithoutType(const std::string& name, const std::string& values) {
    inventory.execute("INSERT INTO Module_Table (System_Name, Module_ID, Agentless, Port) VALUES ('" + name +
                      "', " + values + ")");
  }
  bool load(int startIndex = 1) { return LoadAgentStatus(connection, list, startIndex, fake.ui); }

  /// name|status|port of each row.
  std::vector<std::string> rows() const {
    std::vector<std::string> lines;
    for (const auto& row : list.ListItems) {
      lines.push_back(row.Text + "|" + row.SubItems(kStatusColumn) + "|" + row.SubItems(kPortColumn));
    }
    return lines;
  }

  fakes::TestInventory inventory;
  fakes::FakeHost fake;
  store::Connection connection;
  ui::ListView list;
};

}  // namespace varnhold::console
