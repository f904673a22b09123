#include "tools/provision/inventory.h"

#include <array>
#include <string>
#include <string_view>

#include "base/runtime_error.h"
#include "store/bulk_insert.h"
#include "store/recordset.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "tools/provision/inventory_content.h"

namespace varnhold::provision {
namespace {

namespace names = store::mdDataBase;
using store::BulkInsert;
using store::Value;

constexpr std::array kTables{names::kSystemTable, names::kModuleTable, names::kSystemGroupMaster,
                             names::kSystemGroupDetail, names::kSystemGroup};

/// The number of rows, or -1 when there is no such table.
std::int64_t rowCount(store::Connection& connection, std::string_view table) {
  store::Recordset rows;
  try {
    rows.Open("SELECT COUNT(*) AS Row_Count FROM " + std::string(table), connection,
              store::CursorType::Static, store::LockType::ReadOnly);
    return rows.Eof() ? 0 : rows.Fields("Row_Count").value().asInteger();
  } catch (const RuntimeError& error) {
    if (error.number() != kStatementRefused) throw;
    return -1;
  }
}

Value orNull(const std::optional<int>& number) {
  return number ? Value(*number) : Value();
}

void addSystems(store::Connection& connection, int computers) {
  BulkInsert rows(connection, std::string(names::kSystemTable),
                  {"System_Name", "System_Type", "IP_Address", "System_Description"});
  for (int number = 1; number <= computers; ++number) {
    const auto system = systemRow(number);
    rows.add({system.name, system.type, system.address, system.description});
  }
  rows.finish();
}

void addAgents(store::Connection& connection, int computers) {
  BulkInsert rows(
      connection, std::string(names::kModuleTable),
      {"System_Name", "Module_ID", "Install_Directory", "Manual", "Agentless", "Port", "SystemType"});
  for (int number = 1; number <= computers; ++number)
    for (const auto& agent : agentRows(number))
      rows.add({agent.system, agent.moduleId, agent.directory, 0, orNull(agent.agentless), orNull(agent.port),
                orNull(agent.systemType)});
  rows.finish();
}

void addGroups(store::Connection& connection, int groups) {
  BulkInsert masters(connection, std::string(names::kSystemGroupMaster),
                     {"Group_Name", "Description", "Auto"});
  BulkInsert rules(connection, std::string(names::kSystemGroupDetail),
                   {"Group_Name", "OS_Type", "IP_Subnet", "Domain"});
  for (int number = 1; number <= groups; ++number) {
    const auto group = groupRow(number);
    masters.add({group.name, group.description, 0});
    rules.add({group.name, group.osType, group.subnet, group.domain});
  }
  masters.finish();
  rules.finish();
}

void addMembers(store::Connection& connection, int computers, int groups) {
  BulkInsert rows(connection, std::string(names::kSystemGroup), {"System_Name", "Group_Name"});
  for (int number = 1; number <= computers; ++number)
    if (const auto group = groupOf(number, groups)) rows.add({systemRow(number).name, *group});
  rows.finish();
}

}  // namespace

void openInventory(store::Connection& connection, const DataSource& source) {
  try {
    connection.Open(kDataSource, "", "");
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(),
                       "Cannot open the data source '" + kDataSource + "' of " + source.place() + ": " +
                           error.description() +
                           " Correct that entry, or install the driver that it names, and run "
                           "varnhold-provision again.");
  }
}

void readyTables(store::Connection& connection, const DataSource& source) {
  std::size_t missing = 0;
  for (const auto& table : kTables) {
    const auto rows = rowCount(connection, table);
    if (rows < 0) ++missing;
    if (rows <= 0) continue;
    throw RuntimeError(kPathFileAccess,
                       "The inventory holds data already: the table " + std::string(table) +
                           " of the data source '" + kDataSource + "' (" + source.place() + ") has " +
                           std::to_string(rows) +
                           " rows. Nothing was changed. Name another database there, or empty its "
                           "tables first.");
  }
  if (missing == kTables.size()) {
    store::Transaction transaction(connection);
    store::createTables(connection);
    transaction.commit();
  } else if (missing > 0) {
    throw RuntimeError(kDatabaseFailed,
                       "The database of the data source '" + kDataSource + "' (" + source.place() +
                           ") has some of the inventory's tables, but not all. Name another database "
                           "there, or remove these tables first.");
  }
}

std::string registeredDriver(store::Connection& connection, DataSource& source) {
  constexpr std::string_view kSqlServer = "SQL Server";
  auto name = source.driverName();
  const bool isNamed = name.find(kSqlServer) != std::string::npos;
  if (connection.engine() == store::Engine::SqlServer && !isNamed)
    name += " (" + std::string(kSqlServer) + ")";
  return name;
}

void fillInventory(store::Connection& connection, int computers) {
  store::Transaction transaction(connection);
  const int groups = groupCount(computers);
  addSystems(connection, computers);
  addAgents(connection, computers);
  addGroups(connection, groups);
  addMembers(connection, computers, groups);
  transaction.commit();
}

}  // namespace varnhold::provision
