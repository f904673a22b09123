#pragma once

#include "tests/store/contract_fixture.h"

namespace varnhold::store {

TEST_F(InventoryContract, AddsARowWithNullWhereNothingWasSet) {
  Recordset rows;
  rows.Open("System_Group_Detail", connection, CursorType::Dynamic, LockType::Optimistic);
  rows.AddNew();
  rows.Fields("Group_Name").setValue("Servers");
  rows.Fields("OS_Type").setValue(5);
  EXPECT_TRUE(rows.Fields("Domain").value().isNull());
  rows.Update();
  EXPECT_FALSE(rows.Eof());
  EXPECT_EQ(rows.Fields("Group_Name").value(), Value("Servers"));
  EXPECT_EQ(tableOf("System_Group_Detail", {"Group_Name", "OS_Type", "IP_Subnet", "Domain"}),
            (Table{{"Servers", "5", "NULL", "NULL"}}));
}

TEST_F(InventoryContract, AddingToATableReadsNoneOfItsRows) {
  execute("INSERT INTO System_Group (System_Name, Group_Name) VALUES ('OLD', 'Old group')");
  told.clear();
  Recordset rows;
  rows.Open("System_Group", connection, CursorType::Dynamic, LockType::Optimistic);
  for (const char* name : {"ALPHA", "BETA"}) {
    rows.AddNew();
    rows.Fields("Group_Name").setValue("Mine");
    rows.Fields("System_Name").setValue(name);
  }
  rows.Update();
  ASSERT_EQ(told.size(), 3u);
  EXPECT_EQ(told[0], "SELECT * FROM System_Group WHERE 1 = 0");
  EXPECT_EQ(told[1].substr(0, 25), "INSERT INTO System_Group ");
  EXPECT_EQ(told[2], told[1]);
  EXPECT_EQ(rows.Fields("System_Name").value(), Value("BETA"));
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
  rows.MoveFirst();
  EXPECT_EQ(tableOf(rows, {"System_Name"}), (Table{{"ALPHA"}, {"BETA"}, {"OLD"}}));
}

TEST_F(InventoryContract, TheNextAddNewCommitsTheRowBefore) {
  Recordset rows;
  rows.Open("System_Group", connection, CursorType::Dynamic, LockType::Optimistic);
  for (const char* name : {"A", "B", "C"}) {
    rows.AddNew();
    rows.Fields("Group_Name").setValue("G");
    rows.Fields("System_Name").setValue(name);
  }
  EXPECT_EQ(tableOf("System_Group", {"System_Name"}), (Table{{"A"}, {"B"}}));
  rows.Update();
  EXPECT_EQ(tableOf("System_Group", {"System_Name"}), (Table{{"A"}, {"B"}, {"C"}}));
}

TEST_F(InventoryContract, CloseGivesUpARowThatIsBeingAdded) {
  Recordset rows;
  rows.Open("System_Group", connection, CursorType::Dynamic, LockType::Optimistic);
  rows.AddNew();
  rows.Fields("Group_Name").setValue("G");
  rows.Close();
  EXPECT_TRUE(tableOf("System_Group", {"Group_Name"}).empty());
  EXPECT_EQ(raisedBy([&] { rows.Update(); }).number, kObjectClosed);
}

TEST_F(InventoryContract, UpdateChangesTheCurrentRowAlone) {
  addSystem("ALPHA");
  addSystem("BETA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.setFilter("System_Name = 'BETA'");
  rows.Fields("System_Description").setValue("O'Brien's \"mail\" server \\");
  EXPECT_EQ(rows.Fields("System_Description").value(), Value("O'Brien's \"mail\" server \\"));
  rows.Update();
  rows.Fields("IP_Address").setValue(Value());
  rows.Update();
  EXPECT_EQ(tableOf("System_Table", {"System_Name", "IP_Address", "System_Description"}),
            (Table{{"ALPHA", "10.0.0.1", ""}, {"BETA", "NULL", "O'Brien's \"mail\" server \\"}}));
}

TEST_F(InventoryContract, UpdateWithTheSameValuesAsksTheEngineNothing) {
  addSystem("ALPHA", 7);
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.Fields("System_Type").setValue("7");
  told.clear();
  rows.Update();
  EXPECT_TRUE(told.empty());
}

TEST_F(InventoryContract, MovingOnWritesTheChangedRow) {
  addSystem("ALPHA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.Fields("System_Description").setValue("moved");
  rows.MoveNext();
  EXPECT_EQ(tableOf("System_Table", {"System_Description"}), (Table{{"moved"}}));
}

TEST_F(InventoryContract, UpdateChangesOneOfEqualRows) {
  for (int i = 0; i < 3; ++i) addAgent("TWIN", 1);
  Recordset rows;
  rows.Open("Module_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.setFilter("System_Name = 'TWIN'");
  rows.Fields("Port").setValue(1234);
  rows.Update();
  EXPECT_EQ(tableOf("Module_Table", {"Port"}), (Table{{"1234"}, {"NULL"}, {"NULL"}}));
}

TEST_F(InventoryContract, DeleteTakesOneOfEqualRows) {
  for (int i = 0; i < 3; ++i) addAgent("TWIN", 1);
  Recordset rows;
  rows.Open("Module_Table", connection, CursorType::Dynamic, LockType::Optimistic);
  rows.setFilter("System_Name = 'TWIN'");
  rows.Requery();
  rows.Delete();
  EXPECT_EQ(tableOf("Module_Table", {"System_Name"}).size(), 2u);
}

TEST_F(InventoryContract, ADeletedRowIsLeftByTheNextMove) {
  addSystem("ALPHA");
  addSystem("BETA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.Delete();
  EXPECT_FALSE(rows.Eof());
  EXPECT_EQ(raisedBy([&] { (void)rows.Fields("System_Name").value(); }).number, kNoCurrentRow);
  EXPECT_EQ(raisedBy([&] { rows.Delete(); }).number, kNoCurrentRow);
  rows.MoveNext();
  const std::string left = rows.Fields("System_Name").value().asText();
  EXPECT_EQ(tableOf("System_Table", {"System_Name"}), (Table{{left}}));
  rows.MoveFirst();
  EXPECT_EQ(rows.Fields("System_Name").value(), Value(left));
  rows.Delete();
  rows.MoveNext();
  EXPECT_TRUE(rows.Bof());
  EXPECT_TRUE(rows.Eof());
}

TEST_F(InventoryContract, ARowThatSomeoneElseChangedIsNotOverwritten) {
  addSystem("ALPHA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  EXPECT_FALSE(rows.Eof());
  Connection other;
  other.Open("inventory", "", "");
  execute(other, "UPDATE System_Table SET System_Description = 'theirs' WHERE System_Name = 'ALPHA'");
  rows.Fields("System_Description").setValue("mine");
  const Raised raised = raisedBy([&] { rows.Update(); });
  EXPECT_EQ(raised.number, kDatabaseFailed);
  EXPECT_EQ(raised.description,
            "The row of System_Table was changed or deleted by someone else since it was read. Read it anew "
            "and try "
            "again.");
  EXPECT_EQ(raisedBy([&] { rows.Delete(); }).number, kDatabaseFailed);
  EXPECT_EQ(tableOf("System_Table", {"System_Description"}), (Table{{"theirs"}}));
  rows.Requery();
  rows.Fields("System_Description").setValue("mine");
  rows.Update();
  EXPECT_EQ(tableOf("System_Table", {"System_Description"}), (Table{{"mine"}}));
}

TEST_F(InventoryContract, ARowThatSomeoneElseDeletedIsNotWritten) {
  addSystem("ALPHA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  EXPECT_FALSE(rows.Eof());
  execute("DELETE FROM System_Table");
  rows.Fields("System_Description").setValue("mine");
  EXPECT_EQ(raisedBy([&] { rows.Update(); }).number, kDatabaseFailed);
  EXPECT_TRUE(tableOf("System_Table", {"System_Name"}).empty());
}

TEST_F(InventoryContract, RowsOpenedForReadingAreNotWritten) {
  addSystem("ALPHA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
  EXPECT_EQ(raisedBy([&] { rows.AddNew(); }).number, kRowsAreReadOnly);
  EXPECT_EQ(raisedBy([&] { rows.Fields("System_Name").setValue("B"); }).number, kRowsAreReadOnly);
  EXPECT_EQ(raisedBy([&] { rows.Delete(); }).number, kRowsAreReadOnly);
  rows.Open("SELECT * FROM System_Table", connection, CursorType::Static, LockType::Optimistic);
  EXPECT_EQ(raisedBy([&] { rows.Delete(); }).number, kRowsAreReadOnly);
  EXPECT_EQ(tableOf("System_Table", {"System_Name"}), (Table{{"ALPHA"}}));
}

TEST_F(InventoryContract, TextInAColumnOfNumbersIsATypeMismatch) {
  Recordset rows;
  rows.Open("Module_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.AddNew();
  EXPECT_EQ(raisedBy([&] { rows.Fields("Module_ID").setValue("one"); }).number, kTypeMismatch);
  rows.Fields("Module_ID").setValue(" 5 ");
  EXPECT_EQ(rows.Fields("Module_ID").value(), Value(5));
}

TEST_F(InventoryContract, EditsRowsWhileAnotherSetAndACommandAreAtWork) {
  for (int i = 0; i < 20; ++i) addSystem("HOST" + std::to_string(i), 4);
  Recordset systems, groups;
  systems.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  groups.Open("System_Group", connection, CursorType::Static, LockType::ReadOnly);
  for (; !systems.Eof(); systems.MoveNext()) {
    const std::string name = systems.Fields("System_Name").value().asText();
    groups.setFilter("System_Name = '" + name + "' AND Group_Name = 'G'");
    if (groups.Eof())
      execute("INSERT INTO System_Group (System_Name, Group_Name) VALUES ('" + name + "', 'G')");
    systems.Fields("System_Description").setValue("of G: " + name);
    systems.Update();
  }
  EXPECT_EQ(tableOf("System_Group", {"System_Name"}).size(), 20u);
  EXPECT_EQ(tableOf("SELECT * FROM System_Table WHERE System_Description = 'of G: HOST7'", {"System_Name"}),
            (Table{{"HOST7"}}));
}

TEST_F(InventoryContract, AnEditThatTheEngineRefusesIsGivenUp) {
  addSystem("ALPHA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  rows.AddNew();
  rows.Fields("System_Name").setValue("ALPHA");
  EXPECT_EQ(raisedBy([&] { rows.Update(); }).number, kDatabaseFailed);
  rows.MoveFirst();
  EXPECT_EQ(tableOf(rows, {"System_Name"}), (Table{{"ALPHA"}}));
}

}  // namespace varnhold::store
