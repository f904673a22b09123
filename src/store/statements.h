#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// Every statement and filter on the inventory, as data with named holes such as `{name}`. The texts are part
/// of the product: doubled blanks and letter case stay as they are.
namespace varnhold::store::statements {

// Filters.
inline constexpr std::string_view kAgentFilter = "(System_Name = '{name}' AND Module_ID = {module})";
/// The agent's row that an install by the wizard looks for. The three differ in blanks, and the one for high
/// performance asks for module 1 too, deliberately: it does not find the row of an earlier such install.
inline constexpr std::string_view kAgentlessAgentFilter =
    "(System_Name ='{name}' AND  Module_ID = 1 AND Agentless = 1)";
inline constexpr std::string_view kStandardAgentFilter =
    "(System_Name = '{name}' AND Module_ID = 1 AND Agentless = 0)";
inline constexpr std::string_view kHighPerformanceAgentFilter =
    "(System_Name ='{name}' AND Module_ID = 1 AND Agentless = 0)";
inline constexpr std::string_view kTessmarkAgentFilter = "System_Name = '{name}' AND Module_ID = 2";
inline constexpr std::string_view kSystemNameFilter = "System_Name = '{name}'";
inline constexpr std::string_view kGroupNameFilter = "Group_Name = '{group}'";
inline constexpr std::string_view kGroupMemberFilter = "System_Name = '{name}' AND Group_Name = '{group}'";
/// Rows of this type never count as computers.
inline constexpr std::string_view kComputersFilter = "System_Type <> 99999";

// Agents.
inline constexpr std::string_view kAddVarnholdAgent =
    "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) VALUES "
    "('{name}', "
    "{module}, '{path}', 0, {agentless})";
inline constexpr std::string_view kAddHighPerformanceAgent =
    "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) VALUES "
    "('{name}', 5, '{path}', 0,0)";
inline constexpr std::string_view kChangeAgent =
    "UPDATE Module_Table SET Install_Directory =  '{path}', Manual = 0 WHERE System_Name = '{name}' AND "
    "Module_ID = {module} AND Agentless = {agentless}";
/// Allows for the switch between the modules 1 and 5: `{a}` and `{b}` are the two, in either order.
inline constexpr std::string_view kSwitchVarnholdAgent =
    "UPDATE Module_Table SET Install_Directory =  '{path}', Manual = 0, Module_ID = {module} WHERE "
    "System_Name = "
    "'{name}' AND (Module_ID = {a} OR Module_ID = {b}) AND Agentless = {agentless}";
inline constexpr std::string_view kAddTessmarkAgent =
    "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual) VALUES ('{name}', 2, "
    "'{path}', 0)";
inline constexpr std::string_view kChangeTessmarkAgent =
    "UPDATE Module_Table SET Install_Directory =  '{path}', Manual = 0 WHERE System_Name = '{name}' AND "
    "Module_ID = 2";
inline constexpr std::string_view kForgetVarnholdAgent =
    "DELETE FROM Module_Table WHERE System_Name = '{name}' AND (Module_ID = 1 OR Module_ID = 5)";
/// The wizard's, which has one blank more.
inline constexpr std::string_view kUninstalledVarnholdAgent =
    "DELETE FROM Module_Table WHERE System_Name = '{name}' AND (Module_ID = 1 OR Module_ID = 5 )";
inline constexpr std::string_view kForgetTessmarkAgent =
    "DELETE FROM Module_Table WHERE System_Name = '{name}' AND Module_ID = 2";

// Computers. `{list}` is a `quotedList`.
inline constexpr std::string_view kRemoveComputerFromGroups =
    "DELETE FROM System_Group WHERE System_Name = '{name}'";
inline constexpr std::string_view kRemoveComputer = "DELETE FROM System_Table WHERE System_Name = '{name}'";
inline constexpr std::string_view kRemoveComputersFromGroups =
    "DELETE FROM System_Group WHERE System_Name IN ({list})";
inline constexpr std::string_view kRemoveComputersAgents =
    "DELETE FROM Module_Table WHERE System_Name IN ({list})";
inline constexpr std::string_view kRemoveComputers = "DELETE FROM System_Table WHERE System_Name IN ({list})";

// Groups.
inline constexpr std::string_view kRemoveGroupMembers =
    "DELETE FROM System_Group WHERE Group_Name = '{group}'";
inline constexpr std::string_view kRemoveGroupRule =
    "DELETE FROM System_Group_Detail WHERE Group_Name = '{group}'";
inline constexpr std::string_view kRemoveGroup =
    "DELETE FROM System_Group_Master WHERE Group_Name = '{group}'";
inline constexpr std::string_view kAddGroupMember =
    "INSERT INTO System_Group (System_Name, Group_Name) VALUES ('{name}', '{group}')";
inline constexpr std::string_view kGroupMembers =
    "SELECT * FROM System_Group, System_Table WHERE Group_Name = '{group}' AND System_Group.System_Name = "
    "System_Table.System_Name";
inline constexpr std::string_view kMembersOfAllGroups =
    "SELECT * FROM System_Group, System_Table WHERE System_Group.System_Name = System_Table.System_Name";
inline constexpr std::string_view kGroup = "SELECT * FROM System_Group_Master WHERE Group_Name = '{group}'";
inline constexpr std::string_view kAllGroups = "SELECT * FROM System_Group_Master";
inline constexpr std::string_view kGroupWithRule =
    "SELECT * FROM System_Group_Master, System_Group_Detail WHERE System_Group_Master.Group_Name = '{group}' "
    "AND "
    "System_Group_Master.Group_Name = System_Group_Detail.Group_Name";

// The groups that are filled from a rule.
inline constexpr std::string_view kRefreshedGroups = "SELECT * FROM System_Group_Master WHERE Auto = 0";
inline constexpr std::string_view kGroupRule =
    "SELECT * FROM System_Group_Detail WHERE Group_Name = '{group}'";
/// The program's own: which rows of `System_Group` a filter by computer and group would show.
inline constexpr std::string_view kNamesInGroup =
    "SELECT System_Name FROM System_Group WHERE Group_Name = '{group}'";
inline constexpr std::string_view kOldWindowsComputers =
    "SELECT * FROM System_Table WHERE System_Type = 2 OR System_Type = 3 OR System_Type = 13";
inline constexpr std::string_view kWorkstations =
    "SELECT * FROM System_Table WHERE System_Type = 4 OR System_Type = 6 OR System_Type = 10 OR System_Type "
    "= 11 OR "
    "System_Type = 15";
inline constexpr std::string_view kServers =
    "SELECT * FROM System_Table WHERE System_Type = 5 OR System_Type = 7 OR System_Type = 8 OR System_Type = "
    "9 OR "
    "System_Type = 14 OR System_Type = 16";
inline constexpr std::string_view kSubnetCandidates = "SELECT * FROM System_Table Where System_Type <> 99999";

// The foreign key of the event store on SQL Server.
inline constexpr std::string_view kComputerForeignKey =
    " SELECT name FROM sysobjects so JOIN sysconstraints sc ON so.id = sc.constid WHERE "
    "object_name(so.parent_obj) = "
    "'Events_Table' AND so.xtype = 'F' AND sc.colid = (SELECT colid FROM syscolumns WHERE id = "
    "object_id('dbo.Events_Table') AND name = 'Computer')";
inline constexpr std::string_view kDropConstraint = "ALTER TABLE Events_Table DROP CONSTRAINT {constraint}";

/// A named hole and what goes into it.
struct Hole {
  Hole(std::string_view holeName, std::string_view text) : name(holeName), value(text) {}
  Hole(std::string_view holeName, int number) : name(holeName), value(std::to_string(number)) {}
  std::string_view name;
  std::string value;
};

/// `text` with each hole replaced by its value. Values go in as they stand, with no escaping of any kind,
/// deliberately: a name that holds an apostrophe breaks the statement, and its callers rely on the error.
/// A hole of `text` that no value is given for raises kInvalidProcedureCall.
[[nodiscard]] std::string fill(std::string_view text, std::initializer_list<Hole> holes);

/// The names in apostrophes, joined by commas, for `{list}`; no names give one empty name. No escaping.
[[nodiscard]] std::string quotedList(const std::vector<std::string>& names);

}  // namespace varnhold::store::statements
