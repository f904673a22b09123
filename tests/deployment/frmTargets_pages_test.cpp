// What the wizard's pages show, for each operation, with one product on this computer and with both.
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::IsEmpty;

class PagesTest : public WizardTest {
 protected:
  void onlyVarnhold() { program.gChangesRoot.clear(); }
  void onlyTessmark() { program.gInstallerDir.clear(); }

  /// The names of those that are visible, or enabled, joined by blanks.
  template <class Test>
  static std::string those(std::initializer_list<const ui::Control*> controls, Test test) {
    std::string text;
    for (const auto* const control : controls) {
      if (test(*control)) text += (text.empty() ? "" : " ") + control->Name();
    }
    return text;
  }
  static bool isVisible(const ui::Control& control) { return control.Visible; }
  static bool isEnabled(const ui::Control& control) { return control.Enabled; }

  std::string frames() {
    return those({&targets.freMain, &targets.freSelectAgent, &targets.freAgents, &targets.frePath,
                  &targets.freUpgradeOpts, &targets.freConfig, &targets.freLogon},
                 isVisible);
  }
  std::string lists() {
    return those({&targets.cboGroups, &targets.lvSelect, &targets.lvSelected, &targets.cmdAdd,
                  &targets.cmdRemove, &targets.cmdselectall, &targets.cmdremoveall, &targets.lvSystems,
                  &targets.pbProgress, &targets.lblProgress},
                 isVisible);
  }
  std::string buttons() {
    return those(
        {&targets.cmdBack, &targets.cmdNext, &targets.cmdAdvanced, &targets.cmdInstall, &targets.cmdCancel},
        isEnabled);
  }
  /// Frames and buttons of a page, after the form was activated again on it.
  std::string pageAs(int operation, int page) {
    std::string seen;
    targets.Unload();
    targets.Load();
    addRow("HOST1");
    choose("HOST1");
    show(operation, 2, [&] {
      turnTo(page);
      seen = frames() + ": " + buttons();
    });
    return seen;
  }
};

TEST_F(PagesTest, InstallShowsItsFramesAndButtonsOnEveryPageWhateverIsInstalledHere) {
  for (const bool both : {true, false}) {
    if (!both) onlyVarnhold();
    EXPECT_EQ(pageAs(1, 1), "freMain: cmdNext cmdCancel");
    EXPECT_EQ(pageAs(1, 2), "freMain: cmdBack cmdNext cmdCancel");
    EXPECT_EQ(pageAs(1, 3), "freSelectAgent: cmdBack cmdNext cmdCancel");
    EXPECT_EQ(pageAs(1, 4), "freAgents: cmdBack cmdNext cmdCancel");
    EXPECT_EQ(pageAs(1, 5), "frePath: cmdBack cmdAdvanced cmdInstall cmdCancel");
    EXPECT_EQ(pageAs(1, 6), "freConfig: cmdBack cmdInstall cmdCancel");
    EXPECT_EQ(pageAs(1, 7), "freLogon: cmdBack cmdInstall cmdCancel");
    EXPECT_EQ(pageAs(1, 8), "frePath: cmdBack cmdAdvanced cmdInstall cmdCancel");
  }
}

TEST_F(PagesTest, UninstallWithBothProductsGoesOnFromPage2) {
  EXPECT_EQ(pageAs(2, 1), "freMain: cmdNext cmdCancel");
  EXPECT_EQ(pageAs(2, 2), "freMain: cmdBack cmdNext cmdCancel");
  EXPECT_EQ(pageAs(2, 3), "freSelectAgent: cmdBack cmdNext cmdCancel");
  EXPECT_EQ(pageAs(2, 4), "freAgents: cmdBack cmdInstall cmdCancel");
  // Page 2 has turned `cmdAdvanced` off, and these pages leave it so.
  EXPECT_EQ(pageAs(2, 5), "frePath: cmdBack cmdInstall cmdCancel");
  EXPECT_EQ(pageAs(2, 6), "freConfig: cmdBack cmdInstall cmdCancel");
  EXPECT_EQ(pageAs(2, 7), "freLogon: cmdBack cmdInstall cmdCancel");
  EXPECT_EQ(pageAs(2, 8), "frePath: cmdBack cmdInstall cmdCancel");
}

