#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"
#include "store/command.h"
#include "store/connection.h"
#include "store/recordset.h"
#include "store/schema.h"

namespace varnhold::store {

/// What differs between the engines that the contract runs on; each program of the contract defines one.
struct EngineUnderTest {
  Engine engine;
  std::string letters;  ///< letters of all kinds that a statement's text can carry here
};
extern const EngineUnderTest kEngineUnderTest;

/// A table as text: rows in order of their text, NULL as "NULL".
using Table = std::vector<std::vector<std::string>>;

inline std::string textOf(const Value& value) {
  return value.isNull() ? "NULL" : value.asText();
}

/// The number and description of the error that `action` raises; 0 when it raises none.
struct Raised {
  std::int32_t number = 0;
  std::string description;
};
inline Raised raisedBy(const std::function<void()>& action) {
  try {
    action();
    return {};
  } catch (const RuntimeError& error) {
    return {error.number(), error.description()};
  }
}

/// An inventory with empty tables, on the data source "inventory" of the engine under test.
class InventoryContract : public testing::Test {
 protected:
  void SetUp() override {
    connection.Open("inventory", "", "");
    execute("DROP TABLE IF EXISTS Trial");
    // Making tables takes a server long, so that they are emptied where they stand.
    if (tablesStand()) {
      for (const char* table : kTables) execute("DELETE FROM " + std::string(table));
    } else {
      for (const char* table : kTables) execute("DROP TABLE IF EXISTS " + std::string(table));
      createTables(connection);
      tablesStand() = true;
    }
    told.clear();
  }

  /// For a test that changes the tables themselves, before it does.
  static void tablesWillNotStand() { tablesStand() = false; }

  void execute(const std::string& statement) { execute(connection, statement); }

  static void execute(Connection& on, const std::string& statement) {
    Command command;
    command.ActiveConnection = &on;
    command.CommandText = statement;
    command.Execute();
  }

  void addSystem(const std::string& name, int type = 7) {
    execute("INSERT INTO System_Table (System_Name, System_Type, IP_Address, System_Description) VALUES ('" +
            name + "', " + std::to_string(type) + ", '10.0.0.1', '')");
  }

  void addAgent(const std::string& name, int module, const std::string& path = "C:\\Agent") {
    execute(
        "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) VALUES ('" +
        name + "', " + std::to_string(module) + ", '" + path + "', 0, 0)");
  }

  /// The columns of all rows that a set holds from its first row on.
  static Table tableOf(Recordset& rows, const std::vector<std::string>& columns) {
    Table table;
    for (; !rows.Eof(); rows.MoveNext()) {
      auto& row = table.emplace_back();
      for (const std::string& column : columns) row.push_back(textOf(rows.Fields(column).value()));
    }
    std::sort(table.begin(), table.end());
    return table;
  }

  Table tableOf(const std::string& source, const std::vector<std::string>& columns) {
    Recordset rows;
    rows.Open(source, connection, CursorType::Static, LockType::ReadOnly);
    return tableOf(rows, columns);
  }

  std::vector<std::string> told;
  Connection connection{[this](std::string_view statement) { told.emplace_back(statement); }};

 private:
  static constexpr const char* kTables[] = {"Events_Table",        "System_Group", "System_Group_Detail",
                                            "System_Group_Master", "Module_Table", "System_Table"};
  static bool& tablesStand() {
    static bool stand = false;
    return stand;
  }
};

}  // namespace varnhold::store
