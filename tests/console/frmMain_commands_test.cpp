// What the console's menus, tool bars, keys and pop-up menus do.
#include <gmock/gmock.h>

#include "tests/console/console_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// An open console whose agent commands are on, with one computer of each status.
class CommandsTest : public OpenConsoleTest {
 protected:
  CommandsTest() {
    const struct {
      const char* name;
      int type, module, agentless, systemType;
    } computers[] = {{"AGENTLESS", 10, 1, 1, 0}, {"BOTH", 10, 1, 0, 0},     {"CHANGES", 10, 2, 0, 0},
                     {"HIGH", 10, 1, 0, 1},      {"LOG", 301, 1, 0, 0},     {"OLD", 3, 1, 0, 0},
                     {"STANDARD", 10, 1, 0, 0},  {"UNMANAGED", 10, 0, 0, 0}};
    for (const auto& computer : computers) {
      addComputer(computer.name, computer.type);
      if (computer.module == 0) continue;
      addAgent(computer.name, computer.module, computer.agentless, computer.systemType);
    }
    addAgent("BOTH", 2);
    addGroup("Web", {"HIGH"});
    frmMain.Load();
    frmMain.turnOnAgentCommands(frmMain.mnuToolsTrackEvents);
    open();
  }

  int rowOf(const std::string& name) { return frmMain.lvListView.FindItem(name)->Index(); }
  /// The names of the computers for which `isOn` holds after `deed`.
  template <class Deed, class Test>
  Lines computersFor(Deed deed, Test isOn) {
    Lines found;
    for (const auto& name : names()) {
      deed(name);
      if (isOn()) found.push_back(name);
    }
    return found;
  }
  void rightPress(const std::string& name) {
    frmMain.lvListView.userMouseDown(ui::MouseButton::Right, rowOf(name));
  }
  Lines selected() {
    Lines found;
    for (auto& row : frmMain.lvListView.ListItems) {
      if (row.Selected) found.push_back(row.Text);
    }
    return found;
  }
  Lines popUps() { return fakes::linesOf(fake.journal, "PopupMenu"); }
};

TEST_F(CommandsTest, ExitClosesTheConsole) {
  frmMain.mnuFileExit.userClick();
  EXPECT_FALSE(frmMain.isLoaded());
  EXPECT_TRUE(program.gClosing);
}

TEST_F(CommandsTest, TheBarsComeAndGoWithTheirTicks) {
  const struct {
    ui::MenuItem& entry;
    ui::Control& bar;
  } bars[] = {{frmMain.mnuViewToolbarTools, frmMain.tbOptToolBar},
              {frmMain.mnuViewToolbarsManager, frmMain.tbClientManager},
              {frmMain.mnuViewStatusBar, frmMain.sbStatusBar}};
  for (const auto& [entry, bar] : bars) {
    entry.userClick();
    EXPECT_FALSE(entry.Checked) << entry.Name();
    EXPECT_FALSE(bar.Visible) << entry.Name();
    entry.userClick();
    EXPECT_TRUE(entry.Checked) << entry.Name();
    EXPECT_TRUE(bar.Visible) << entry.Name();
  }
}

TEST_F(CommandsTest, F5Refreshes) {
  frmMain.userKeyDown(ui::kKeyF5);
  EXPECT_THAT(fakes::linesOf(fake.journal, "RegSetValueEx"), testing::SizeIs(1));
}

TEST_F(CommandsTest, HelpAndF1OpenTheSamePage) {
  frmMain.mnuHelpContents.userClick();
  frmMain.userKeyDown(ui::kKeyF1);
  EXPECT_THAT(fake.journal, ElementsAre(testing::StartsWith("ShellExecute open https://"),
                                        testing::StartsWith("ShellExecute open https://")));
  EXPECT_EQ(fake.journal[0], fake.journal[1]);
}

TEST_F(CommandsTest, F1OpensTheHelpWhereItsEntryDoesNotAnswerToo) {
  frmMain.mnuHelp.Enabled = false;
  frmMain.userKeyDown(ui::kKeyF1);
  frmMain.userKeyDown('A');
  EXPECT_THAT(fake.journal, ElementsAre(testing::StartsWith("ShellExecute open https://")));
}

