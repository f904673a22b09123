#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

#include "console/deployment_wizard.h"
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
namespace varnhold::store {
class Recordset;
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
  ui::Timer tmrDesktop;  ///< answers other starts of the program that ask for this window

  /// The text of the tree's node whose computers the list shows: "Groups" for the root; empty where the next
  /// click is to load anew, whichever node it meets.
  std::string CurrentNodeText;
  /// While true, clicks, expansions and collapses of the tree do nothing.
  bool SuppressNodeEvents = false;

  /// Shows the form busy with `text`, with an hourglass over form, tree and list.
  void ShowBusy(const std::string& text);
  /// Ends that: the pointer as usual, `text`, and how many computers the list holds.
  void ShowFree(const std::string& text);
  /// Lays out tree, list and bars around the splitter at `x` twips from the left.
  void SizeControls(double x);
  /// Rebuilds the tree and the list, and shows the same group again where it is still there. Enumerates the
  /// network anew unless that is under way. With no node selected it does nothing and leaves the form busy.
  void mnuViewRefresh_Click();
  /// Shows the node's computers, unless they are shown already. Null is no node.
  void tvTreeView_NodeClick(ui::TreeNode* node);
  /// Where the Manager is installed; empty where that can't be read.
  [[nodiscard]] std::string ConsolePath() const;

  /// Rebuilds the tree from the groups' rules, as far as the inventory lets it. Ends the program when it is
  /// closing.
  void LoadTree();
  /// Fills the list with every computer, busy with `caption` meanwhile. At an error: false, its description
  /// in a critical box, and the rows as far as they came.
  [[nodiscard]] bool LoadAllComputers(const std::string& caption);
  /// The same with the members of a group; "Groups" means the members of every group.
  [[nodiscard]] bool LoadGroupMembers(const std::string& groupName, const std::string& caption);
  /// Writes status and port into the rows from `startIndex` on; see the function of that name.
  [[nodiscard]] bool LoadAgentStatus(int startIndex);

  /// What follows a command that took groups or computers away: tree and list anew, with the root selected.
  void reloadAll();
  /// The reselection rule: opens the root, and selects the first node named `name`, case ignored, from node
  /// `fromIndex` on, with its computers in the list. Null where there is no such node: nothing else happens.
  ui::TreeNode* reselectNode(const std::string& name, int fromIndex);

  /// What follows the creation of the group `name`: the tree anew, and the group selected where it is there.
  void showCreatedGroup(const std::string& name);
  /// What follows a change of the group `name`: the same, or every computer where it is there no more.
  void showEditedGroup(const std::string& name);

  /// What the commands add, remove and upgrade fill and show; given by what owns the forms.
  std::optional<DeploymentWizard> wizard;

  /// Makes the agent commands visible and enabled as far as their own rules allow, with `firstItem` at their
  /// head. What it turns on never goes off again.
  void turnOnAgentCommands(ui::MenuItem& firstItem);

 private:
  struct MenuRow;
  struct WizardRule;
  enum class Operation { Add = 1, Remove = 2, Upgrade = 3 };

  void Form_Load() override;
  void Form_Activate() override;
  void Form_QueryUnload(int& cancel, ui::UnloadMode mode) override;
  void Form_Unload() override;
  void Form_Resize() override;
  void Form_KeyDown(int& key, int modifiers) override;
  void activateFirst();

  void imgSplitter_MouseDown();
  void imgSplitter_MouseMove(double x);
  void imgSplitter_MouseUp();
  [[nodiscard]] double splitterPosition(double x) const;

  void tvTreeView_Expand(ui::TreeNode& node);
  void tvTreeView_Collapse(ui::TreeNode& node);
  [[nodiscard]] bool isDeafTo(const ui::TreeNode& node) const;
  void showRootComputers(const ui::TreeNode& node);
  /// Fills the list anew, with the message that follows when that fails.
  void showAllComputers();
  void showGroupMembers(const std::string& groupName);
  [[nodiscard]] bool loadList(const std::string& caption, const std::function<void()>& fill);
  void addRows(store::Recordset& rows);
  [[nodiscard]] std::string titleOfGroup(const std::string& groupName);
  void openRoot();
  void enumerateUnlessItRuns();
  void enumerateNetwork();
  [[nodiscard]] std::string systemCount() const;

  void lvListView_ColumnClick(const ui::ColumnHeader& column);
  void lvListView_ItemClick(const ui::ListItem& item);
  void lvListView_DblClick();
  void lvListView_KeyPress(int key);

  void mnuFileExit_Click();
  void mnuView_Click();
  void mnuAgent_Click();
  void mnuViewToolbarTools_Click();
  void mnuViewToolbarsManager_Click();
  void mnuViewStatusBar_Click();
  void mnuHelpContents_Click();
  void mnuOptionsNetAccessMode_Click();
  void mnuPopUpTreeDetails_Click();
  void mnuPopUpListDetails_Click();
  void mnuPopUpModifySystemType_Click();
  void showDetails(bool ofListItem);
  void showMode();
  void toggleBar(ui::MenuItem& entry, ui::Control& bar);
  static void applyStartRule(const ui::ListItem* row, ui::MenuItem& start, ui::MenuItem& status);
  void tvTreeView_MouseDown(ui::MouseButton button, ui::TreeNode* node);
  void lvListView_MouseDown(ui::MouseButton button, ui::ListItem* row);

  void wizardFromMenu(Operation operation);
  void wizardFromTree(Operation operation);
  void wizardFromList(Operation operation);
  void beginWizard(Operation operation, int page);
  void showWizard();
  void passRowsOfTree(const WizardRule& rule);
  void fillPathSystems();
  void addSelectedRows();
  void removeSelectedRows(Operation operation);
  [[nodiscard]] bool isLocalFocused() const;

  void wireCommands();
  void wireWizard();
  void wireAliases();
  void wireToolBars();
  void wireTreeAndList();
  void wireSplitter();
  void designMenus();
  void designPopUps();
  void designMenu(ui::MenuItem* menu, std::initializer_list<MenuRow> rows);
  void designToolBars();
  void designLists();

  core::Program& program_;
  Forms& forms_;
  bool FirstActivation = true;
  int ClickedItemIndex = -1;  ///< the row last clicked; -1 for none
  bool SplitterMoving = false;
};

}  // namespace varnhold::console
