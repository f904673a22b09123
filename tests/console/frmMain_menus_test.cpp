// The console's menus and tool bars as they stand before and after start-up has looked for the products.
#include <gmock/gmock.h>

#include "tests/console/console_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

class MenusTest : public ConsoleTest {
 protected:
  MenusTest() { frmMain.Load(); }

  /// The entries of a menu: name|caption, then |shortcut where it has one, then V, E and C in brackets for
  /// those of visible, enabled and checked that hold. A separator is "-".
  Lines entries(const ui::MenuItem* menu) const {
    Lines lines;
    for (const auto* item : frmMain.menuItems(menu)) {
      std::string line = item->isSeparator() ? "-" : item->Name() + "|" + item->Caption;
      if (!item->Shortcut.get().empty()) line += "|" + item->Shortcut;
      lines.push_back(line + state(*item));
    }
    return lines;
  }
  static std::string state(const ui::MenuItem& item) {
    return std::string(" [") + (item.Visible ? "V" : "") + (item.Enabled ? "E" : "") +
           (item.Checked ? "C" : "") + "]";
  }
  /// Every entry of the form with its state.
  Lines states() const {
    Lines lines;
    for (const auto* control : frmMain.controls()) {
      const auto* item = dynamic_cast<const ui::MenuItem*>(control);
      if (item != nullptr) lines.push_back(item->Name() + state(*item));
    }
    return lines;
  }
  Lines changedBy(const std::function<void()>& deed) const {
    const auto before = states();
    deed();
    const auto after = states();
    Lines changed;
    for (std::size_t i = 0; i < after.size(); ++i) {
      if (before[i] != after[i]) changed.push_back(after[i]);
    }
    return changed;
  }
};

TEST_F(MenusTest, TheBarHoldsTheMenusInOrderAndNoPopUp) {
  EXPECT_THAT(entries(nullptr), LinesAre({"mnuFile|&File [VE]", "mnuView|&View [VE]", "mnuTools|&Tools []",
                                          "mnuAgent|&Options []", "mnuHelp|&Help [VE]",
                                          "mnuPopUpTree|PopUpTree [E]", "mnuPopUpList|PopUpList [E]"}));
}

TEST_F(MenusTest, TheFileMenu) {
  EXPECT_THAT(entries(&frmMain.mnuFile),
              LinesAre({"mnuOptionsAddSystems|Find / Add Computer(s)|Ctrl+F [VE]",
                        "mnuOptionsRemoveComputers|&Remove Computer(s) [VE]", "- [VE]",
                        "mnuOptionsCreateGroup|&Create Group [VE]",
                        "mnuOptionsDeleteGroup|&Delete Group [VE]", "mnuOptionsEditGroup|&Edit Group [VE]",
                        "- [VE]", "mnuOptionsNetAccessMode|Select 'Auto Discover' &Mode [VE]", "- [VE]",
                        "mnuFileExit|E&xit [VE]"}));
}

TEST_F(MenusTest, TheViewMenu) {
  EXPECT_THAT(entries(&frmMain.mnuView),
              LinesAre({"mnuViewToolbars|&Toolbars [VE]", "mnuViewStatusBar|Status &Bar [VEC]", "- [VE]",
                        "mnuSystenReport|System Report [VE]", "mnuToolsStatus|Sys&tem Status []", "- [VE]",
                        "mnuViewRefresh|Refresh|F5 [VE]", "- [VE]", "mnuViewLog|&Log [VE]"}));
  EXPECT_THAT(entries(&frmMain.mnuViewToolbars),
              LinesAre({"mnuViewToolbarTools|T&ools [VEC]", "mnuViewToolbarsManager|&Agent Manager []"}));
}

TEST_F(MenusTest, TheToolsMenuThatNobodyReaches) {
  EXPECT_THAT(
      entries(&frmMain.mnuTools),
      LinesAre({"mnuToolsSystemExplorer|Q&uorvane Explorer []", "- [VE]", "mnuToolsHestray|&Hestray []",
                "mnuToolsTrackEvents|&Varnhold for Windows (Track Events) []",
                "mnuToolsTrackTraps|&Snarewick (Track Traps) []",
                "mnuToolsTrackChanges|&Tessmark? for Windows (Track Changes) []"}));
}

TEST_F(MenusTest, TheOptionsMenu) {
  EXPECT_THAT(
      entries(&frmMain.mnuAgent),
      LinesAre({"mnuToolsInstall|&Add System []", "mnuToolsUninstall|&Remove System []",
                "mnuToolsUpgrade|&Upgrade Agent []", "mnuToolsRemoveComponents|Remove Agent &Components []",
                "- []", "mnuToolsStart|Sta&rt Agent Service []",
                "mnuOptionsServiceLogon|Agent &Properties [VE]", "- [VE]",
                "mnuToolsConfigureClient|&Configure System [VE]", "- [VE]",
                "mnuAgentMgmt|Agent &Management Tool [VE]"}));
}

TEST_F(MenusTest, TheHelpMenu) {
  EXPECT_THAT(entries(&frmMain.mnuHelp),
              LinesAre({"mnuHelpContents|Contents|F1 [VE]", "mnuHelpSupport|&Support [VE]", "- [VE]",
                        "mnuHelpAbout|&About  [VE]"}));
}