TEST_F(PagesTest, UninstallWithOneProductOffersItselfOnPage2AtOnce) {
  onlyVarnhold();
  EXPECT_EQ(pageAs(2, 1), "freMain: cmdNext cmdCancel");
  EXPECT_EQ(pageAs(2, 2), "freMain: cmdBack cmdInstall cmdCancel");
}

TEST_F(PagesTest, UpgradeShowsItsOptionsInPlaceOfThePath) {
  for (const bool both : {true, false}) {
    if (!both) onlyVarnhold();
    EXPECT_EQ(pageAs(3, 1), "freMain: cmdNext cmdCancel");
    EXPECT_EQ(pageAs(3, 2), "freMain: cmdBack cmdNext cmdCancel");
    EXPECT_EQ(pageAs(3, 3), "freSelectAgent: cmdBack cmdNext cmdCancel");
    EXPECT_EQ(pageAs(3, 4), "freAgents: cmdBack cmdInstall cmdCancel");
    EXPECT_EQ(pageAs(3, 5), "freUpgradeOpts: cmdBack cmdAdvanced cmdInstall cmdCancel");
    EXPECT_EQ(pageAs(3, 8), "freUpgradeOpts: cmdBack cmdAdvanced cmdInstall cmdCancel");
  }
}

TEST_F(PagesTest, ThePageOfTheConfigurationLeavesTheUpgradeOptionsUpBesideIt) {
  addRow("HOST1");
  choose("HOST1");
  show(3, 2, [this] {
    turnTo(5);
    turnTo(6);
    EXPECT_EQ(frames(), "freUpgradeOpts freConfig");
    turnTo(2);
    EXPECT_EQ(frames(), "freMain");
    turnTo(5);
    turnTo(1);
    EXPECT_EQ(frames(), "freMain");
  });
}

TEST_F(PagesTest, APageThatIsNoneShowsNothingNew) {
  show(1, 1, [this] {
    targets.cmdCancel.Enabled = false;
    for (const int page : {0, 9, -1}) {
      turnTo(page);
      EXPECT_EQ(frames(), "freMain") << page;
      EXPECT_FALSE(targets.cmdCancel.Enabled) << page;
    }
  });
}

TEST_F(PagesTest, ThePointerIsAnHourglassWhileAPageIsMade) {
  choose("HOST1");
  show(1, 1, [this] {
    fake.journal.clear();
    targets.cmdNext.userClick();
    EXPECT_THAT(fakes::linesOf(fake.journal, "Pointer"),
                LinesAre({"Pointer 11", "Pointer 0", "Pointer 11", "Pointer 0"}));
  });
}

TEST_F(PagesTest, TheSelectionPageShowsTheSelectionAlone) {
  for (const int operation : {1, 2, 3}) {
    show(operation, 1, [this] {
      EXPECT_EQ(lists(), "cboGroups lvSelect lvSelected cmdAdd cmdRemove cmdselectall cmdremoveall");
    });
  }
}

TEST_F(PagesTest, Page2ShowsTheRunListAlone) {
  for (const int operation : {1, 2, 3}) {
    show(operation, 2, [this] { EXPECT_EQ(lists(), "lvSystems lblProgress"); });
  }
}

TEST_F(PagesTest, TheSelectionPageSaysWhatItIsFor) {
  const char* const texts[] = {"Select system to be monitored for events",
                               "Select computer(s) to uninstall Agent software.",
                               "Select computer(s) to upgrade Agent software."};
  for (const int operation : {1, 2, 3}) {
    show(operation, 1, [&] { EXPECT_EQ(targets.lblInfo.Caption, texts[operation - 1]); });
  }
}

TEST_F(PagesTest, InstallWaitsForASelectionAndForgetsThePaths) {
  targets.Load();
  targets.lstPathSystems.AddItem("OLD");
  show(1, 1, [this] {
    EXPECT_FALSE(targets.cmdNext.Enabled);
    EXPECT_THAT(entries(targets.lstPathSystems), IsEmpty());
    choose("HOST1");
    reactivate();
    EXPECT_FALSE(targets.cmdNext.Enabled) << "left as it is where something is selected";
  });
}

TEST_F(PagesTest, UninstallOffersTheNextPageExactlyWhenSomethingIsSelected) {
  show(2, 1, [this] {
    EXPECT_FALSE(targets.cmdNext.Enabled);
    choose("HOST1");
    reactivate();
    EXPECT_TRUE(targets.cmdNext.Enabled);
  });
}

