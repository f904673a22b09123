#include "store/statements.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "store/table_names.h"

namespace varnhold::store::statements {
namespace {

struct Expected {
  std::string filled;
  std::string text;
};

/// The documented texts, with example values in them.
const Expected kDocumented[] = {
    {fill(kAgentFilter, {{"name", "HOST1"}, {"module", 1}}), "(System_Name = 'HOST1' AND Module_ID = 1)"},
    {fill(kAgentlessAgentFilter, {{"name", "HOST1"}}),
     "(System_Name ='HOST1' AND  Module_ID = 1 AND Agentless = 1)"},
    {fill(kStandardAgentFilter, {{"name", "HOST1"}}),
     "(System_Name = 'HOST1' AND Module_ID = 1 AND Agentless = 0)"},
    {fill(kHighPerformanceAgentFilter, {{"name", "HOST1"}}),
     "(System_Name ='HOST1' AND Module_ID = 1 AND Agentless = 0)"},
    {fill(kTessmarkAgentFilter, {{"name", "HOST1"}}), "System_Name = 'HOST1' AND Module_ID = 2"},
    {fill(kAddHighPerformanceAgent, {{"name", "HOST1"}, {"path", "C:\\A"}}),
     "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) VALUES "
     "('HOST1', 5, 'C:\\A', 0,0)"},
    {fill(kUninstalledVarnholdAgent, {{"name", "HOST1"}}),
     "DELETE FROM Module_Table WHERE System_Name = 'HOST1' AND (Module_ID = 1 OR Module_ID = 5 )"},
    {fill(kSystemNameFilter, {{"name", "HOST1"}}), "System_Name = 'HOST1'"},
    {fill(kGroupNameFilter, {{"group", "Web"}}), "Group_Name = 'Web'"},
    {fill(kGroupMemberFilter, {{"name", "HOST1"}, {"group", "Web"}}),
     "System_Name = 'HOST1' AND Group_Name = 'Web'"},
    {fill(kComputersFilter, {}), "System_Type <> 99999"},
    {fill(kAddVarnholdAgent, {{"name", "HOST1"}, {"module", 5}, {"path", "C:\\A"}, {"agentless", 0}}),
     "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) VALUES "
     "('HOST1', 5, "
     "'C:\\A', 0, 0)"},
    {fill(kChangeAgent, {{"name", "HOST1"}, {"module", 1}, {"path", "C:\\A"}, {"agentless", 0}}),
     "UPDATE Module_Table SET Install_Directory =  'C:\\A', Manual = 0 WHERE System_Name = 'HOST1' AND "
     "Module_ID = 1 "
     "AND Agentless = 0"},
    {fill(kSwitchVarnholdAgent,
          {{"name", "HOST1"}, {"module", 5}, {"path", "C:\\A"}, {"a", 5}, {"b", 1}, {"agentless", 0}}),
     "UPDATE Module_Table SET Install_Directory =  'C:\\A', Manual = 0, Module_ID = 5 WHERE System_Name = "
     "'HOST1' AND "
     "(Module_ID = 5 OR Module_ID = 1) AND Agentless = 0"},
    {fill(kAddTessmarkAgent, {{"name", "HOST1"}, {"path", "C:\\A"}}),
     "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual) VALUES ('HOST1', 2, "
     "'C:\\A', 0)"},
    {fill(kChangeTessmarkAgent, {{"name", "HOST1"}, {"path", "C:\\A"}}),
     "UPDATE Module_Table SET Install_Directory =  'C:\\A', Manual = 0 WHERE System_Name = 'HOST1' AND "
     "Module_ID = 2"},
    {fill(kForgetVarnholdAgent, {{"name", "HOST1"}}),
     "DELETE FROM Module_Table WHERE System_Name = 'HOST1' AND (Module_ID = 1 OR Module_ID = 5)"},
    {fill(kForgetTessmarkAgent, {{"name", "HOST1"}}),
     "DELETE FROM Module_Table WHERE System_Name = 'HOST1' AND Module_ID = 2"},
    {fill(kRemoveComputerFromGroups, {{"name", "HOST1"}}),
     "DELETE FROM System_Group WHERE System_Name = 'HOST1'"},
    {fill(kRemoveComputer, {{"name", "HOST1"}}), "DELETE FROM System_Table WHERE System_Name = 'HOST1'"},
    {fill(kRemoveComputersFromGroups, {{"list", "'A', 'B'"}}),
     "DELETE FROM System_Group WHERE System_Name IN ('A', 'B')"},
    {fill(kRemoveComputersAgents, {{"list", "'A', 'B'"}}),
     "DELETE FROM Module_Table WHERE System_Name IN ('A', 'B')"},
    {fill(kRemoveComputers, {{"list", "'A', 'B'"}}),
     "DELETE FROM System_Table WHERE System_Name IN ('A', 'B')"},
    {fill(kRemoveGroupMembers, {{"group", "Web"}}), "DELETE FROM System_Group WHERE Group_Name = 'Web'"},
    {fill(kRemoveGroupRule, {{"group", "Web"}}), "DELETE FROM System_Group_Detail WHERE Group_Name = 'Web'"},
    {fill(kRemoveGroup, {{"group", "Web"}}), "DELETE FROM System_Group_Master WHERE Group_Name = 'Web'"},
    {fill(kMembersOfAllGroups, {}),
     "SELECT * FROM System_Group, System_Table WHERE System_Group.System_Name = System_Table.System_Name"},
    {fill(kGroup, {{"group", "Web"}}), "SELECT * FROM System_Group_Master WHERE Group_Name = 'Web'"},
    {fill(kAllGroups, {}), "SELECT * FROM System_Group_Master"},
    {fill(kAddGroupMember, {{"name", "HOST1"}, {"group", "Web"}}),
     "INSERT INTO System_Group (System_Name, Group_Name) VALUES ('HOST1', 'Web')"},
    {fill(kGroupMembers, {{"group", "Web"}}),
     "SELECT * FROM System_Group, System_Table WHERE Group_Name = 'Web' AND System_Group.System_Name = "
     "System_Table.System_Name"},
    {fill(kGroupWithRule, {{"group", "Web"}}),
     "SELECT * FROM System_Group_Master, System_Group_Detail WHERE System_Group_Master.Group_Name = 'Web' "
     "AND "
     "System_Group_Master.Group_Name = System_Group_Detail.Group_Name"},
    {fill(kRefreshedGroups, {}), "SELECT * FROM System_Group_Master WHERE Auto = 0"},
    {fill(kGroupRule, {{"group", "Web"}}), "SELECT * FROM System_Group_Detail WHERE Group_Name = 'Web'"},
    {fill(kNamesInGroup, {{"group", "Web"}}),
     "SELECT System_Name FROM System_Group WHERE Group_Name = 'Web'"},
    {fill(kOldWindowsComputers, {}),
     "SELECT * FROM System_Table WHERE System_Type = 2 OR System_Type = 3 OR System_Type = 13"},
    {fill(kWorkstations, {}),
     "SELECT * FROM System_Table WHERE System_Type = 4 OR System_Type = 6 OR System_Type = 10 OR System_Type "
     "= 11 OR "
     "System_Type = 15"},
    {fill(kServers, {}),
     "SELECT * FROM System_Table WHERE System_Type = 5 OR System_Type = 7 OR System_Type = 8 OR System_Type "
     "= 9 OR "
     "System_Type = 14 OR System_Type = 16"},
    {fill(kSubnetCandidates, {}), "SELECT * FROM System_Table Where System_Type <> 99999"},
    {fill(kComputerForeignKey, {}),
     " SELECT name FROM sysobjects so JOIN sysconstraints sc ON so.id = sc.constid WHERE "
     "object_name(so.parent_obj) = "
     "'Events_Table' AND so.xtype = 'F' AND sc.colid = (SELECT colid FROM syscolumns WHERE id = "
     "object_id('dbo.Events_Table') AND name = 'Computer')"},
    {fill(kDropConstraint, {{"constraint", "FK_1"}}), "ALTER TABLE Events_Table DROP CONSTRAINT FK_1"},
};

TEST(Statements, StandLetterForLetterAsDocumented) {
  for (const auto& [filled, text] : kDocumented) EXPECT_EQ(filled, text);
}

TEST(Statements, TakeTheirValuesWithNoEscaping) {
  EXPECT_EQ(fill(kRemoveComputer, {{"name", "O'BRIEN"}}),
            "DELETE FROM System_Table WHERE System_Name = 'O'BRIEN'");
  EXPECT_EQ(fill(kSystemNameFilter, {{"name", "' OR '1' = '1"}}), "System_Name = '' OR '1' = '1'");
}

TEST(Statements, TakeAValueThatLooksLikeAHoleAsItIs) {
  EXPECT_EQ(fill(kAddGroupMember, {{"name", "{group}"}, {"group", "{name}{x"}}),
            "INSERT INTO System_Group (System_Name, Group_Name) VALUES ('{group}', '{name}{x')");
}

TEST(Statements, AMissingValueIsTheCallersMistake) {
  try {
    (void)fill(kAgentFilter, {{"name", "A"}});
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), kInvalidProcedureCall);
  }
}