TEST_F(CommandsTest, TheMenusOfferStartAndStatusForTheFocusedRow) {
  const auto choose = [&](const std::string& name) { frmMain.lvListView.userClick(rowOf(name)); };
  for (auto* menu : {&frmMain.mnuAgent, &frmMain.mnuView}) {
    const auto look = [&](const std::string& name) {
      choose(name);
      menu->userClick();
    };
    EXPECT_THAT(computersFor(look, [&] { return frmMain.mnuToolsStart.Enabled.get(); }),
                LinesAre({"BOTH", "CHANGES", "STANDARD"}));
    EXPECT_THAT(computersFor(look, [&] { return frmMain.mnuToolsStatus.Enabled.get(); }),
                LinesAre({"BOTH", "CHANGES", "STANDARD"}));
  }
}

TEST_F(CommandsTest, TheMenusOfferNeitherWithoutAFocusedRow) {
  frmMain.lvListView.userClick(rowOf("STANDARD"));
  frmMain.mnuAgent.userClick();
  frmMain.lvListView.SetSelectedItem(nullptr);
  frmMain.mnuAgent.userClick();
  EXPECT_FALSE(frmMain.mnuToolsStart.Enabled);
  EXPECT_FALSE(frmMain.mnuToolsStatus.Enabled);
}

TEST_F(CommandsTest, TheRuleLooksAtOneRowWhenSeveralAreSelected) {
  frmMain.lvListView.userClick(rowOf("STANDARD"));
  frmMain.lvListView.userClick(rowOf("UNMANAGED"), ui::kControl);
  frmMain.mnuView.userClick();
  EXPECT_FALSE(frmMain.mnuToolsStart.Enabled);
}

TEST_F(CommandsTest, TheListsPopUpOffersStartAndStatusForTheRowUnderThePointer) {
  const auto look = [&](const std::string& name) { rightPress(name); };
  EXPECT_THAT(computersFor(look, [&] { return frmMain.mnuPopUpListStart.Enabled.get(); }),
              LinesAre({"BOTH", "CHANGES", "STANDARD"}));
  EXPECT_THAT(computersFor(look, [&] { return frmMain.mnuPopUpListStatus.Enabled.get(); }),
              LinesAre({"BOTH", "CHANGES", "STANDARD"}));
}

TEST_F(CommandsTest, TheListsPopUpLooksAtTheRowUnderThePointerAndNotAtTheFocusedOne) {
  frmMain.lvListView.userClick(rowOf("UNMANAGED"));
  frmMain.lvListView.userClick(rowOf("STANDARD"), ui::kControl);
  rightPress("UNMANAGED");
  EXPECT_FALSE(frmMain.mnuPopUpListStart.Enabled);
  EXPECT_THAT(selected(), LinesAre({"STANDARD", "UNMANAGED"}));
}

TEST_F(CommandsTest, ARightPressSelectsItsRowBesideTheOthers) {
  frmMain.lvListView.userClick(rowOf("BOTH"));
  rightPress("HIGH");
  EXPECT_THAT(selected(), LinesAre({"BOTH", "HIGH"}));
  EXPECT_THAT(popUps(), LinesAre({"PopupMenu mnuPopUpList -> nothing"}));
}

TEST_F(CommandsTest, TheListsPopUpNeverOffersToModifyTheType) {
  frmMain.mnuPopUpModifySystemType.Visible = true;
  rightPress("HIGH");
  EXPECT_FALSE(frmMain.mnuPopUpModifySystemType.Visible);
}

TEST_F(CommandsTest, OnlyARightPressOnARowShowsThePopUp) {
  frmMain.lvListView.userMouseDown(ui::MouseButton::Right, 0);
  frmMain.lvListView.userMouseDown(ui::MouseButton::Left, 1);
  EXPECT_THAT(popUps(), IsEmpty());
}

TEST_F(CommandsTest, ARightPressOnANodeSelectsAndLoadsIt) {
  frmMain.mnuPopUpTreeEdit.Enabled = false;
  frmMain.tvTreeView.userMouseDown(ui::MouseButton::Right, 2);
  EXPECT_EQ(selectedNode(), "Web");
  EXPECT_THAT(names(), LinesAre({"HIGH"}));
  EXPECT_TRUE(frmMain.mnuPopUpTreeEdit.Enabled);
  EXPECT_THAT(popUps(), LinesAre({"PopupMenu mnuPopUpTree -> nothing"}));
}