TEST_F(PagesTest, UpgradeOffersTheNextPageWhateverIsSelected) {
  show(3, 1, [this] { EXPECT_TRUE(targets.cmdNext.Enabled); });
}

TEST_F(PagesTest, Page2SaysWhatWillHappenToItsSystems) {
  const char* const texts[] = {"Select system to be monitored for events",
                               "Agent(s) will be uninstalled from the following remote computer(s).",
                               "Agent(s) will be upgraded on the following remote computer(s)."};
  for (const int operation : {1, 2, 3}) {
    show(operation, 2, [&] { EXPECT_EQ(targets.lblInfo.Caption, texts[operation - 1]); });
  }
}

TEST_F(PagesTest, Page2SaysWhichButtonLeadsOn) {
  show(1, 2, [this] {
    EXPECT_EQ(targets.lblProgress.Caption, "Select '&Next >' to select Agent software(s).");
    EXPECT_EQ(targets.ActiveControl(), &targets.cmdNext);
  });
  show(2, 2,
       [this] { EXPECT_EQ(targets.lblProgress.Caption, "Select '&Next >' to select Agent software(s)."); });
  onlyVarnhold();
  show(1, 2,
       [this] { EXPECT_EQ(targets.lblProgress.Caption, "Select '&Next >' to select the install path."); });
  show(2, 2, [this] {
    EXPECT_EQ(targets.lblProgress.Caption, "Select '&Uninstall' to proceed.");
    turnTo(2);
    EXPECT_EQ(targets.ActiveControl(), &targets.cmdInstall);
  });
}

TEST_F(PagesTest, Page2OfAnUpgradeLeavesTheLineBelowAlone) {
  targets.Load();
  targets.lblProgress.Caption = "as it was";
  show(3, 2, [this] {
    EXPECT_EQ(targets.lblProgress.Caption, "as it was");
    EXPECT_EQ(targets.ActiveControl(), &targets.cmdNext);
  });
}

TEST_F(PagesTest, TheLineBelowKeepsItsTextOnThePagesThatHaveNoneForIt) {
  show(1, 2, [this] {
    for (const int page : {3, 4, 5, 6, 7, 8}) {
      turnTo(page);
      EXPECT_TRUE(targets.lblProgress.Visible) << page;
      EXPECT_EQ(targets.lblProgress.Caption, "Select '&Next >' to select Agent software(s).") << page;
    }
    turnTo(1);
    EXPECT_FALSE(targets.lblProgress.Visible);
  });
}

TEST_F(PagesTest, Page2OfAnUninstallTakesThePathsFromTheSelectionOrElseFromTheRunList) {
  targets.Load();
  addRow("FROM-RUN-LIST");
  show(2, 2, [this] {
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"FROM-RUN-LIST"}));
    choose("SELECTED");
    reactivate();
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"SELECTED"}));
  });
}

TEST_F(PagesTest, Page2OfAnUpgradeTakesThePathsFromTheSelectionAlone) {
  targets.Load();
  addRow("FROM-RUN-LIST");
  targets.lstPathSystems.AddItem("OLD");
  show(3, 2, [this] {
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"OLD"}));
    choose("SELECTED");
    reactivate();
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"SELECTED"}));
  });
}

TEST_F(PagesTest, Page3OfAnInstallPrefersTheSelectionForThePaths) {
  targets.Load();
  addRow("FROM-RUN-LIST");
  show(1, 2, [this] {
    turnTo(3);
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"FROM-RUN-LIST"}));
    EXPECT_TRUE(targets.lblProgress.Visible);
    choose("SELECTED");
    reactivate();
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"SELECTED"}));
  });
}

TEST_F(PagesTest, Page3OfAnUninstallTakesThePathsFromTheSelectionAlone) {
  targets.Load();
  addRow("FROM-RUN-LIST");
  show(2, 3, [this] {
    EXPECT_THAT(entries(targets.lstPathSystems), IsEmpty());
    choose("SELECTED");
    reactivate();
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"SELECTED"}));
  });
}

