#pragma once

#include <array>
#include <string_view>

namespace varnhold::store::mdDataBase {

inline constexpr std::string_view kSystemTable = "System_Table";
inline constexpr std::string_view kModuleTable = "Module_Table";
inline constexpr std::string_view kSystemGroupMaster = "System_Group_Master";
inline constexpr std::string_view kSystemGroupDetail = "System_Group_Detail";
inline constexpr std::string_view kSystemGroup = "System_Group";
inline constexpr std::string_view kEventsTable = "Events_Table";  ///< touched by name only

/// The rest of the product's schema, which this program neither reads nor writes.
inline constexpr std::array<std::string_view, 39> kOtherTables{
    "Macro_Detail",
    "Beep_Detail",
    "Category_Group_Master",
    "Category_Group",
    "Category_Group_Detail",
    "File_Group_Master",
    "File_Group_Detail",
    "File_Group",
    "Registry_Group_Master",
    "Registry_Group_Detail",
    "Registry_Group",
    "Event_Group_Master",
    "Event_Group",
    "Category_Relation_Master",
    "Category_Qualifier_Detail",
    "Category_Qualifier_Group",
    "CategoryKey_Registry_Group",
    "CategoryKey_File_Group",
    "Report_Master",
    "Report_Relation_Master",
    "Notification_Master",
    "Event_Detail",
    "Email_Detail",
    "Message_Detail",
    "Custom_Action_Detail",
    "Forward_Action_Detail",
    "Events_Action_Group",
    "Evtrpt_Config",
    "Event_Group_Detail",
    "Events_Filter_Group",
    "Trap_Group_Master",
    "Trap_Group",
    "Trap_Group_Detail",
    "Trap_Action_Group",
    "Trap_Notification_Master",
    "Trap_Detail",
    "Trap_Filter_Group",
    "EventTrap",
    "EventStructure",
};

}  // namespace varnhold::store::mdDataBase
