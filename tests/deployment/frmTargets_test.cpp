// How the wizard loads, is activated and goes away.
#include "core/registry_values.h"
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class WizardLifeTest : public WizardTest {
 protected:
  using WizardTest::WizardTest;

  /// Where agents report back to, as the registry has it; "none" where it has nothing.
  std::string reportingAddress() {
    const auto value = fake.registry.stored(core::kAgentKey, "ConfigIPAddr");
    return value ? value->bytes.c_str() : "none";
  }
  std::vector<double> widths(const ui::ListView& list) {
    std::vector<double> all;
    for (int i = 1; i <= list.ColumnHeaders.Count(); ++i) all.push_back(list.ColumnHeaders(i).Width);
    return all;
  }
};

// Load.

TEST_F(WizardLifeTest, BearsTheIconOfItsProductAndTheNameOfTheOtherOne) {
  targets.Load();
  EXPECT_EQ(targets.Icon, "varnhold");
  EXPECT_EQ(targets.optClient(1).Caption, "Tessmark for Windows");
  EXPECT_TRUE(targets.OptAgentbased.Value);
  EXPECT_FALSE(targets.OptAgentless.Value);
}

class TessmarkWizardTest : public WizardLifeTest {
 protected:
  TessmarkWizardTest() : WizardLifeTest(core::kChangesTitle) {}
};

TEST_F(TessmarkWizardTest, BearsTheIconOfItsProduct) {
  targets.Load();
  EXPECT_EQ(targets.Icon, "tessmark");
}

TEST_F(WizardLifeTest, PublishesTheManagersAddressForAgents) {
  fake.registry.makeKey(core::kAgentKey);
  fake.libraries.computers["MANAGER"].address = "10.9.8.7";
  targets.Load();
  EXPECT_EQ(reportingAddress(), "10.9.8.7");
  EXPECT_TRUE(fake.registry.stored(core::kAgentKey, "enableprotection").has_value());
}

