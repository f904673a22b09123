// Which computers the agent commands hand to the deployment wizard, and whether it is shown.
#include <gmock/gmock.h>

#include "tests/console/console_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

using testing::IsEmpty;

/// As much of the wizard as the console touches.
class WizardForm : public ui::Form {
 public:
  explicit WizardForm(ui::Screen& screen) : Form(screen, "frmTargets") {
    adopt({{"lvSystems", lvSystems}, {"lvSelected", lvSelected}, {"lstPathSystems", lstPathSystems}});
  }
  [[nodiscard]] DeploymentWizard wizard() {
    return {*this, Operation, CurrentPage, lvSystems, lvSelected, lstPathSystems};
  }

  int Operation = 0, CurrentPage = 0;
  ui::ListView lvSystems, lvSelected;
  ui::ListBox lstPathSystems;
};

/// An open console with one computer of each status, MANAGER among them.
class TargetsTest : public OpenConsoleTest {
 protected:
  TargetsTest() {
    const struct {
      const char* name;
      int type, module, agentless, systemType;
    } computers[] = {{"AGENTLESS", 10, 1, 1, 0}, {"BOTH", 10, 1, 0, 0},     {"CHANGES", 10, 2, 0, 0},
                     {"HIGH", 10, 1, 0, 1},      {"LOG", 301, 1, 0, 0},     {"MANAGER", 10, 1, 0, 0},
                     {"OLD", 3, 0, 0, 0},        {"STANDARD", 10, 1, 0, 0}, {"SUN", 101, 1, 0, 0},
                     {"UNMANAGED", 10, 0, 0, 0}};
    for (const auto& computer : computers) {
      addComputer(computer.name, computer.type);
      if (computer.module == 0) continue;
      addAgent(computer.name, computer.module, computer.agentless, computer.systemType);
    }
    addAgent("BOTH", 2);
    frmMain.wizard.emplace(targets.wizard());
    frmMain.Load();
    frmMain.turnOnAgentCommands(frmMain.mnuToolsTrackEvents);
    open();
  }

  /// The next wizard that is shown tells what it holds and goes away.
  void expectWizard() {
    ui.nextModal("frmTargets", [this](ui::Form& form) {
      shownWizard = content();
      form.Unload();
    });
  }
  /// operation/page: the candidates, the selected, the path page's, each in brackets.
  std::string content() {
    return std::to_string(targets.Operation) + "/" + std::to_string(targets.CurrentPage) + ": [" +
           of(targets.lvSystems) + "] [" + of(targets.lvSelected) + "] [" + paths() + "]";
  }
  /// Name, or name=words where something is said of its snapshots, and a star for the picture.
  static std::string of(const ui::ListView& list) {
    std::string text;
    for (const auto& row : list.ListItems) {
      text += (text.empty() ? "" : " ") + row.Text.get();
      if (!row.SubItems(2).empty()) text += "=" + row.SubItems(2);
      if (row.ReportIcon(2) == 2) text += "*";
    }
    return text;
  }
  std::string paths() {
    std::string text;
    for (int i = 0; i < targets.lstPathSystems.ListCount(); ++i) {
      text += (i == 0 ? "" : " ") + targets.lstPathSystems.List(i);
    }
    return text;
  }

  void select(const Lines& wanted) {
    for (auto& row : frmMain.lvListView.ListItems) row.Selected = false;
    for (const auto& name : wanted) frmMain.lvListView.FindItem(name)->Selected = true;
  }
  /// Chooses the entry in the list's pop-up menu without touching the selection, and gives what the wizard
  /// held when it was shown, or "not shown".
  std::string fromList(ui::MenuItem& entry, bool isShown = true) { return chosen(entry, isShown); }
  std::string fromTree(ui::MenuItem& entry) { return chosen(entry, true); }
  std::string chosen(ui::MenuItem& entry, bool isShown) {
    shownWizard = "not shown";
    if (isShown) expectWizard();
    entry.Click.raise();
    return shownWizard;
  }
  static inline const Lines kEveryName = {"AGENTLESS", "BOTH", "CHANGES",  "HIGH", "LOG",
                                          "MANAGER",   "OLD",  "STANDARD", "SUN",  "UNMANAGED"};

