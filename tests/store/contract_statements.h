#pragma once

#include "store/bulk_insert.h"
#include "store/statements.h"
#include "tests/store/contract_fixture.h"

namespace varnhold::store {

namespace st = statements;

TEST_F(InventoryContract, RecordsChangesAndForgetsAnAgent) {
  execute(st::fill(
      st::kAddVarnholdAgent,
      {{"name", "HOST1"}, {"module", 1}, {"path", "%Program Files%\\Varnhold\\"}, {"agentless", 0}}));
  execute(st::fill(st::kAddTessmarkAgent, {{"name", "HOST1"}, {"path", "C:\\T"}}));
  EXPECT_EQ(
      tableOf("Module_Table", {"System_Name", "Module_ID", "Install_Directory", "Manual", "Agentless"}),
      (Table{{"HOST1", "1", "%Program Files%\\Varnhold\\", "0", "0"}, {"HOST1", "2", "C:\\T", "0", "NULL"}}));

  execute(
      st::fill(st::kChangeAgent, {{"name", "HOST1"}, {"module", 1}, {"path", "D:\\new"}, {"agentless", 0}}));
  execute(st::fill(
      st::kSwitchVarnholdAgent,
      {{"name", "HOST1"}, {"module", 5}, {"a", 1}, {"b", 5}, {"path", "D:\\turbo"}, {"agentless", 0}}));
  execute(st::fill(st::kChangeTessmarkAgent, {{"name", "HOST1"}, {"path", "D:\\T"}}));
  EXPECT_EQ(tableOf("Module_Table", {"Module_ID", "Install_Directory"}),
            (Table{{"2", "D:\\T"}, {"5", "D:\\turbo"}}));

  execute(st::fill(st::kForgetVarnholdAgent, {{"name", "HOST1"}}));
  EXPECT_EQ(tableOf("Module_Table", {"Module_ID"}), (Table{{"2"}}));
  execute(st::fill(st::kForgetTessmarkAgent, {{"name", "HOST1"}}));
  EXPECT_TRUE(tableOf("Module_Table", {"Module_ID"}).empty());
}

TEST_F(InventoryContract, RemovesComputersAndGroups) {
  for (const char* name : {"A", "B", "C", "D"}) {
    addSystem(name);
    addAgent(name, 1);
    execute(st::fill(st::kAddGroupMember, {{"name", name}, {"group", "G"}}));
  }
  execute(st::fill(st::kRemoveComputerFromGroups, {{"name", "A"}}));
  execute(st::fill(st::kRemoveComputer, {{"name", "A"}}));
  const std::string list = st::quotedList({"B", "C"});
  execute(st::fill(st::kRemoveComputersFromGroups, {{"list", list}}));
  execute(st::fill(st::kRemoveComputersAgents, {{"list", list}}));
  execute(st::fill(st::kRemoveComputers, {{"list", list}}));
  EXPECT_EQ(tableOf("System_Table", {"System_Name"}), (Table{{"D"}}));
  EXPECT_EQ(tableOf("Module_Table", {"System_Name"}), (Table{{"A"}, {"D"}}));
  EXPECT_EQ(tableOf("System_Group", {"System_Name"}), (Table{{"D"}}));

  execute("INSERT INTO System_Group_Master (Group_Name, Auto) VALUES ('G', 0)");
  execute("INSERT INTO System_Group_Detail (Group_Name, OS_Type) VALUES ('G', 0)");
  execute(st::fill(st::kRemoveGroupMembers, {{"group", "G"}}));
  execute(st::fill(st::kRemoveGroupRule, {{"group", "G"}}));
  execute(st::fill(st::kRemoveGroup, {{"group", "G"}}));
  for (const char* table : {"System_Group", "System_Group_Detail", "System_Group_Master"}) {
    EXPECT_TRUE(tableOf(table, {"Group_Name"}).empty()) << table;
  }
}

TEST_F(InventoryContract, ReadsGroupsWithTheirMembersAndRules) {
  addSystem("A", 5);
  execute(st::fill(st::kAddGroupMember, {{"name", "A"}, {"group", "G"}}));
  execute("INSERT INTO System_Group_Master (Group_Name, Description, Auto) VALUES ('G', 'All servers', 0)");
  execute("INSERT INTO System_Group_Detail (Group_Name, OS_Type, Domain) VALUES ('G', 5, 'CORP')");
  EXPECT_EQ(tableOf(st::fill(st::kGroupMembers, {{"group", "G"}}), {"System_Name", "System_Type"}),
            (Table{{"A", "5"}}));
  EXPECT_EQ(tableOf(st::fill(st::kGroupWithRule, {{"group", "G"}}), {"Group_Name", "Description", "Domain"}),
            (Table{{"G", "All servers", "CORP"}}));
  EXPECT_EQ(tableOf(std::string(st::kRefreshedGroups), {"Group_Name"}), (Table{{"G"}}));
  EXPECT_EQ(tableOf(st::fill(st::kGroupRule, {{"group", "G"}}), {"OS_Type"}), (Table{{"5"}}));
  EXPECT_EQ(tableOf(std::string(st::kServers), {"System_Name"}), (Table{{"A"}}));
  EXPECT_TRUE(tableOf(std::string(st::kWorkstations), {"System_Name"}).empty());
  EXPECT_TRUE(tableOf(std::string(st::kOldWindowsComputers), {"System_Name"}).empty());
  EXPECT_EQ(tableOf(std::string(st::kSubnetCandidates), {"System_Name"}), (Table{{"A"}}));
}

TEST_F(InventoryContract, KeysAreUniqueWhereOneRowIsMeantAndNowhereElse) {
  addSystem("A");
  EXPECT_EQ(raisedBy([&] { addSystem("A"); }).number, kDatabaseFailed);
  const char* master = "INSERT INTO System_Group_Master (Group_Name, Auto) VALUES ('G', 0)";
  execute(master);
  EXPECT_EQ(raisedBy([&] { execute(master); }).number, kDatabaseFailed);
  const char* member = "INSERT INTO System_Group (System_Name, Group_Name) VALUES ('A', 'G')";
  execute(member);
  EXPECT_EQ(raisedBy([&] { execute(member); }).number, kDatabaseFailed);
  execute("INSERT INTO System_Group (System_Name, Group_Name) VALUES ('A', 'H')");
  for (int i = 0; i < 2; ++i) {
    addAgent("A", 1);
    execute("INSERT INTO System_Group_Detail (Group_Name, OS_Type) VALUES ('G', 0)");
  }
  EXPECT_EQ(tableOf("Module_Table", {"System_Name"}).size(), 2u);
  EXPECT_EQ(tableOf("System_Group_Detail", {"Group_Name"}).size(), 2u);
}

TEST_F(InventoryContract, ANameWithAnApostropheBreaksTheStatement) {
  addSystem("O");
  const Raised raised = raisedBy([&] { execute(st::fill(st::kRemoveComputer, {{"name", "O'BRIEN"}})); });
  EXPECT_EQ(raised.number, kStatementRefused);
  EXPECT_NE(raised.description.find("SQLSTATE"), std::string::npos) << raised.description;
  EXPECT_EQ(raised.description.find('\n'), std::string::npos) << raised.description;
  EXPECT_EQ(raisedBy([&] {
              execute(st::fill(st::kRemoveComputer, {{"name", "O'BR?EN?"}}));
            }).number,
            kStatementRefused);
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
  rows.setFilter(st::fill(st::kSystemNameFilter, {{"name", "O'BRIEN"}}));
  EXPECT_EQ(raisedBy([&] { (void)rows.Eof(); }).number, kStatementRefused);
  rows.setFilter("");
  EXPECT_EQ(tableOf(rows, {"System_Name"}), (Table{{"O"}}));
}

TEST_F(InventoryContract, WhatIsNoSqlOrNamesNoTableIsRefused) {
  EXPECT_EQ(raisedBy([&] { execute("SELEKT"); }).number, kStatementRefused);
  EXPECT_EQ(raisedBy([&] { execute("DELETE FROM No_Such_Table"); }).number, kStatementRefused);
  Recordset rows;
  rows.Open("No_Such_Table", connection, CursorType::Static, LockType::ReadOnly);
  EXPECT_EQ(raisedBy([&] { (void)rows.Eof(); }).number, kStatementRefused);
  EXPECT_EQ(raisedBy([&] { createTables(connection); }).number, kStatementRefused);
}

TEST_F(InventoryContract, NamesWithMarksThatOdbcKnowsStayAsTheyAre) {
  for (const char* name : {"a?b", "{fn now()}", "a%b_c", "a\"b", "[a]", "a--b", "C:\\", "a;b"}) {
    addSystem(name);
    EXPECT_EQ(tableOf("SELECT * FROM System_Table WHERE System_Name = '" + std::string(name) + "'",
                      {"System_Name"}),
              (Table{{name}}));
  }
}

TEST_F(InventoryContract, LettersOfAllKindsComeBackAsTheyWent) {
  const std::string& letters = kEngineUnderTest.letters;
  addSystem(letters);
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.setFilter(st::fill(st::kSystemNameFilter, {{"name", letters}}));
  ASSERT_FALSE(rows.Eof());
  EXPECT_EQ(rows.Fields("System_Name").value(), Value(letters));
  rows.Fields("System_Description").setValue(letters + letters);
  rows.Update();
  rows.Requery();
  EXPECT_EQ(rows.Fields("System_Description").value(), Value(letters + letters));
  const Raised raised = raisedBy([&] { execute("SELECT * FROM " + letters + " WHERE '"); });
  EXPECT_EQ(raised.number, kStatementRefused);
}

TEST_F(InventoryContract, AVeryLongNameIsStoredWholeOrRefusedWhole) {
  const std::string name(1000, 'N');
  const Raised raised = raisedBy([&] { addSystem(name); });
  EXPECT_EQ(tableOf("System_Table", {"System_Name"}), raised.number == 0 ? Table{{name}} : Table{});
  const std::string widest(256, 'W');
  addSystem(widest);
  EXPECT_EQ(tableOf("SELECT * FROM System_Table WHERE System_Name = '" + widest + "'", {"System_Name"}),
            (Table{{widest}}));
}

TEST_F(InventoryContract, ANulNeverCutsAStatementOrAValue) {
  addSystem("A");
  using namespace std::string_literals;
  const Raised raised = raisedBy([&] { execute("DELETE FROM System_Table\0 WHERE System_Name = 'B'"s); });
  EXPECT_EQ(raised.number, kStatementRefused);
  EXPECT_EQ(raised.description, "The statement holds a NUL character, which no database takes.");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.AddNew();
  rows.Fields("System_Name").setValue("B\0C"s);
  EXPECT_EQ(raisedBy([&] { rows.Update(); }).number, kStatementRefused);
  EXPECT_EQ(tableOf("System_Table", {"System_Name"}), (Table{{"A"}}));
}

TEST_F(InventoryContract, WhatIsClosedRaisesObjectClosed) {
  Recordset rows, unopened;
  rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
  EXPECT_TRUE(rows.Eof());
  connection.Close();
  EXPECT_FALSE(connection.isOpen());
  EXPECT_EQ(raisedBy([&] { (void)rows.Eof(); }).number, kObjectClosed);
  EXPECT_EQ(raisedBy([&] { rows.Requery(); }).number, kObjectClosed);
  EXPECT_EQ(raisedBy([&] { (void)unopened.Bof(); }).number, kObjectClosed);
  EXPECT_EQ(raisedBy([&] { execute("DELETE FROM System_Table"); }).number, kObjectClosed);
  EXPECT_EQ(
      raisedBy([&] { rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly); }).number,
      kObjectClosed);
  EXPECT_EQ(raisedBy([] { Command().Execute(); }).number, kObjectClosed);
  connection.Open("inventory", "", "");
  EXPECT_EQ(raisedBy([&] { (void)rows.Eof(); }).number, kObjectClosed);
  EXPECT_TRUE(tableOf("System_Table", {"System_Name"}).empty());
}

