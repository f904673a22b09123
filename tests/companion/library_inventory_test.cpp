// The library's own connection to the inventory, beside another one.
#include <gtest/gtest.h>

#include "store/recordset.h"
#include "tests/companion/library_home.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::companion::test {
namespace {

std::string rowOf(const std::string& filter) {
  store::Connection connection;
  connection.Open("qrvdb", "", "");
  store::Recordset rows;
  rows.Open("System_Table", connection, store::CursorType::Static, store::LockType::ReadOnly);
  rows.setFilter(filter);
  if (rows.Eof()) return "none";
  std::string text;
  for (const char* column : {"System_Name", "System_Type", "IP_Address", "System_Description"})
    text += rows.Fields(column).value().asText() + "|";
  rows.MoveNext();
  return rows.Eof() ? text : text + " and more";
}

platform::SystemDetails details(const std::string& name, std::int32_t type, const std::string& description,
                                const std::string& address) {
  platform::SystemDetails record;
  record.SystemName = name;
  record.SystemType = type;
  record.DetailsText1 = description;
  record.DetailsText2 = address;
  return record;
}

class LibraryInventory : public testing::Test {
 protected:
  ~LibraryInventory() override { home_.host().libraries().qrvCloseDbConnection(); }

  bool store(platform::SystemDetails record) {
    return home_.host().libraries().qrvUpdateSystemDetailsInDB(record);
  }

  fakes::TestInventory inventory_;
  LibraryHome home_;
};

TEST_F(LibraryInventory, GetsASecondLookAtASystem) {
  home_.lab().addHost("WKS01", "[host]\naddress=10.1.1.11\ntype=7\ndescription=Desk\n");
  ASSERT_TRUE(store(details("WKS01", 0, "", "")));
  home_.host().libraries().qrvNetOpGetSystem("WKS01");
  EXPECT_EQ(rowOf("System_Name = 'WKS01'"), "WKS01|7|10.1.1.11|Desk|");
  home_.lab().addHost("WKS01", "[host]\ntype=9\nanswers=no\n");
  home_.host().libraries().qrvNetOpGetSystem("WKS01");
  home_.host().libraries().qrvNetOpGetSystem("NOBODY");
  EXPECT_EQ(rowOf("System_Name = 'WKS01'"), "WKS01|7|10.1.1.11|Desk|");
  EXPECT_EQ(rowOf("System_Name = 'NOBODY'"), "none");
}

TEST_F(LibraryInventory, GetsNewSystemsAndIsBroughtUpToDate) {
  home_.lab().addHost("WKS01", "[host]\naddress=10.1.1.11\ntype=7\ndescription=Desk\n");
  platform::SystemDetails found;
  found.SystemName = "WKS01";
  ASSERT_TRUE(home_.host().libraries().qrvFindSystemAndReturnDetails(found));
  EXPECT_TRUE(store(found));
  EXPECT_EQ(rowOf("System_Name = 'WKS01'"), "WKS01|7|10.1.1.11|Desk|");

  EXPECT_TRUE(store(details("WKS02", 4, "", "")));
  EXPECT_EQ(rowOf("System_Name = 'WKS02'"), "WKS02|4|||");
  EXPECT_TRUE(store(details("WKS02", 16, "File server", "10.1.1.12")));
  EXPECT_EQ(rowOf("System_Name = 'WKS02'"), "WKS02|16|10.1.1.12|File server|");
  // What a person wrote stays.
  EXPECT_TRUE(store(details("WKS02", 16, "Other words", "10.1.1.12")));
  EXPECT_EQ(rowOf("System_Name = 'WKS02'"), "WKS02|16|10.1.1.12|File server|");

  const std::string hostile = "O'HARA'; DROP TABLE System_Table; --";
  EXPECT_TRUE(store(details(hostile, 4, "It's his", "")));
  EXPECT_TRUE(store(details(hostile, 6, "It's his", "")));
  EXPECT_EQ(rowOf("System_Name LIKE 'O%'"), hostile + "|6||It's his|");
  // Names compare as exact strings.
  EXPECT_TRUE(store(details("wks02", 4, "", "")));
  EXPECT_EQ(rowOf("System_Name = 'WKS02'"), "WKS02|16|10.1.1.12|File server|");
  EXPECT_FALSE(store(details("", 4, "", "")));

  inventory_.execute("DROP TABLE System_Table");
  EXPECT_FALSE(store(details("WKS03", 4, "", "")));
}

}  // namespace
}  // namespace varnhold::companion::test