TEST_F(WizardLifeTest, LoadsInSilenceWhereTheAddressCannotBePublished) {
  targets.Load();
  EXPECT_EQ(reportingAddress(), "none");
  targets.Unload();
  for (const char* const function : {"qrvGetSystemIPAddress", "qrvFindSystemAndReturnDetails"})
    fake.libraries.failures.emplace(function, RuntimeError(kFileNotFound, "no library"));
  targets.Load();
  EXPECT_TRUE(targets.isLoaded());
  EXPECT_EQ(targets.LocalOSMajor, 0);
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(WizardLifeTest, FindsOutWhichWindowsTheManagerRuns) {
  fake.libraries.computers["MANAGER"].osMajorVersion = 10;
  targets.Load();
  EXPECT_EQ(targets.LocalOSMajor, 10);
}

TEST_F(WizardLifeTest, ClearsTheStateOfTheRunBefore) {
  targets.ErrorsSeen = targets.RunBusy = targets.StopRequested = true;
  targets.Load();
  EXPECT_FALSE(targets.ErrorsSeen);
  EXPECT_FALSE(targets.RunBusy);
  EXPECT_FALSE(targets.StopRequested);
}

// Activation.

TEST_F(WizardLifeTest, IsCaptionedByItsOperation) {
  const struct {
    const char *caption, *action, *info;
  } texts[] = {{"Add Agent", "&Install", "Select the Agent software(s) to install."},
               {"Uninstall Remote Agent(s)", "&Uninstall", "Select the Agent software(s) to uninstall."},
               {"Upgrade Remote Agent(s)", "&Upgrade", "Select the Agent software(s) to upgrade."}};
  for (const int operation : {1, 2, 3}) {
    const auto& wanted = texts[operation - 1];
    show(operation, 1, [&] {
      EXPECT_EQ(targets.Caption, wanted.caption);
      EXPECT_EQ(targets.cmdInstall.Caption, wanted.action);
      EXPECT_EQ(targets.lblAgentInfo.Caption, wanted.info);
    });
  }
}

TEST_F(WizardLifeTest, AsksForSnapshotsInAThirdColumnWhenChangesAreUninstalled) {
  show(2, 1, [this] {
    EXPECT_THAT(widths(targets.lvSystems), ElementsAre(2, 3, 1));
    reactivate();
    EXPECT_EQ(targets.lvSystems.ColumnHeaders(3).Text, "Keep Snaps");
  });
  targets.Unload();
  for (const int operation : {1, 3}) {
    show(operation, 1, [this] {
      EXPECT_THAT(widths(targets.lvSystems), ElementsAre(1, 2));
      reactivate();
      EXPECT_THAT(widths(targets.lvSystems), ElementsAre(1, 2));
    });
    targets.Unload();
  }
  program.gChangesRoot.clear();
  show(2, 1, [this] { EXPECT_THAT(widths(targets.lvSystems), ElementsAre(1, 2)); });
}

TEST_F(WizardLifeTest, AResizeGivesTheColumnsTheirWidthsAgain) {
  show(1, 1, [this] {
    targets.lvSelect.ColumnHeaders(1).Width = 0.5;
    targets.lvSelected.ColumnHeaders(1).Width = 0.5;
    targets.lvSystems.ColumnHeaders(2).Width = 9;
    targets.userResize(12000, 9000, ui::WindowState::Normal);
    EXPECT_THAT(widths(targets.lvSelect), ElementsAre(1));
    EXPECT_THAT(widths(targets.lvSelected), ElementsAre(1));
    EXPECT_THAT(widths(targets.lvSystems), ElementsAre(1, 2));
  });
}

TEST_F(WizardLifeTest, ActivationGoesThroughItsStepsInOrder) {
  plantTree({"Lab"});
  console.tvTreeView.Nodes(2).Select();
  addGroup("Lab");
  targets.Load();
  targets.Operation = 1;
  targets.CurrentPage = 1;
  fake.journal.clear();
  ui.onPump = [this] { fake.journal.push_back("events"); };
  ui.nextModal("frmTargets", [this](ui::Form&) {
    EXPECT_THAT(fakes::linesWithout(fake.journal, {"Show"}),
                LinesAre({"Pointer 11", "Pointer 0", "events", "Pointer 11", "NodeClick Lab",
                          "SQL: SELECT * FROM System_Group_Master",
                          "SQL: SELECT * FROM System_Group WHERE Group_Name = 'Lab'", "Pointer 0"}));
    targets.Hide();
  });
  targets.ShowModal(&console);
}

TEST_F(WizardLifeTest, WithoutASelectedNodeOrWithTheRootEveryGroupCanBeChosen) {
  addGroup("Lab");
  plantTree({"Lab"});
  show(1, 1, [this] {
    EXPECT_EQ(targets.cboGroups.Text, "All");
    EXPECT_TRUE(targets.cboGroups.Enabled);
    EXPECT_THAT(entries(targets.cboGroups), LinesAre({"All", "Lab"}));
  });
  targets.Unload();
  EXPECT_THAT(fakes::linesOf(fake.journal, "NodeClick"), IsEmpty());
  console.tvTreeView.Nodes(1).Select();
  show(1, 1, [this] {
    EXPECT_EQ(targets.cboGroups.Text, "All");
    EXPECT_TRUE(targets.cboGroups.Enabled);
  });
  EXPECT_THAT(fakes::linesOf(fake.journal, "NodeClick"), LinesAre({"NodeClick Groups"}));
}

TEST_F(WizardLifeTest, TheGroupOfTheSelectedNodeIsTheOnlyOne) {
  addComputer("HOST1");
  addComputer("HOST2");
  addGroup("Lab", {"HOST2"});
  plantTree({"Lab"});
  console.tvTreeView.Nodes(2).Select();
  show(1, 1, [this] {
    EXPECT_EQ(targets.cboGroups.Text, "Lab");
    EXPECT_FALSE(targets.cboGroups.Enabled);
    EXPECT_THAT(names(targets.lvSelect), LinesAre({"HOST2"}));
    EXPECT_TRUE(console.tvTreeView.Nodes(2).Selected());
  });
}

TEST_F(WizardLifeTest, AGroupThatHasGoneIsPassedOver) {
  plantTree({"Gone"});
  console.tvTreeView.Nodes(2).Select();
  show(1, 1, [this] {
    EXPECT_EQ(targets.cboGroups.Text, "");
    EXPECT_FALSE(targets.cboGroups.Enabled);
    EXPECT_FALSE(targets.cmdBack.Enabled);
  });
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(WizardLifeTest, EachActivationAddsTheGroupsOnceMore) {
  addGroup("Lab");
  addGroup("Web");
  show(1, 1, [this] {
    EXPECT_THAT(entries(targets.cboGroups), LinesAre({"All", "Lab", "Web"}));
    reactivate();
    EXPECT_THAT(entries(targets.cboGroups), LinesAre({"All", "Lab", "Web", "Lab", "Web"}));
  });
}

TEST_F(WizardLifeTest, ActivationChoosesTheFirstOptionsAgain) {
  show(1, 1, [this] {
    targets.optConfig(1).Value = true;
    targets.optAccounts(1).Value = true;
    targets.optClient(1).Value = true;
    reactivate();
    EXPECT_TRUE(targets.optConfig(0).Value);
    EXPECT_TRUE(targets.optAccounts(0).Value);
    EXPECT_TRUE(targets.optClient(0).Value);
  });
}

TEST_F(WizardLifeTest, ActivationChoosesTheTessmarkAgentWhereItsManagerIsTheOnlyOne) {
  program.gInstallerDir.clear();
  show(1, 1, [this] { EXPECT_TRUE(targets.optClient(1).Value); });
}

TEST_F(WizardLifeTest, ActivationShowsThePageAnewAndTheWholeGroupWhereAnotherWasChosen) {
  addComputer("HOST1");
  addComputer("HOST2");
  addGroup("Lab", {"HOST2"});
  show(1, 1, [this] {
    targets.cboGroups.userSelect(1);
    ASSERT_THAT(names(targets.lvSelect), LinesAre({"HOST2"}));
    targets.freMain.Visible = false;
    reactivate();
    EXPECT_TRUE(targets.freMain.Visible);
    EXPECT_EQ(targets.cboGroups.Text, "All");
    EXPECT_THAT(names(targets.lvSelect), LinesAre({"HOST1", "HOST2"}));
  });
}

TEST_F(WizardLifeTest, AMessageBoxActivatesNothing) {
  addGroup("Lab");
  show(3, 1, [this] {
    targets.cmdNext.userClick();
    EXPECT_THAT(entries(targets.cboGroups), LinesAre({"All", "Lab"}));
  });
  EXPECT_EQ(boxes().size(), 1u);
}

TEST_F(WizardLifeTest, ActivationGoesOnWithoutAnInventory) {
  program.gConn.Close();
  show(1, 1, [this] {
    EXPECT_EQ(targets.cboGroups.Text, "All");
    EXPECT_FALSE(targets.cmdBack.Enabled);
    EXPECT_EQ(ui.screen.MousePointer, ui::Pointer::Default);
  });
  EXPECT_THAT(boxes(), IsEmpty());
}

// Going away.

TEST_F(WizardLifeTest, EveryEndRefreshesTheConsole) {
  show(1, 1, [this] {
    fake.journal.clear();
    targets.cmdCancel.userClick();
    EXPECT_FALSE(targets.isLoaded());
  });
  EXPECT_THAT(fakes::linesOf(fake.journal, "mnuViewRefresh"), LinesAre({"mnuViewRefresh_Click"}));
}

TEST_F(WizardLifeTest, TheFrameClosesItUnlessAnEngineRuns) {
  show(1, 1, [this] {
    targets.RunBusy = true;
    targets.userClose();
    EXPECT_TRUE(targets.Visible());
    targets.RunBusy = false;
    targets.userClose();
    EXPECT_FALSE(targets.isLoaded());
  });
}

TEST_F(WizardLifeTest, CodeClosesItAlsoWhileAnEngineRuns) {
  targets.Load();
  targets.RunBusy = true;
  EXPECT_TRUE(targets.Unload());
}

TEST_F(WizardLifeTest, ComesBackWithItsDesign) {
  show(2, 1, [this] {
    choose("HOST1");
    targets.txtPathVHW.Text = R"(C:\Foo\Bar)";
    targets.cmdCancel.userClick();
  });
  targets.Load();
  EXPECT_THAT(names(targets.lvSelected), IsEmpty());
  EXPECT_EQ(targets.txtPathVHW.Text, R"(%ProgramFiles%\Kelmont Works\Varnhold)");
  EXPECT_EQ(targets.lvSystems.ColumnHeaders.Count(), 3);
}

}  // namespace
}  // namespace varnhold::deployment