TEST_F(InventoryContract, ASetMayOutliveItsConnection) {
  addSystem("A");
  Recordset rows;
  {
    Connection other;
    other.Open("inventory", "", "");
    rows.Open("System_Table", other, CursorType::Keyset, LockType::Optimistic);
    rows.Fields("System_Type").setValue(5);
  }
  EXPECT_EQ(raisedBy([&] { rows.Update(); }).number, kObjectClosed);
  rows.Close();
}

TEST_F(InventoryContract, AnUnknownDataSourceIsNamed) {
  Connection other;
  const Raised raised = raisedBy([&] { other.Open("no such source", "someone", "s3cret word"); });
  EXPECT_EQ(raised.number, kDatabaseFailed);
  EXPECT_NE(raised.description.find("The data source 'no such source' can't be opened: "), std::string::npos);
  EXPECT_EQ(raised.description.find("s3cret"), std::string::npos);
  EXPECT_FALSE(other.isOpen());
  other.Open("inventory", "", "");
  EXPECT_TRUE(other.isOpen());
}

TEST_F(InventoryContract, ATransactionIsDoneAsAWholeOrNotAtAll) {
  for (const bool committed : {false, true}) {
    Transaction transaction(connection);
    BulkInsert systems(connection, "System_Table", {"System_Name", "System_Type", "IP_Address"});
    for (int i = 0; i < 1200; ++i) systems.add({"O'HOST" + std::to_string(i), i, Value()});
    systems.finish();
    if (committed) transaction.commit();
  }
  EXPECT_EQ(tableOf("System_Table", {"System_Name"}).size(), 1200u);
  EXPECT_EQ(
      tableOf("SELECT * FROM System_Table WHERE System_Name = 'O''HOST1199'", {"System_Type", "IP_Address"}),
      (Table{{"1199", "NULL"}}));
}

}  // namespace varnhold::store