TEST_F(PagesTest, Page4ListsTheSystemsAndSaysWhichButtonLeadsOn) {
  const struct {
    int operation;
    const char* text;
    const char* info;
  } cases[] = {
      {1, "Select '&Next >' to select the install path.", "Select the Agent software(s) to install."},
      {2, "Select '&Uninstall' to proceed.", "Select the Agent software(s) to uninstall."},
      {3, "Select '&Upgrade' to proceed.", "Select the Agent software(s) to upgrade."}};
  for (const auto& wanted : cases) {
    targets.Load();
    targets.lvSystems.ListItems.Clear();
    addRow("HOST1");
    addRow("HOST2");
    show(wanted.operation, 2, [&] {
      turnTo(4);
      EXPECT_THAT(entries(targets.lstSystems), LinesAre({"HOST1", "HOST2"}));
      EXPECT_EQ(targets.lblAgentLast.Caption, wanted.text);
      EXPECT_EQ(targets.lblAgentInfo.Caption, wanted.info);
      EXPECT_EQ(targets.ActiveControl(), wanted.operation == 1 ? &targets.cmdNext : &targets.cmdInstall);
    });
  }
}

TEST_F(PagesTest, Page4KeepsNoSystemThatHasLeftTheRunList) {
  targets.Load();
  addRow("HOST1");
  show(1, 2, [this] {
    turnTo(4);
    targets.lvSystems.ListItems.Clear();
    turnTo(4);
    EXPECT_THAT(entries(targets.lstSystems), IsEmpty());
  });
}

TEST_F(PagesTest, Page5OfAnAgentBasedInstallAsksForThePath) {
  targets.Load();
  choose("HOST1");
  targets.OptAgentless.Visible = false;
  show(1, 2, [this] {
    turnTo(5);
    EXPECT_EQ(targets.lblPathInfo.Caption, "Select installation path on the remote machines:");
    EXPECT_EQ(targets.lblPathLast.Caption, "Select '&Install' to proceed.");
    EXPECT_FALSE(targets.cmdEditAccount.Visible);
    EXPECT_FALSE(targets.cmdEditAccount.Enabled);
    EXPECT_TRUE(targets.OptAgentless.Visible);
    EXPECT_FALSE(targets.picPolling.Visible);
    EXPECT_FALSE(targets.picAccount.Visible);
    EXPECT_EQ(targets.ActiveControl(), &targets.cmdInstall);
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"HOST1"}));
  });
}

TEST_F(PagesTest, OnlyOneOfThePathBoxesShows) {
  const auto boxesShown = [this] {
    std::string seen;
    show(1, 2, [&] {
      turnTo(5);
      seen = those({&targets.txtPathVHW, &targets.txtPathTKW}, isVisible);
    });
    return seen;
  };
  EXPECT_EQ(boxesShown(), "txtPathVHW");
  onlyVarnhold();
  EXPECT_EQ(boxesShown(), "txtPathVHW");
  program.gChangesRoot = R"(C:\TESSMARK)";
  onlyTessmark();
  EXPECT_EQ(boxesShown(), "txtPathTKW");
}

TEST_F(PagesTest, WithBothProductsTheBoxOfTheVarnholdAgentShowsWhicheverIsChosen) {
  show(1, 2, [this] {
    targets.optClient(1).Value = true;
    targets.CurrentPage = 4;
    targets.cmdNext.userClick();
    EXPECT_EQ(those({&targets.txtPathVHW, &targets.txtPathTKW}, isVisible), "txtPathVHW");
  });
}

TEST_F(PagesTest, Page5OfAnUpgradeAsksForTheWay) {
  targets.Load();
  addRow("FROM-RUN-LIST");
  targets.OptAgentless.Visible = false;
  show(3, 2, [this] {
    turnTo(5);
    EXPECT_EQ(targets.lblUptOptInfo.Caption,
              "Select the method of upgrade. Choose 'Upgrade Over IP' option to upgrade the agent which is "
              "outside the domain.");
    EXPECT_TRUE(targets.optWinDom.Value);
    EXPECT_FALSE(targets.OptAgentless.Visible);
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"FROM-RUN-LIST"}));
    choose("SELECTED");
    reactivate();
    EXPECT_THAT(entries(targets.lstPathSystems), LinesAre({"SELECTED"}));
  });
}

TEST_F(PagesTest, Page8LeavesTheAgentlessOptionAsItIs) {
  targets.Load();
  targets.OptAgentless.Visible = false;
  show(1, 2, [this] {
    turnTo(8);
    EXPECT_FALSE(targets.OptAgentless.Visible);
  });
}

}  // namespace
}  // namespace varnhold::deployment