TEST_F(MenusTest, ThePopUpMenus) {
  EXPECT_THAT(entries(&frmMain.mnuPopUpTree),
              LinesAre({"mnuPopUpTreeDetails|Details [VE]", "mnuPopUpTreeEdit|Edit [VE]", "- []",
                        "mnuPopUpTreeInstall|Add System []", "mnuPopUpTreeUninstall|Remove System []",
                        "mnuPopUpTreeUpgrade|Upgrade Agent []"}));
  EXPECT_THAT(entries(&frmMain.mnuPopUpList),
              LinesAre({"mnuPopUpListDetails|Details [VE]", "- []", "mnuPopUpListInstall|Add System []",
                        "mnuPopUpListUninstall|Remove System []", "mnuPopUpListUpgrade|Upgrade Agent []",
                        "mnuPopUpListRemoveClientComp|Remove Agent Components []", "- []",
                        "mnuPopUpListStart|Start Agent Service []", "mnuPopUpListStatus|System Status []",
                        "- []", "mnuPopUpListConfigureClient|Configure System []",
                        "mnuPopUpModifySystemType|Modify System Type [VE]"}));
}

TEST_F(MenusTest, TheAgentCommandsAreTurnedOnTogether) {
  EXPECT_THAT(
      changedBy([&] { frmMain.turnOnAgentCommands(frmMain.mnuToolsTrackEvents); }),
      testing::UnorderedElementsAre(
          "mnuToolsTrackEvents [VE]", "mnuToolsBar2 [V]", "mnuToolsInstall [VE]", "mnuToolsUninstall [VE]",
          "mnuToolsUpgrade [VE]", "mnuViewToolbarsManager [VEC]", "mnuPopUpListBar0 [V]",
          "mnuPopUpListInstall [VE]", "mnuPopUpListUninstall [VE]", "mnuPopUpListUpgrade [VE]",
          "mnuPopUpListBar1 [V]", "mnuPopUpListBar2 [V]", "mnuPopUpListConfigureClient [VE]",
          "mnuPopUpListRemoveClientComp [VE]", "mnuPopUpTreeBar0 [V]", "mnuPopUpTreeInstall [VE]",
          "mnuPopUpTreeUninstall [VE]", "mnuPopUpTreeUpgrade [VE]", "mnuPopUpListStart [V]",
          "mnuPopUpListStatus [V]", "mnuToolsStart [V]", "mnuToolsStatus [V]",
          "mnuToolsRemoveComponents [VE]", "mnuAgent [VE]"));
  EXPECT_TRUE(frmMain.tbClientManager.Visible);
}

TEST_F(MenusTest, TheOtherTitleTurnsOnTheSameWithItsOwnFirstItem) {
  const auto first = changedBy([&] { frmMain.turnOnAgentCommands(frmMain.mnuToolsTrackChanges); });
  EXPECT_THAT(first, testing::Contains("mnuToolsTrackChanges [VE]"));
  EXPECT_THAT(first, testing::SizeIs(24));
  EXPECT_THAT(changedBy([&] { frmMain.turnOnAgentCommands(frmMain.mnuToolsTrackEvents); }),
              LinesAre({"mnuToolsTrackEvents [VE]"}));
}

TEST_F(MenusTest, TheToolBarsHaveTheirPaddedCaptionsAndTips) {
  const auto buttons = [](const ui::ToolBar& bar) {
    Lines lines;
    for (int i = 1; i <= bar.ButtonCount(); ++i) {
      lines.push_back(bar.Buttons(i).Caption + "|" + bar.Buttons(i).ToolTipText);
    }
    return lines;
  };
  EXPECT_THAT(
      buttons(frmMain.tbOptToolBar),
      LinesAre({"Configure Agents|Configure agent or polling", "Search Computers|Find / Add Computer(s)",
                "Create Group      |Create new group", "Delete Group       |Delete group"}));
  EXPECT_THAT(buttons(frmMain.tbClientManager),
              LinesAre({"|", "Add System        |Select remote computers to be monitored",
                        "Remove System |Select remote computers and stop monitoring",
                        "Upgrade Agent |Select remote computers and upgrade agents"}));
  EXPECT_TRUE(frmMain.tbOptToolBar.Visible);
  EXPECT_FALSE(frmMain.tbClientManager.Visible);
}

TEST_F(MenusTest, TheListHasItsFiveColumns) {
  Lines columns;
  for (int i = 1; i <= frmMain.lvListView.ColumnHeaders.Count(); ++i) {
    columns.push_back(frmMain.lvListView.ColumnHeaders(i).Text);
  }
  EXPECT_THAT(columns, LinesAre({"Computer", "Type", "Description", "System Status", "Port"}));
}

TEST_F(MenusTest, TheTitlesOverTreeAndListStandAsDesigned) {
  EXPECT_EQ(frmMain.lblTitle(0).Caption, " Computer Groups");
  EXPECT_EQ(frmMain.lblTitle(1).Caption, " Computers");
}

TEST_F(MenusTest, TheImageListHoldsTheProductsIconsAtTheirPlaces) {
  EXPECT_EQ(frmMain.imlIcons.ListImages(1), "computer");
  EXPECT_EQ(frmMain.imlIcons.ListImages(3), "app-tessmark");
  EXPECT_EQ(frmMain.imlIcons.ListImages(4), "app-varnhold");
}

}  // namespace
}  // namespace varnhold::console
