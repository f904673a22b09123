// The console's menus as data: the menu bar, the two pop-up menus, and what the products found at start-up
// turn on.
#include "console/frmMain.h"

namespace varnhold::console {
namespace {

/// How an entry stands before start-up looks for the products.
enum class First { On, Checked, Off };

}  // namespace

struct frmMain::MenuRow {
  const char* name;
  ui::MenuItem& item;
  const char* caption;
  First first = First::On;
  const char* shortcut = "";
};

void frmMain::designMenu(ui::MenuItem* menu, std::initializer_list<MenuRow> rows) {
  for (const auto& row : rows) {
    row.item.Caption = row.caption;
    row.item.Shortcut = row.shortcut;
    row.item.Checked = row.first == First::Checked;
    row.item.Visible = row.item.Enabled = row.first != First::Off;
    if (menu == nullptr) {
      adopt({{row.name, row.item}});
    } else {
      adopt(*menu, {{row.name, row.item}});
    }
  }
}

void frmMain::designMenus() {
  designMenu(nullptr, {{"mnuFile", mnuFile, "&File"},
                       {"mnuView", mnuView, "&View"},
                       {"mnuTools", mnuTools, "&Tools", First::Off},  // nothing ever turns it on
                       {"mnuAgent", mnuAgent, "&Options", First::Off},
                       {"mnuHelp", mnuHelp, "&Help"},
                       {"mnuPopUpTree", mnuPopUpTree, "PopUpTree"},
                       {"mnuPopUpList", mnuPopUpList, "PopUpList"}});
  mnuPopUpTree.Visible = mnuPopUpList.Visible = false;
  designMenu(&mnuFile,
             {{"mnuOptionsAddSystems", mnuOptionsAddSystems, "Find / Add Computer(s)", First::On, "Ctrl+F"},
              {"mnuOptionsRemoveComputers", mnuOptionsRemoveComputers, "&Remove Computer(s)"},
              {"mnuOptionsBar0", mnuOptionsBar0, "-"},
              {"mnuOptionsCreateGroup", mnuOptionsCreateGroup, "&Create Group"},
              {"mnuOptionsDeleteGroup", mnuOptionsDeleteGroup, "&Delete Group"},
              {"mnuOptionsEditGroup", mnuOptionsEditGroup, "&Edit Group"},
              {"mnuOptionsBar1", mnuOptionsBar1, "-"},
              {"mnuOptionsNetAccessMode", mnuOptionsNetAccessMode, "Select 'Auto Discover' &Mode"},
              {"mnuFileBar0", mnuFileBar0, "-"},
              {"mnuFileExit", mnuFileExit, "E&xit"}});
  designMenu(&mnuView, {{"mnuViewToolbars", mnuViewToolbars, "&Toolbars"},
                        {"mnuViewStatusBar", mnuViewStatusBar, "Status &Bar", First::Checked},
                        {"mnuViewBar0", mnuViewBar0, "-"},
                        {"mnuSystenReport", mnuSystenReport, "System Report"},
                        {"mnuToolsStatus", mnuToolsStatus, "Sys&tem Status", First::Off},
                        {"mnuViewBar1", mnuViewBar1, "-"},
                        {"mnuViewRefresh", mnuViewRefresh, "Refresh", First::On, "F5"},
                        {"mnuViewBar2", mnuViewBar2, "-"},
                        {"mnuViewLog", mnuViewLog, "&Log"}});
  designMenu(&mnuViewToolbars,
             {{"mnuViewToolbarTools", mnuViewToolbarTools, "T&ools", First::Checked},
              {"mnuViewToolbarsManager", mnuViewToolbarsManager, "&Agent Manager", First::Off}});
  designMenu(
      &mnuTools,
      {{"mnuToolsSystemExplorer", mnuToolsSystemExplorer, "Q&uorvane Explorer", First::Off},
       {"mnuToolsBar0", mnuToolsBar0, "-"},
       {"mnuToolsHestray", mnuToolsHestray, "&Hestray", First::Off},
       {"mnuToolsTrackEvents", mnuToolsTrackEvents, "&Varnhold for Windows (Track Events)", First::Off},
       {"mnuToolsTrackTraps", mnuToolsTrackTraps, "&Snarewick (Track Traps)", First::Off},
       {"mnuToolsTrackChanges", mnuToolsTrackChanges, "&Tessmark? for Windows (Track Changes)", First::Off}});
  designMenu(&mnuAgent,
             {{"mnuToolsInstall", mnuToolsInstall, "&Add System", First::Off},
              {"mnuToolsUninstall", mnuToolsUninstall, "&Remove System", First::Off},
              {"mnuToolsUpgrade", mnuToolsUpgrade, "&Upgrade Agent", First::Off},
              {"mnuToolsRemoveComponents", mnuToolsRemoveComponents, "Remove Agent &Components", First::Off},
              {"mnuToolsBar2", mnuToolsBar2, "-", First::Off},
              {"mnuToolsStart", mnuToolsStart, "Sta&rt Agent Service", First::Off},
              {"mnuOptionsServiceLogon", mnuOptionsServiceLogon, "Agent &Properties"},
              {"mnuToolsBar3", mnuToolsBar3, "-"},
              {"mnuToolsConfigureClient", mnuToolsConfigureClient, "&Configure System"},
              {"mnuToolsBar4", mnuToolsBar4, "-"},
              {"mnuAgentMgmt", mnuAgentMgmt, "Agent &Management Tool"}});
  designMenu(&mnuHelp, {{"mnuHelpContents", mnuHelpContents, "Contents", First::On, "F1"},
                        {"mnuHelpSupport", mnuHelpSupport, "&Support"},
                        {"mnuHelpBar0", mnuHelpBar0, "-"},
                        {"mnuHelpAbout", mnuHelpAbout, "&About "}});
  designPopUps();
}

void frmMain::designPopUps() {
  designMenu(&mnuPopUpTree, {{"mnuPopUpTreeDetails", mnuPopUpTreeDetails, "Details"},
                             {"mnuPopUpTreeEdit", mnuPopUpTreeEdit, "Edit"},
                             {"mnuPopUpTreeBar0", mnuPopUpTreeBar0, "-", First::Off},
                             {"mnuPopUpTreeInstall", mnuPopUpTreeInstall, "Add System", First::Off},
                             {"mnuPopUpTreeUninstall", mnuPopUpTreeUninstall, "Remove System", First::Off},
                             {"mnuPopUpTreeUpgrade", mnuPopUpTreeUpgrade, "Upgrade Agent", First::Off}});
  designMenu(
      &mnuPopUpList,
      {{"mnuPopUpListDetails", mnuPopUpListDetails, "Details"},
       {"mnuPopUpListBar0", mnuPopUpListBar0, "-", First::Off},
       {"mnuPopUpListInstall", mnuPopUpListInstall, "Add System", First::Off},
       {"mnuPopUpListUninstall", mnuPopUpListUninstall, "Remove System", First::Off},
       {"mnuPopUpListUpgrade", mnuPopUpListUpgrade, "Upgrade Agent", First::Off},
       {"mnuPopUpListRemoveClientComp", mnuPopUpListRemoveClientComp, "Remove Agent Components", First::Off},
       {"mnuPopUpListBar1", mnuPopUpListBar1, "-", First::Off},
       {"mnuPopUpListStart", mnuPopUpListStart, "Start Agent Service", First::Off},
       {"mnuPopUpListStatus", mnuPopUpListStatus, "System Status", First::Off},
       {"mnuPopUpListBar2", mnuPopUpListBar2, "-", First::Off},
       {"mnuPopUpListConfigureClient", mnuPopUpListConfigureClient, "Configure System", First::Off},
       {"mnuPopUpModifySystemType", mnuPopUpModifySystemType, "Modify System Type"}});
}

void frmMain::turnOnAgentCommands(ui::MenuItem& firstItem) {
  enum Turned { kVisible, kVisibleEnabled };
  const struct {
    ui::Control& control;
    Turned turned;
  } commands[] = {
      {firstItem, kVisibleEnabled},
      {mnuToolsBar2, kVisible},
      {mnuToolsInstall, kVisibleEnabled},
      {mnuToolsUninstall, kVisibleEnabled},
      {mnuToolsUpgrade, kVisibleEnabled},
      {mnuViewToolbarsManager, kVisibleEnabled},
      {tbClientManager, kVisible},
      {mnuPopUpListBar0, kVisible},
      {mnuPopUpListInstall, kVisibleEnabled},
      {mnuPopUpListUninstall, kVisibleEnabled},
      {mnuPopUpListUpgrade, kVisibleEnabled},
      {mnuPopUpListBar1, kVisible},
      {mnuPopUpListBar2, kVisible},
      {mnuPopUpListConfigureClient, kVisibleEnabled},
      {mnuPopUpListRemoveClientComp, kVisibleEnabled},
      {mnuPopUpTreeBar0, kVisible},
      {mnuPopUpTreeInstall, kVisibleEnabled},
      {mnuPopUpTreeUninstall, kVisibleEnabled},
      {mnuPopUpTreeUpgrade, kVisibleEnabled},
      // Start and status are enabled by the state of the chosen computer alone.
      {mnuPopUpListStart, kVisible},
      {mnuPopUpListStatus, kVisible},
      {mnuToolsStart, kVisible},
      {mnuToolsStatus, kVisible},
      {mnuToolsRemoveComponents, kVisibleEnabled},
      {mnuAgent, kVisibleEnabled},
  };
  for (const auto& [control, turned] : commands) {
    control.Visible = true;
    if (turned == kVisibleEnabled) control.Enabled = true;
  }
  mnuViewToolbarsManager.Checked = true;
}

}  // namespace varnhold::console
