#pragma once

#include "store/bulk_insert.h"
#include "tests/store/contract_fixture.h"

namespace varnhold::store {

TEST_F(InventoryContract, KnowsTheEngineBehindTheDataSource) {
  EXPECT_EQ(connection.engine(), kEngineUnderTest.engine);
  EXPECT_TRUE(connection.isOpen());
}

TEST_F(InventoryContract, AnEmptyTableIsAtBothEndsAtOnce) {
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
  EXPECT_TRUE(rows.Bof());
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(raisedBy([&] { rows.MoveFirst(); }).number, kNoCurrentRow);
  EXPECT_EQ(raisedBy([&] { rows.MoveNext(); }).number, kNoCurrentRow);
  EXPECT_EQ(raisedBy([&] { (void)rows.Fields("System_Name").value(); }).number, kNoCurrentRow);
}

TEST_F(InventoryContract, WalksFromTheFirstRowBehindTheLastAndBack) {
  addSystem("ALPHA", 4);
  addSystem("BETA", 5);
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
  EXPECT_FALSE(rows.Bof());
  EXPECT_EQ(tableOf(rows, {"System_Name", "System_Type"}), (Table{{"ALPHA", "4"}, {"BETA", "5"}}));
  EXPECT_TRUE(rows.Eof());
  EXPECT_FALSE(rows.Bof());
  EXPECT_EQ(raisedBy([&] { rows.MoveNext(); }).number, kNoCurrentRow);
  EXPECT_EQ(raisedBy([&] { (void)rows.Fields("System_Name").value(); }).number, kNoCurrentRow);
  rows.MoveFirst();
  EXPECT_EQ(tableOf(rows, {"System_Name"}).size(), 2u);
}

TEST_F(InventoryContract, FindsAColumnWhateverItsCase) {
  addAgent("ALPHA", 1);
  Recordset rows;
  rows.Open("Module_Table", connection, CursorType::Keyset, LockType::ReadOnly);
  EXPECT_EQ(rows.Fields("AgentLess").value().asInteger(), 0);
  EXPECT_EQ(rows.Fields("MODULE_id").value().asInteger(), 1);
}

TEST_F(InventoryContract, AMissingColumnIsItemNotFound) {
  addAgent("ALPHA", 1);
  Recordset rows;
  rows.Open("Module_Table", connection, CursorType::Keyset, LockType::ReadOnly);
  const Raised raised = raisedBy([&] { (void)rows.Fields("NoSuch"); });
  EXPECT_EQ(raised.number, kItemNotFound);
  EXPECT_NE(raised.description.find("NoSuch"), std::string::npos);
}

TEST_F(InventoryContract, AnOlderDatabaseLacksOnlyTheColumnSystemType) {
  tablesWillNotStand();
  execute("DROP TABLE Module_Table");
  execute("CREATE TABLE Module_Table (System_Name VARCHAR(256), Module_ID INTEGER, Port INTEGER)");
  execute("INSERT INTO Module_Table (System_Name, Module_ID) VALUES ('OLD', 1)");
  Recordset rows;
  rows.Open("Module_Table", connection, CursorType::Keyset, LockType::ReadOnly);
  EXPECT_EQ(raisedBy([&] { (void)rows.Fields("SystemType"); }).number, kItemNotFound);
  EXPECT_EQ(rows.Fields("System_Name").value().asText(), "OLD");
}

TEST_F(InventoryContract, NullIsNoValue) {
  execute(
      "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual) VALUES ('A', 2, 'C:\\T', "
      "0)");
  Recordset rows;
  rows.Open("Module_Table", connection, CursorType::Keyset, LockType::ReadOnly);
  for (const char* column : {"Agentless", "Port"}) {
    EXPECT_TRUE(rows.Fields(column).value().isNull()) << column;
    EXPECT_EQ(raisedBy([&] { (void)rows.Fields(column).value().asInteger(); }).number, kInvalidUseOfNull);
  }
  EXPECT_EQ(rows.Fields("Manual").value(), Value(0));
  EXPECT_EQ(rows.Fields("Install_Directory").value(), Value("C:\\T"));
}

TEST_F(InventoryContract, AnAgentThatHasReportedNoModeIsOneOfStandardMode) {
  execute("INSERT INTO Module_Table (System_Name, Module_ID) VALUES ('A', 1)");
  EXPECT_EQ(tableOf("Module_Table", {"System_Name", "SystemType"}), (Table{{"A", "0"}}));
}

TEST_F(InventoryContract, AnEmptyTextIsNoNull) {
  addSystem("ALPHA");
  EXPECT_EQ(tableOf("System_Table", {"System_Description"}), (Table{{""}}));
}

TEST_F(InventoryContract, AFilterSetBeforeTheFirstRowIsTheOneStatement) {
  addAgent("ALPHA", 1);
  told.clear();
  Recordset rows;
  rows.Open("Module_Table", connection, CursorType::Keyset, LockType::ReadOnly);
  rows.setFilter("(System_Name = 'ALPHA' AND Module_ID = 1)");
  EXPECT_TRUE(told.empty());
  EXPECT_FALSE(rows.Bof());
  EXPECT_FALSE(rows.Eof());
  EXPECT_EQ(told, std::vector<std::string>{
                      "SELECT * FROM Module_Table WHERE (System_Name = 'ALPHA' AND Module_ID = 1)"});
}

TEST_F(InventoryContract, NamesCompareAsExactStrings) {
  addSystem("HOST1");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
  for (const char* other : {"host1", "HOST1 ", " HOST1", "HOST", "H\xC3\x96ST1"}) {
    rows.setFilter("System_Name = '" + std::string(other) + "'");
    EXPECT_TRUE(rows.Eof()) << "'" << other << "'";
  }
  rows.setFilter("System_Name = 'HOST1'");
  EXPECT_FALSE(rows.Eof());
}

TEST_F(InventoryContract, AnotherFilterAsksAnewAndAnEmptyOneIsLifted) {
  addSystem("ALPHA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Dynamic, LockType::ReadOnly);
  rows.setFilter("System_Name = 'BETA'");
  EXPECT_TRUE(rows.Eof());
  addSystem("BETA");
  EXPECT_TRUE(rows.Eof());
  rows.setFilter("System_Name = 'BETA'");
  EXPECT_FALSE(rows.Eof());
  rows.setFilter("");
  EXPECT_EQ(tableOf(rows, {"System_Name"}), (Table{{"ALPHA"}, {"BETA"}}));
}

TEST_F(InventoryContract, RequeryKeepsTheFilterAndGoesToTheFirstRow) {
  addSystem("ALPHA");
  addSystem("HIDDEN", 99999);
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
  rows.setFilter("System_Type <> 99999");
  rows.Requery();
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
  addSystem("BETA");
  rows.Requery();
  EXPECT_EQ(tableOf(rows, {"System_Name"}), (Table{{"ALPHA"}, {"BETA"}}));
}

TEST_F(InventoryContract, AFilterHoldsOnASelectToo) {
  addSystem("ALPHA", 4);
  addSystem("BETA", 5);
  Recordset rows;
  rows.Open("SELECT * FROM System_Table WHERE System_Type = 4 OR System_Type = 5", connection,
            CursorType::Static, LockType::ReadOnly);
  rows.setFilter("System_Name = 'BETA'");
  EXPECT_EQ(tableOf(rows, {"System_Name", "System_Type"}), (Table{{"BETA", "5"}}));
}

TEST_F(InventoryContract, ReadsStatementsWithSquareBracketsAndTellsThemAsWritten) {
  addSystem("ALPHA", 4);
  addSystem("[B]", 4);
  execute("INSERT INTO System_Group (System_Name, Group_Name) VALUES ('ALPHA', 'Servers [all]')");
  execute("INSERT INTO System_Group (System_Name, Group_Name) VALUES ('[B]', 'Servers')");
  const std::string statement =
      "SELECT DISTINCT * FROM System_Group, System_Table WHERE "
      "(System_Group.System_Name=[System_Table].[System_Name]) AND (System_Group.Group_Name='Servers [all]')";
  told.clear();
  EXPECT_EQ(tableOf(statement, {"System_Name", "Group_Name", "System_Type"}),
            (Table{{"ALPHA", "Servers [all]", "4"}}));
  EXPECT_EQ(told, std::vector<std::string>{statement});
}

TEST_F(InventoryContract, OneTableNameMayBeWrittenInTwoWays) {
  addSystem("ALPHA");
  addAgent("ALPHA", 1);
  EXPECT_EQ(tableOf("SELECT * FROM System_Table WHERE System_Name In (Select system_name from module_table)",
                    {"System_Name"}),
            (Table{{"ALPHA"}}));
}

TEST_F(InventoryContract, ReadsWholeNumbersAndNumbers) {
  execute("CREATE TABLE Trial (Whole BIGINT, Part DOUBLE PRECISION)");
  execute("INSERT INTO Trial (Whole, Part) VALUES (-9007199254740993, 1.5)");
  Recordset rows;
  rows.Open("Trial", connection, CursorType::Static, LockType::ReadOnly);
  EXPECT_EQ(rows.Fields("Whole").value(), Value(std::int64_t{-9007199254740993}));
  EXPECT_EQ(rows.Fields("Part").value(), Value(1.5));
}

TEST_F(InventoryContract, TextLongerThanItsColumnIsReadWithComesWhole) {
  execute("CREATE TABLE Trial (Number INTEGER, Content TEXT)");
  BulkInsert trial(connection, "Trial", {"Number", "Content"});
  const std::vector<std::string> long_{std::string(60000, 'x'), "\xC3\xA4" + std::string(5000, 'y')};
  for (int i = 0; i < 1000; ++i)
    trial.add({i, i == 700 ? long_[0] : i == 900 ? long_[1] : std::to_string(i)});
  trial.finish();

  Recordset rows;
  rows.Open("Trial", connection, CursorType::Static, LockType::ReadOnly);
  int seen = 0;
  for (; !rows.Eof(); rows.MoveNext(), ++seen) {
    const auto i = rows.Fields("Number").value().asInteger();
    const std::string expected = i == 700 ? long_[0] : i == 900 ? long_[1] : std::to_string(i);
    ASSERT_EQ(rows.Fields("Content").value().asText(), expected) << i;
  }
  EXPECT_EQ(seen, 1000);
}

TEST_F(InventoryContract, ReadsManyRowsWithOneStatement) {
  BulkInsert systems(connection, "System_Table", {"System_Name", "System_Type", "IP_Address"});
  for (int i = 0; i < 5000; ++i)
    systems.add({"HOST" + std::to_string(i), i, i % 3 == 0 ? Value() : Value("10.0.0.1")});
  systems.finish();
  told.clear();

  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
  std::int64_t sum = 0;
  int empty = 0;
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto type = rows.Fields("System_Type").value().asInteger();
    ASSERT_EQ(rows.Fields("System_Name").value().asText(), "HOST" + std::to_string(type));
    sum += type;
    empty += rows.Fields("IP_Address").value().isNull() ? 1 : 0;
  }
  EXPECT_EQ(sum, 5000 * 4999 / 2);
  EXPECT_EQ(empty, 1667);
  EXPECT_EQ(told, std::vector<std::string>{"SELECT * FROM System_Table"});
}

TEST_F(InventoryContract, TwoConnectionsSeeEachOthersRows) {
  Connection other;
  other.Open("inventory", "", "");
  addSystem("MINE");
  execute(other, "INSERT INTO System_Table (System_Name, System_Type) VALUES ('THEIRS', 7)");
  Recordset rows;
  rows.Open("System_Table", other, CursorType::Static, LockType::ReadOnly);
  EXPECT_EQ(tableOf(rows, {"System_Name"}), (Table{{"MINE"}, {"THEIRS"}}));
  EXPECT_EQ(tableOf("System_Table", {"System_Name"}), (Table{{"MINE"}, {"THEIRS"}}));
}

}  // namespace varnhold::store