  WizardForm targets{ui.screen};
  std::string shownWizard;
};

TEST_F(TargetsTest, TheComputersHaveTheStatusesOfThisTest) {
  Lines statuses;
  for (auto& row : frmMain.lvListView.ListItems) statuses.push_back(row.Text + ": " + row.SubItems(3).get());
  EXPECT_THAT(statuses, LinesAre({"AGENTLESS: Managed - Agentless Mode", "BOTH: Tracking Changes & Events",
                                  "CHANGES: Tracking Changes", "HIGH: Managed - High Performance Mode",
                                  "LOG: Managed", "MANAGER: Managed - Standard Mode", "OLD: Not Applicable",
                                  "STANDARD: Managed - Standard Mode", "SUN: Managed - Standard Mode",
                                  "UNMANAGED: Unmanaged"}));
}

TEST_F(TargetsTest, TheMenusOpenTheWizardOnItsSelectionPageWithoutRows) {
  const struct {
    ui::MenuItem& entry;
    const char* content;
  } cases[] = {{frmMain.mnuToolsInstall, "1/1: [] [] []"},
               {frmMain.mnuToolsUninstall, "2/1: [] [] []"},
               {frmMain.mnuToolsUpgrade, "3/1: [] [] []"}};
  select(kEveryName);
  for (const auto& [entry, content] : cases) {
    expectWizard();
    entry.userClick();
    EXPECT_EQ(shownWizard, content);
  }
}

TEST_F(TargetsTest, TheTreeAddsEveryComputerThatIsNotInStandardMode) {
  EXPECT_EQ(fromTree(frmMain.mnuPopUpTreeInstall),
            "1/1: [AGENTLESS BOTH CHANGES HIGH LOG OLD UNMANAGED] [] []");
}

TEST_F(TargetsTest, TheTreeLeavesTheLocalComputerToAddWhereItsStatusAllows) {
  inventory.execute("DELETE FROM Module_Table");
  frmMain.reloadAll();
  EXPECT_THAT(fromTree(frmMain.mnuPopUpTreeInstall), testing::HasSubstr("MANAGER"));
}

TEST_F(TargetsTest, TheTreeRemovesManagedComputersButNotTheLocalOne) {
  EXPECT_EQ(fromTree(frmMain.mnuPopUpTreeUninstall),
            "2/2: [AGENTLESS HIGH STANDARD SUN] [] [AGENTLESS HIGH STANDARD SUN]");
}

TEST_F(TargetsTest, TheTreeUpgradesRealAgentsButNotTheLocalOne) {
  EXPECT_EQ(fromTree(frmMain.mnuPopUpTreeUpgrade), "3/2: [HIGH STANDARD SUN] [] [HIGH STANDARD SUN]");
}

TEST_F(TargetsTest, TheTreeShowsTheWizardWithoutACandidateToo) {
  inventory.execute("DELETE FROM Module_Table");
  frmMain.reloadAll();
  EXPECT_EQ(fromTree(frmMain.mnuPopUpTreeUninstall), "2/2: [] [] []");
  EXPECT_EQ(fromTree(frmMain.mnuPopUpTreeUpgrade), "3/2: [] [] []");
}

TEST_F(TargetsTest, TheTreeActsOnEveryRowWhateverIsSelected) {
  select({"HIGH"});
  EXPECT_EQ(fromTree(frmMain.mnuPopUpTreeUpgrade), "3/2: [HIGH STANDARD SUN] [] [HIGH STANDARD SUN]");
}

TEST_F(TargetsTest, AnotherCaseOfTheLocalNameIsAnotherComputer) {
  program.gLocalName = "manager";
  EXPECT_EQ(fromTree(frmMain.mnuPopUpTreeUpgrade),
            "3/2: [HIGH MANAGER STANDARD SUN] [] [HIGH MANAGER STANDARD SUN]");
  select({"MANAGER"});
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUpgrade), "3/2: [MANAGER] [] [MANAGER]");
}

TEST_F(TargetsTest, TheListAddsUnmanagedComputersAsChosenOnes) {
  select(kEveryName);
  EXPECT_EQ(fromList(frmMain.mnuPopUpListInstall), "1/2: [UNMANAGED] [UNMANAGED] []");
}

