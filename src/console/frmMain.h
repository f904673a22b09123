#pragma once

#include <initializer_list>
#include <string>

#include "ui/controls/control_array.h"
#include "ui/controls/form.h"
#include "ui/controls/image.h"
#include "ui/controls/label.h"
#include "ui/controls/list_view.h"
#include "ui/controls/menu_item.h"
#include "ui/controls/splitter.h"
#include "ui/controls/status_bar.h"
#include "ui/controls/timer.h"
#include "ui/controls/tool_bar.h"
#include "ui/controls/tree_view.h"

namespace varnhold::core {
struct Program;
}

namespace varnhold::console {

struct Forms;

/// The console: groups on the left, the computers of the chosen group on the right, menus, two tool bars, a
/// status bar. Its one instance lives as long as the program. Main thread.
class frmMain : public ui::Form {
 public:
  frmMain(core::Program& program, ui::Screen& screen, Forms& forms);

  // The menu bar. Captions, keys and first states are the table in frmMain_menus.cpp.
  ui::MenuItem mnuFile, mnuOptionsAddSystems, mnuOptionsRemoveComputers, mnuOptionsBar0,
      mnuOptionsCreateGroup, mnuOptionsDeleteGroup, mnuOptionsEditGroup, mnuOptionsBar1,
      mnuOptionsNetAccessMode, mnuFileBar0, mnuFileExit;
  ui::MenuItem mnuView, mnuViewToolbars, mnuViewToolbarTools, mnuViewToolbarsManager, mnuViewStatusBar,
      mnuViewBar0, mnuSystenReport, mnuToolsStatus, mnuViewBar1, mnuViewRefresh, mnuViewBar2, mnuViewLog;
  ui::MenuItem mnuTools, mnuToolsSystemExplorer, mnuToolsBar0, mnuToolsHestray, mnuToolsTrackEvents,
      mnuToolsTrackTraps, mnuToolsTrackChanges;
  ui::MenuItem mnuAgent, mnuToolsInstall, mnuToolsUninstall, mnuToolsUpgrade, mnuToolsRemoveComponents,
      mnuToolsBar2, mnuToolsStart, mnuOptionsServiceLogon, mnuToolsBar3, mnuToolsConfigureClient,
      mnuToolsBar4, mnuAgentMgmt;
  ui::MenuItem mnuHelp, mnuHelpContents, mnuHelpSupport, mnuHelpBar0, mnuHelpAbout;

  // The pop-up menus of the tree and of the list.
  ui::MenuItem mnuPopUpTree, mnuPopUpTreeDetails, mnuPopUpTreeEdit, mnuPopUpTreeBar0, mnuPopUpTreeInstall,
      mnuPopUpTreeUninstall, mnuPopUpTreeUpgrade;
  ui::MenuItem mnuPopUpList, mnuPopUpListDetails, mnuPopUpListBar0, mnuPopUpListInstall,
      mnuPopUpListUninstall, mnuPopUpListUpgrade, mnuPopUpListRemoveClientComp, mnuPopUpListBar1,
      mnuPopUpListStart, mnuPopUpListStatus, mnuPopUpListBar2, mnuPopUpListConfigureClient,
      mnuPopUpModifySystemType;

  ui::ToolBar tbOptToolBar, tbClientManager;
  ui::ControlArray<ui::Label, 2> lblTitle;  ///< over the tree, over the list
  ui::TreeView tvTreeView;
  ui::ListView lvListView;
  /// The bar between tree and list, and what shows where it would come while it is dragged.
  ui::Splitter imgSplitter, picSplitter;
  ui::StatusBar sbStatusBar{3};
  ui::ImageList imlIcons;  ///< by `icons::ConsoleImage`
  ui::Timer tmrPing, tmrAddDomains, tmrAddSubnet;

  /// Makes the agent commands visible and enabled as far as their own rules allow, with `firstItem` at their
  /// head. What it turns on never goes off again.
  void turnOnAgentCommands(ui::MenuItem& firstItem);

 private:
  struct MenuRow;

  void Form_Load() override;

  void designMenus();
  void designPopUps();
  void designMenu(ui::MenuItem* menu, std::initializer_list<MenuRow> rows);
  void designToolBars();
  void designLists();

  core::Program& program_;
  Forms& forms_;
};

}  // namespace varnhold::console
