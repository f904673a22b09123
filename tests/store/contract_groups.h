#pragma once

#include <random>

#include "store/auto_groups.h"
#include "store/bulk_insert.h"
#include "store/statements.h"
#include "tests/store/contract_fixture.h"

namespace varnhold::store {

/// What `RefreshAutoGroups` writes, and which statements it asks for.
class AutoGroupsContract : public InventoryContract {
 protected:
  struct System {
    std::string name;
    int type = 7;
    std::string address = "10.0.0.1";
  };

  void addSystems(const std::vector<System>& systems) {
    for (const auto& [name, type, address] : systems) {
      execute("INSERT INTO System_Table (System_Name, System_Type, IP_Address) VALUES ('" + escaped(name) +
              "', " + std::to_string(type) + ", " +
              (address == "NULL" ? address : "'" + escaped(address) + "'") + ")");
    }
  }
  void addGroup(const std::string& name, int osType, const std::string& subnet, int isAuto = 0) {
    execute("INSERT INTO System_Group_Master (Group_Name, Auto) VALUES ('" + escaped(name) + "', " +
            std::to_string(isAuto) + ")");
    execute("INSERT INTO System_Group_Detail (Group_Name, OS_Type, IP_Subnet) VALUES ('" + escaped(name) +
            "', " + std::to_string(osType) + ", '" + subnet + "')");
  }
  void addMember(const std::string& system, const std::string& group) {
    execute("INSERT INTO System_Group (System_Name, Group_Name) VALUES ('" + escaped(system) + "', '" +
            escaped(group) + "')");
  }
  static std::string escaped(std::string text) {
    for (std::size_t at = 0; (at = text.find('\'', at)) != std::string::npos; at += 2) text.insert(at, "'");
    return text;
  }

  /// Refreshes, and gives the statements it asked for but for those that only hold rows together.
  std::vector<std::string> refresh() {
    told.clear();
    EXPECT_TRUE(RefreshAutoGroups(connection, belongs));
    std::vector<std::string> statements;
    for (const std::string& statement : told) {
      const std::string verb = statement.substr(0, statement.find(' '));
      if (verb == "SELECT" || verb == "INSERT") statements.push_back(statement);
    }
    return statements;
  }
  Table members() { return tableOf("System_Group", {"Group_Name", "System_Name"}); }

  static std::string insertOf(const std::string& name, const std::string& group) {
    return "INSERT INTO System_Group (System_Name, Group_Name) VALUES ('" + name + "', '" + group + "')";
  }

  static constexpr const char* kGroups = "SELECT * FROM System_Group_Master WHERE Auto = 0";
  static constexpr const char* kOld =
      "SELECT * FROM System_Table WHERE System_Type = 2 OR System_Type = 3 OR System_Type = 13";
  static constexpr const char* kWorkstation =
      "SELECT * FROM System_Table WHERE System_Type = 4 OR System_Type = 6 OR System_Type = 10 OR "
      "System_Type "
      "= 11 OR System_Type = 15";
  static constexpr const char* kServer =
      "SELECT * FROM System_Table WHERE System_Type = 5 OR System_Type = 7 OR System_Type = 8 OR System_Type "
      "= "
      "9 OR System_Type = 14 OR System_Type = 16";
  static constexpr const char* kAll = "SELECT * FROM System_Table Where System_Type <> 99999";