TEST_F(TargetsTest, TheListRemovesWhatItMay) {
  select(kEveryName);
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUninstall),
            "2/2: [AGENTLESS BOTH CHANGES HIGH OLD STANDARD] [] [AGENTLESS BOTH CHANGES HIGH OLD STANDARD]");
}

TEST_F(TargetsTest, TheListUpgradesWhatItWouldRemove) {
  select(kEveryName);
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUpgrade),
            "3/2: [AGENTLESS BOTH CHANGES HIGH OLD STANDARD] [] [AGENTLESS BOTH CHANGES HIGH OLD STANDARD]");
}

TEST_F(TargetsTest, TheListActsOnTheSelectedRowsAlone) {
  select({"HIGH", "STANDARD"});
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUninstall), "2/2: [HIGH STANDARD] [] [HIGH STANDARD]");
}

TEST_F(TargetsTest, WithNothingSelectedTheListOpensTheWizardToRemoveAndForNothingElse) {
  select({});
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUninstall), "2/2: [] [] []");
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUpgrade, false), "not shown");
  EXPECT_EQ(fromList(frmMain.mnuPopUpListInstall, false), "not shown");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(TargetsTest, SunAndManagedComputersAreLeftOutWithoutAWord) {
  select({"SUN", "LOG"});
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUpgrade, false), "not shown");
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUninstall), "2/2: [] [] []");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(TargetsTest, AFocusedLocalRowKeepsTheListFromAddingTheOthers) {
  select({"UNMANAGED", "MANAGER"});  // the last one selected has the focus
  EXPECT_EQ(fromList(frmMain.mnuPopUpListInstall, false), "not shown");
  // What it filled stays in the wizard that nobody saw.
  EXPECT_TRUE(targets.isLoaded());
  EXPECT_EQ(content(), "1/2: [UNMANAGED] [UNMANAGED] []");
  select({"MANAGER", "UNMANAGED"});
  EXPECT_EQ(fromList(frmMain.mnuPopUpListInstall), "1/2: [UNMANAGED UNMANAGED] [UNMANAGED UNMANAGED] []");
}

TEST_F(TargetsTest, CandidatesCarryTheirStatus) {
  ui.nextModal("frmTargets", [this](ui::Form& form) {
    EXPECT_EQ(targets.lvSystems.ListItems(1).SubItems(1), "Unmanaged");
    EXPECT_EQ(targets.lvSelected.ListItems(1).SubItems(1), "Unmanaged");
    form.Unload();
  });
  select({"UNMANAGED"});
  frmMain.mnuPopUpListInstall.Click.raise();
}

TEST_F(TargetsTest, RemovingFromTheListAsksAboutSnapshotsWhereTheChangeProductIsInstalled) {
  program.gChangesRoot = R"(C:\Changes)";
  select({"BOTH", "CHANGES", "HIGH"});
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUninstall),
            "2/2: [BOTH=No* CHANGES=No* HIGH] [] [BOTH CHANGES HIGH]");
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUpgrade), "3/2: [BOTH CHANGES HIGH] [] [BOTH CHANGES HIGH]");
}

TEST_F(TargetsTest, NothingIsSaidOfSnapshotsWithoutTheChangeProduct) {
  select({"BOTH"});
  EXPECT_EQ(fromList(frmMain.mnuPopUpListUninstall), "2/2: [BOTH] [] [BOTH]");
}

TEST_F(TargetsTest, RemovingFromTheTreeLooksAtTheSnapshotsOfTheRowAddedLast) {
  program.gChangesRoot = R"(C:\Changes)";
  // No status that the tree removes has snapshots, so that nothing is ever said of them.
  EXPECT_EQ(fromTree(frmMain.mnuPopUpTreeUninstall),
            "2/2: [AGENTLESS HIGH STANDARD SUN] [] [AGENTLESS HIGH STANDARD SUN]");
}

TEST_F(TargetsTest, TheWizardBelongsToTheConsole) {
  ui.nextModal("frmTargets", [this](ui::Form& form) {
    EXPECT_FALSE(frmMain.acceptsInput());
    form.Hide();
  });
  frmMain.mnuToolsInstall.userClick();
  EXPECT_TRUE(frmMain.acceptsInput());
}

}  // namespace
}  // namespace varnhold::console