TEST_F(CommandsTest, ARightPressOnTheSelectedNodeLoadsNothing) {
  frmMain.CurrentNodeText = "";
  frmMain.tvTreeView.userMouseDown(ui::MouseButton::Right, 1);
  EXPECT_THAT(fake.journal, LinesAre({"PopupMenu mnuPopUpTree -> nothing"}));
}

TEST_F(CommandsTest, OnlyARightPressOnANodeShowsThePopUp) {
  frmMain.tvTreeView.userMouseDown(ui::MouseButton::Right, 0);
  frmMain.tvTreeView.userMouseDown(ui::MouseButton::Left, 2);
  EXPECT_THAT(popUps(), IsEmpty());
  EXPECT_EQ(selectedNode(), "Groups");
}

TEST_F(CommandsTest, ToolBarsAndPopUpsRunTheCommandsOfTheMenus) {
  Lines ran;
  for (auto* item : {&frmMain.mnuToolsConfigureClient, &frmMain.mnuOptionsAddSystems,
                     &frmMain.mnuOptionsCreateGroup, &frmMain.mnuOptionsDeleteGroup, &frmMain.mnuToolsInstall,
                     &frmMain.mnuToolsUninstall, &frmMain.mnuToolsUpgrade, &frmMain.mnuToolsRemoveComponents,
                     &frmMain.mnuToolsStart, &frmMain.mnuToolsStatus}) {
    item->Click = [&ran, item] { ran.push_back(item->Name()); };
  }
  for (int button = 1; button <= 4; ++button) frmMain.tbOptToolBar.userClick(button);
  for (int button = 1; button <= 4; ++button) frmMain.tbClientManager.userClick(button);
  for (const char* entry : {"mnuPopUpListRemoveClientComp", "mnuPopUpListStart", "mnuPopUpListStatus",
                            "mnuPopUpListConfigureClient"}) {
    ui.nextPopUp(entry);
    rightPress("STANDARD");
  }
  EXPECT_THAT(ran, LinesAre({"mnuToolsConfigureClient", "mnuOptionsAddSystems", "mnuOptionsCreateGroup",
                             "mnuOptionsDeleteGroup", "mnuToolsInstall", "mnuToolsUninstall",
                             "mnuToolsUpgrade", "mnuToolsRemoveComponents", "mnuToolsStart", "mnuToolsStatus",
                             "mnuToolsConfigureClient"}));
}

class ModeCommandTest : public CommandsTest {
 protected:
  /// The operator chooses a mode in the form that the entry shows.
  void choose(bool automatic) {
    fake.libraries.netAccessMode = automatic ? 0 : 1;
    ui.nextModal("frmNetAccessSel", [this, automatic](ui::Form& form) {
      (automatic ? forms.frmNetAccessSel.optAutomatic : forms.frmNetAccessSel.optManual).userClick();
      form.Unload();
    });
    fake.journal.clear();
    frmMain.mnuOptionsNetAccessMode.userClick();
  }
  Lines enumerations() { return fakes::linesOf(fake.journal, "qrvNetworkEnum"); }
};

TEST_F(ModeCommandTest, EnumeratesWhereTheModeIsAutomaticAndNoThreadRuns) {
  StatusWatch watch(frmMain.sbStatusBar, fake.journal);
  choose(true);
  EXPECT_THAT(fakes::linesOf(fake.journal, "Status"),
              LinesAre({"Status Appling Changes...", "Status Displaying Windows Systems"}));
  EXPECT_THAT(enumerations(), LinesAre({"qrvNetworkEnum -> 8"}));
  EXPECT_EQ(program.gEnumThread, 8u);
  EXPECT_EQ(panel(2), "Auto Discover");
  EXPECT_FALSE(isBusy());
}

TEST_F(ModeCommandTest, LeavesARunningEnumerationAlone) {
  program.gEnumThread = fake.threads.start(1000, 3);
  choose(true);
  EXPECT_THAT(enumerations(), IsEmpty());
}

TEST_F(ModeCommandTest, OnlySaysSoWhereTheModeIsManual) {
  program.gEnumThread = 0;
  choose(false);
  EXPECT_THAT(enumerations(), IsEmpty());
  EXPECT_EQ(panel(2), "Manual");
  EXPECT_THAT(fakes::linesOf(fake.journal, "GetExitCodeThread"), IsEmpty());
}

