#include "tests/fakes/test_inventory.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "base/text.h"
#include "store/command.h"
#include "store/data_source.h"
#include "store/recordset.h"
#include "store/schema.h"

namespace varnhold::fakes {
namespace {

namespace fs = std::filesystem;

/// A path of ours for the driver manager: under Wine it reads Unix paths.
std::string forDriverManager(const fs::path& path) {
  const auto text = path.generic_u8string();
  const std::string utf8(text.begin(), text.end());
  return path.has_root_name() ? utf8.substr(2) : utf8;
}

/// Where `varnhold_inventory_test` has the driver manager look. Its settings are written once: it may keep
/// what it read.
fs::path placeOfInventories() {
  const auto* odbcIni = std::getenv("ODBCINI");
  if (odbcIni == nullptr) throw std::runtime_error("Run this test by ctest: it sets ODBCINI.");
  const fs::path place(VARNHOLD_INVENTORY_DRIVE + fs::path(odbcIni).parent_path().string());
  fs::create_directories(place);
  return place;
}

}  // namespace

TestInventory::TestInventory() : folder_(placeOfInventories() / "inventory") {
  fs::remove_all(folder_);
  fs::create_directories(folder_);
  const auto file = folder_ / "qrvdbv3.mdb";
  std::ofstream(folder_.parent_path() / "odbc.ini", std::ios::binary)
      << varnhold::store::renderDataSource(forDriverManager(file));
  std::ofstream{file};  // the driver makes none
  connection_.Open("qrvdb", "", "");
  varnhold::store::createTables(connection_);
}

TestInventory::~TestInventory() {
  connection_.Close();
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void TestInventory::execute(const std::string& statement) {
  varnhold::store::Command command;
  command.ActiveConnection = &connection_;
  command.CommandText = statement;
  command.Execute();
}

void TestInventory::store(const platform::SystemDetails& details) {
  execute("INSERT INTO System_Table (System_Name, System_Type, IP_Address, System_Description) VALUES ('" +
          replaceAll(TrimAtNull(details.SystemName), "'", "''") + "', " + std::to_string(details.SystemType) +
          ", '10.1.1.1', '')");
}

void TestInventory::addAgent(const std::string& system, int module, int agentless) {
  execute(
      "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual, Agentless) VALUES ('" +
      replaceAll(system, "'", "''") + "', " + std::to_string(module) + ", 'C:\\OLD', 0, " +
      std::to_string(agentless) + ")");
}

std::vector<std::string> TestInventory::computers() {
  return rows("SELECT * FROM System_Table ORDER BY System_Name", {"System_Name", "System_Type"});
}

std::vector<std::string> TestInventory::agents() {
  return rows("SELECT * FROM Module_Table ORDER BY System_Name, Module_ID",
              {"System_Name", "Module_ID", "Install_Directory", "Manual", "Agentless"});
}

void TestInventory::takeAway() {
  connection_.Close();
  fs::remove_all(folder_);
}

std::vector<std::string> TestInventory::rows(const std::string& query,
                                             const std::vector<std::string>& columns) {
  varnhold::store::Recordset set;
  set.Open(query, connection_, varnhold::store::CursorType::Static, varnhold::store::LockType::ReadOnly);
  std::vector<std::string> lines;
  for (; !set.Eof(); set.MoveNext()) {
    std::string line;
    for (const auto& column : columns) {
      const auto value = set.Fields(column).value();
      line +=
          (&column == columns.data() ? "" : "|") + (value.isNull() ? std::string("NULL") : value.asText());
    }
    lines.push_back(line);
  }
  return lines;
}

}  // namespace varnhold::fakes