TEST(Statements, AListQuotesItsNamesAndEscapesNone) {
  EXPECT_EQ(quotedList({"A"}), "'A'");
  EXPECT_EQ(quotedList({"A", "B", "O'C"}), "'A', 'B', 'O'C'");
  EXPECT_EQ(quotedList({}), "''");
}

TEST(TableNames, AreThoseOfTheProduct) {
  using namespace mdDataBase;
  EXPECT_EQ(kSystemTable, "System_Table");
  EXPECT_EQ(kModuleTable, "Module_Table");
  EXPECT_EQ(kSystemGroupMaster, "System_Group_Master");
  EXPECT_EQ(kSystemGroupDetail, "System_Group_Detail");
  EXPECT_EQ(kSystemGroup, "System_Group");
  EXPECT_EQ(kEventsTable, "Events_Table");
  std::string others;
  for (const std::string_view name : kOtherTables) others += std::string(name) + " ";
  EXPECT_EQ(
      others,
      "Macro_Detail Beep_Detail Category_Group_Master Category_Group Category_Group_Detail File_Group_Master "
      "File_Group_Detail File_Group Registry_Group_Master Registry_Group_Detail Registry_Group "
      "Event_Group_Master Event_Group Category_Relation_Master Category_Qualifier_Detail "
      "Category_Qualifier_Group CategoryKey_Registry_Group CategoryKey_File_Group Report_Master "
      "Report_Relation_Master Notification_Master Event_Detail Email_Detail Message_Detail "
      "Custom_Action_Detail Forward_Action_Detail Events_Action_Group Evtrpt_Config Event_Group_Detail "
      "Events_Filter_Group Trap_Group_Master Trap_Group Trap_Group_Detail Trap_Action_Group "
      "Trap_Notification_Master Trap_Detail Trap_Filter_Group EventTrap EventStructure ");
}

}  // namespace
}  // namespace varnhold::store::statements