TEST_F(ModeCommandTest, RefreshAsksTheLibraryInManualModeToo) {
  program.gEnumThread = 0;
  choose(false);
  frmMain.mnuViewRefresh.userClick();
  EXPECT_THAT(enumerations(), LinesAre({"qrvNetworkEnum -> 8"}));
}

class DetailsTest : public CommandsTest {
 protected:
  /// Details are shown next, of a row of the list or of a group.
  void expectDetails(bool ofListItem) {
    ui.nextModal("frmDetails", [this, ofListItem](ui::Form& form) {
      EXPECT_EQ(forms.frmDetails.ShowDetailsOfListItem, ofListItem);
      ++shown;
      form.Unload();
    });
  }
  int shown = 0;
};

TEST_F(DetailsTest, ADoubleClickShowsTheRow) {
  expectDetails(true);
  frmMain.lvListView.userDblClick(2);
  EXPECT_EQ(shown, 1);
}

TEST_F(DetailsTest, ADoubleClickWithoutAClickBeforeItShowsNothing) {
  expectDetails(true);
  frmMain.lvListView.userDblClick(2);
  frmMain.lvListView.DblClick.raise();
  EXPECT_EQ(shown, 1);
}

TEST_F(DetailsTest, EnterShowsThemWithNoRowSelectedToo) {
  frmMain.lvListView.SetSelectedItem(nullptr);
  expectDetails(true);
  frmMain.lvListView.userKeyPress(ui::kKeyReturn);
  frmMain.lvListView.userKeyPress('x');
  EXPECT_EQ(shown, 1);
}

TEST_F(DetailsTest, ThePopUpsShowTheRowAndTheGroup) {
  expectDetails(true);
  ui.nextPopUp("mnuPopUpListDetails");
  rightPress("HIGH");
  expectDetails(false);
  ui.nextPopUp("mnuPopUpTreeDetails");
  frmMain.tvTreeView.userMouseDown(ui::MouseButton::Right, 2);
  EXPECT_EQ(shown, 2);
}

TEST_F(CommandsTest, ModifyingTheTypeShowsItsForm) {
  rightPress("HIGH");
  ui.nextModal("frmSystemType", [](ui::Form& form) { form.Unload(); });
  frmMain.mnuPopUpModifySystemType.Click.raise();
}

TEST_F(CommandsTest, ACreatedGroupIsSelected) {
  frmMain.CurrentNodeText = "";
  addGroup("New", {"BOTH"});
  frmMain.showCreatedGroup("NEW");
  EXPECT_EQ(selectedNode(), "New");
  EXPECT_EQ(frmMain.CurrentNodeText, "New");
  EXPECT_THAT(names(), LinesAre({"BOTH"}));
}

TEST_F(CommandsTest, TheListStaysWhereTheCreatedGroupIsNotFound) {
  frmMain.CurrentNodeText = "";
  const auto before = names();
  frmMain.showCreatedGroup("Lost");
  EXPECT_EQ(names(), before);
  EXPECT_EQ(frmMain.CurrentNodeText, "");
  EXPECT_THAT(statements(), LinesAre({"SQL: SELECT * FROM System_Group_Detail"}));
}

TEST_F(CommandsTest, AnEditedGroupIsSelected) {
  StatusWatch watch(frmMain.sbStatusBar, fake.journal);
  frmMain.showEditedGroup("web");
  EXPECT_THAT(fakes::linesOf(fake.journal, "Status"),
              LinesAre({"Status Please Wait...", "Status Reloading...", "Status Reading...",
                        "Status Displaying Windows Systems"}));
  EXPECT_EQ(selectedNode(), "Web");
  EXPECT_EQ(frmMain.CurrentNodeText, "Web");
  EXPECT_THAT(names(), LinesAre({"HIGH"}));
}

TEST_F(CommandsTest, EveryComputerIsShownWhereTheEditedGroupHasGone) {
  frmMain.tvTreeView.userClick(2);
  frmMain.showEditedGroup("Gone");
  EXPECT_THAT(names(), testing::SizeIs(8));
}

}  // namespace
}  // namespace varnhold::console