  /// The pairs that were asked about.
  std::vector<std::string> asked;
  BelongsToSubnet belongs = [this](const std::string& address, const std::string& subnet) {
    asked.push_back(address + " in " + subnet);
    return !address.empty() && address.substr(0, address.rfind('.')) == subnet.substr(0, subnet.rfind('.'));
  };
};

TEST_F(AutoGroupsContract, AClassOfComputersIsFilledWithDocumentedStatements) {
  addSystems({{"A", 4}, {"B", 15}});
  addGroup("Desks", 4, "");
  EXPECT_EQ(refresh(), (std::vector<std::string>{
                           kGroups, "SELECT * FROM System_Group_Detail WHERE Group_Name = 'Desks'",
                           kWorkstation, "SELECT System_Name FROM System_Group WHERE Group_Name = 'Desks'",
                           insertOf("A", "Desks"), insertOf("B", "Desks")}));
  EXPECT_EQ(members(), (Table{{"Desks", "A"}, {"Desks", "B"}}));
}

TEST_F(AutoGroupsContract, EachClassTakesItsTypesAndNoOthers) {
  std::vector<System> systems;
  for (const int type : {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14, 15, 16, 12, 101, 301, 99999})
    systems.push_back({"T" + std::to_string(type), type});
  addSystems(systems);
  addGroup("Old", 2, "");
  addGroup("Desks", 4, "");
  addGroup("Servers", 5, "");
  const auto statements = refresh();
  for (const char* statement : {kOld, kWorkstation, kServer})
    EXPECT_EQ(std::count(statements.begin(), statements.end(), statement), 1) << statement;
  EXPECT_EQ(members(), (Table{{"Desks", "T10"},
                              {"Desks", "T11"},
                              {"Desks", "T15"},
                              {"Desks", "T4"},
                              {"Desks", "T6"},
                              {"Old", "T13"},
                              {"Old", "T2"},
                              {"Old", "T3"},
                              {"Servers", "T14"},
                              {"Servers", "T16"},
                              {"Servers", "T5"},
                              {"Servers", "T7"},
                              {"Servers", "T8"},
                              {"Servers", "T9"}}));
}

TEST_F(AutoGroupsContract, AnyOtherClassThanTheFirstTwoIsServers) {
  addSystems({{"SERVER", 5}, {"DESK", 4}, {"OLD", 2}});
  addGroup("Odd", 77, "");
  refresh();
  EXPECT_EQ(members(), (Table{{"Odd", "SERVER"}}));
}

TEST_F(AutoGroupsContract, ASubnetIsFilledWithDocumentedStatements) {
  addSystems({{"A", 101, "10.1.1.5"}, {"B", 301, "10.1.2.5"}, {"C", 99999, "10.1.1.6"}});
  addGroup("Floor", 0, "10.1.1.0");
  EXPECT_EQ(refresh(),
            (std::vector<std::string>{kGroups, "SELECT * FROM System_Group_Detail WHERE Group_Name = 'Floor'",
                                      kAll, "SELECT System_Name FROM System_Group WHERE Group_Name = 'Floor'",
                                      insertOf("A", "Floor")}));
  EXPECT_EQ(members(), (Table{{"Floor", "A"}}));
  EXPECT_EQ(asked, (std::vector<std::string>{"10.1.1.5 in 10.1.1.0", "10.1.2.5 in 10.1.1.0"}));
}

TEST_F(AutoGroupsContract, AComputerWithoutAnAddressIsAskedAboutWithAnEmptyOne) {
  addSystems({{"A", 7, ""}, {"B", 7, "NULL"}});
  addGroup("Floor", 0, "10.1.1.0");
  refresh();
  EXPECT_EQ(asked, (std::vector<std::string>{" in 10.1.1.0", " in 10.1.1.0"}));
  EXPECT_TRUE(members().empty());
}

TEST_F(AutoGroupsContract, ARuleOfBothKindsAddsBothSets) {
  addSystems({{"A", 7, "10.9.9.9"}, {"B", 101, "10.1.1.5"}, {"C", 7, "10.1.1.6"}});
  addGroup("Both", 5, "10.1.1.0");
  const auto statements = refresh();
  EXPECT_EQ(std::count(statements.begin(), statements.end(), kServer), 1);
  EXPECT_EQ(std::count(statements.begin(), statements.end(), kAll), 1);
  EXPECT_EQ(members(), (Table{{"Both", "A"}, {"Both", "B"}, {"Both", "C"}}));
}

TEST_F(AutoGroupsContract, AGroupPickedByHandGetsNothing) {
  addSystems({{"A", 7}});
  addGroup("Hand", 0, "");
  EXPECT_EQ(refresh(), (std::vector<std::string>{
                           kGroups, "SELECT * FROM System_Group_Detail WHERE Group_Name = 'Hand'"}));
  EXPECT_TRUE(members().empty());
}

TEST_F(AutoGroupsContract, AGroupWithoutARuleAndOneThatIsNotForRefreshAreLeftAlone) {
  addSystems({{"A", 7}});
  execute("INSERT INTO System_Group_Master (Group_Name, Auto) VALUES ('Bare', 0)");
  addGroup("Other", 5, "", 1);
  EXPECT_EQ(refresh(), (std::vector<std::string>{
                           kGroups, "SELECT * FROM System_Group_Detail WHERE Group_Name = 'Bare'"}));
  EXPECT_TRUE(members().empty());
}

TEST_F(AutoGroupsContract, ARuleWithNullsIsNoRule) {
  addSystems({{"A", 7}});
  execute("INSERT INTO System_Group_Master (Group_Name, Auto) VALUES ('G', 0)");
  execute("INSERT INTO System_Group_Detail (Group_Name) VALUES ('G')");
  refresh();
  EXPECT_TRUE(members().empty());
}

TEST_F(AutoGroupsContract, MembersStayAndAreNotAddedTwice) {
  addSystems({{"A", 7}, {"B", 5}});
  addGroup("G", 5, "");
  addMember("A", "G");
  addMember("LEFT", "G");
  const auto statements = refresh();
  EXPECT_EQ(statements.back(), insertOf("B", "G"));
  EXPECT_EQ(std::count(statements.begin(), statements.end(), insertOf("A", "G")), 0);
  EXPECT_EQ(members(), (Table{{"G", "A"}, {"G", "B"}, {"G", "LEFT"}}));
}

TEST_F(AutoGroupsContract, TwoGroupsThatCoverAComputerEachGetTheirOwnRow) {
  addSystems({{"A", 7, "10.1.1.5"}});
  addGroup("Servers", 5, "");
  addGroup("Floor", 0, "10.1.1.0");
  refresh();
  EXPECT_EQ(members(), (Table{{"Floor", "A"}, {"Servers", "A"}}));
}

TEST_F(AutoGroupsContract, AnInsertThatFailsLeavesOutItsComputerAlone) {
  std::vector<System> systems;
  for (int i = 0; i < 30; ++i) systems.push_back({(i == 7 ? "O'HARA" : "PC") + std::to_string(i), 7});
  addSystems(systems);
  addGroup("G", 5, "");
  refresh();
  const Table rows = members();
  EXPECT_EQ(rows.size(), 29u);
  EXPECT_EQ(std::count(rows.begin(), rows.end(), std::vector<std::string>{"G", "O'HARA7"}), 0);
}

TEST_F(AutoGroupsContract, AGroupWhoseNameBreaksTheStatementsIsPassedOver) {
  addSystems({{"A", 7}});
  addGroup("It's", 5, "");
  addGroup("Z", 5, "");
  refresh();
  EXPECT_EQ(members(), (Table{{"Z", "A"}}));
}

TEST_F(AutoGroupsContract, ASubnetFunctionThatFailsAddsNobody) {
  addSystems({{"A", 7}, {"B", 7}});
  addGroup("Floor", 0, "10.1.1.0");
  belongs = [](const std::string&, const std::string&) -> bool { throw RuntimeError(53, "no library"); };
  refresh();
  EXPECT_TRUE(members().empty());
}

TEST_F(AutoGroupsContract, ATableThatIsMissingIsPassedOver) {
  addSystems({{"A", 7}});
  addGroup("G", 5, "");
  tablesWillNotStand();
  execute("DROP TABLE System_Table");
  EXPECT_EQ(refresh().back(), kServer);
  execute("DROP TABLE System_Group_Master");
  EXPECT_EQ(refresh(), (std::vector<std::string>{kGroups}));
}

TEST_F(AutoGroupsContract, MoreComputersThanGoInTogetherAllGetTheirRow) {
  {
    Transaction whole(connection);
    BulkInsert systems(connection, "System_Table", {"System_Name", "System_Type"});
    for (int i = 0; i < 2'345; ++i) systems.add({"PC" + std::to_string(i), 7});
    systems.finish();
    whole.commit();
  }
  addGroup("G", 5, "");
  addMember("PC1700", "G");
  refresh();
  EXPECT_EQ(members().size(), 2'345u);
}

/// The rules written down as simply as can be: one filter on the members for each computer.
class NaiveAutoGroups {
 public:
  NaiveAutoGroups(Connection& connection, const BelongsToSubnet& belongs)
      : connection_(connection), belongs_(belongs) {}

  void run() {
    for (const auto& group : column("SELECT * FROM System_Group_Master WHERE Auto = 0", "Group_Name")) {
      const std::string rule = "SELECT * FROM System_Group_Detail WHERE Group_Name = '" + group + "'";
      const auto types = column(rule, "OS_Type"), subnets = column(rule, "IP_Subnet");
      if (types.empty()) continue;
      if (types[0] != "0") {
        for (const auto& name : column(classOf(types[0]), "System_Name")) addIfMissing(name, group);
      }
      if (subnets[0].empty()) continue;
      const auto names = column("SELECT * FROM System_Table Where System_Type <> 99999", "System_Name");
      const auto addresses = column("SELECT * FROM System_Table Where System_Type <> 99999", "IP_Address");
      for (std::size_t i = 0; i < names.size(); ++i)
        if (belongs_(addresses[i], subnets[0])) addIfMissing(names[i], group);
    }
  }

 private:
  static std::string classOf(const std::string& osType) {
    std::string condition;
    for (const char* type : osType == "2"   ? std::vector<const char*>{"2", "3", "13"}
                            : osType == "4" ? std::vector<const char*>{"4", "6", "10", "11", "15"}
                                            : std::vector<const char*>{"5", "7", "8", "9", "14", "16"})
      condition += (condition.empty() ? "" : " OR ") + std::string("System_Type = ") + type;
    return "SELECT * FROM System_Table WHERE " + condition;
  }
  std::vector<std::string> column(const std::string& source, const char* name) {
    std::vector<std::string> values;
    resumeNext_.step([&] {
      Recordset rows;
      rows.Open(source, connection_, CursorType::Static, LockType::ReadOnly);
      for (; !rows.Eof(); rows.MoveNext()) {
        const Value value = rows.Fields(name).value();
        values.push_back(value.isNull() ? "" : value.asText());
      }
    });
    return values;
  }
  void addIfMissing(const std::string& name, const std::string& group) {
    bool isThere = false;
    resumeNext_.step([&] {
      Recordset rows;
      rows.Open("System_Group", connection_, CursorType::Static, LockType::ReadOnly);
      rows.setFilter("System_Name = '" + name + "' AND Group_Name = '" + group + "'");
      isThere = !rows.Eof();
    });
    if (isThere) return;
    Command command;
    command.ActiveConnection = &connection_;
    command.CommandText =
        "INSERT INTO System_Group (System_Name, Group_Name) VALUES ('" + name + "', '" + group + "')";
    resumeNext_.step([&] { command.Execute(); });
  }

  Connection& connection_;
  const BelongsToSubnet& belongs_;
  const ResumeNext resumeNext_;
};

TEST_F(AutoGroupsContract, WritesTheRowsThatOneFilterForEachComputerWould) {
  constexpr int kInventories = 25;
  constexpr const char* kNames[] = {
      "A",   "a",      "B",   "B ", " B", "O'HARA", "C%", "C_", "[D", "D]", "Gr\u00f6\u00dfe",
      "\\E", "{name}", "E--", "F;"};
  constexpr const char* kGroupNames[] = {"G1", "g1", "It's", "{group}", "G 2", "%"};
  constexpr int kTypes[] = {2, 3, 4, 5, 6, 7, 10, 13, 16, 101, 99999};
  constexpr const char* kAddresses[] = {"10.1.1.5", "10.1.2.5", "", "NULL", "rubbish"};
  constexpr const char* kSubnets[] = {"", "10.1.1.0", "10.1.2.0"};
  std::minstd_rand random(20260131);
  const auto pick = [&](const auto& list) { return list[random() % std::size(list)]; };

  for (int inventory = 0; inventory < kInventories; ++inventory) {
    for (const char* table : {"System_Group", "System_Group_Detail", "System_Group_Master", "System_Table"})
      execute("DELETE FROM " + std::string(table));
    for (const char* name : kNames)
      if (random() % 4 != 0) addSystems({{name, pick(kTypes), pick(kAddresses)}});
    for (const char* group : kGroupNames) {
      if (random() % 2 != 0)
        addGroup(group, static_cast<int>(random() % 6), pick(kSubnets), random() % 5 == 0);
      for (const char* name : kNames)
        if (random() % 6 == 0) addMember(name, group);
    }
    const Table before = members();
    NaiveAutoGroups(connection, belongs).run();
    const Table naive = members();
    execute("DELETE FROM System_Group");
    for (const auto& row : before) addMember(row[1], row[0]);
    refresh();
    EXPECT_EQ(members(), naive) << "inventory " << inventory;
  }
}

}  // namespace varnhold::store
