// The console's agent commands with the deployment wizard itself.
#include <gmock/gmock.h>

#include "tests/console/console_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

using testing::IsEmpty;

/// An open console with two computers without an agent, two with one, and the group Web.
class ConsolesWizardTest : public OpenConsoleTest {
 protected:
  ConsolesWizardTest() {
    for (const char* const name : {"MANAGER", "NEW1", "NEW2", "OLD1", "OLD2"}) addComputer(name);
    for (const char* const name : {"OLD1", "OLD2"}) addAgent(name, 1);
    addGroup("Web", {"NEW2", "OLD2"});
    program.gInstallerDir = R"(C:\VARNHOLD\RemoteInstaller)";
    frmMain.Load();
    frmMain.turnOnAgentCommands(frmMain.mnuToolsTrackEvents);
    open();
  }

  /// The next wizard is looked at by `script` and closed.
  void expectWizard(const std::function<void()>& script) {
    ui.nextModal("frmTargets", [this, script](ui::Form& form) {
      ++shown;
      script();
      wizard.cmdCancel.userClick();
      EXPECT_FALSE(form.isLoaded());
    });
  }
  static Lines namesIn(const ui::ListView& list) {
    Lines lines;
    for (const auto& row : list.ListItems) lines.push_back(row.Text);
    return lines;
  }
  Lines paths() {
    Lines lines;
    for (int i = 0; i < wizard.lstPathSystems.ListCount(); ++i)
      lines.push_back(wizard.lstPathSystems.List(i));
    return lines;
  }
  void fromTree(const char* entry, int node = 1) {
    ui.nextPopUp(entry);
    frmMain.tvTreeView.userMouseDown(ui::MouseButton::Right, node);
  }
  void fromList(const char* entry, const Lines& computers) {
    for (auto& row : frmMain.lvListView.ListItems) row.Selected = false;
    for (const auto& name : computers) frmMain.lvListView.FindItem(name)->Selected = true;
    ui.nextPopUp(entry);
    frmMain.lvListView.userMouseDown(ui::MouseButton::Right,
                                     frmMain.lvListView.FindItem(computers.back())->Index());
  }

  deployment::frmTargets& wizard = forms.frmTargets;
  int shown = 0;
};

TEST_F(ConsolesWizardTest, TheMenusLetTheOperatorSelectInTheWizard) {
  const struct {
    ui::MenuItem& entry;
    const char* caption;
    Lines candidates;
  } cases[] = {{frmMain.mnuToolsInstall, "Add Agent", {"NEW1", "NEW2"}},
               {frmMain.mnuToolsUninstall, "Uninstall Remote Agent(s)", {"OLD1", "OLD2"}},
               {frmMain.mnuToolsUpgrade, "Upgrade Remote Agent(s)", {"OLD1", "OLD2"}}};
  for (const auto& wanted : cases) {
    expectWizard([&] {
      EXPECT_EQ(wizard.Caption, wanted.caption);
      EXPECT_EQ(wizard.CurrentPage, 1);
      EXPECT_EQ(wizard.cboGroups.Text, "All");
      EXPECT_THAT(namesIn(wizard.lvSelect), testing::ElementsAreArray(wanted.candidates));
    });
    wanted.entry.userClick();
  }
  EXPECT_EQ(shown, 3);
}

TEST_F(ConsolesWizardTest, OnAGroupOnlyItsComputersCanBeSelected) {
  frmMain.tvTreeView.userClick(2);
  ASSERT_EQ(selectedNode(), "Web");
  expectWizard([this] {
    EXPECT_EQ(wizard.cboGroups.Text, "Web");
    EXPECT_FALSE(wizard.cboGroups.Enabled);
    EXPECT_THAT(namesIn(wizard.lvSelect), LinesAre({"NEW2"}));
  });
  frmMain.mnuToolsInstall.userClick();
}

TEST_F(ConsolesWizardTest, TheTreeAddsOnTheSelectionPage) {
  expectWizard([this] {
    EXPECT_EQ(wizard.CurrentPage, 1);
    EXPECT_THAT(namesIn(wizard.lvSystems), LinesAre({"MANAGER", "NEW1", "NEW2"}));
    EXPECT_THAT(namesIn(wizard.lvSelect), LinesAre({"NEW1", "NEW2"}));
  });
  fromTree("mnuPopUpTreeInstall");
  EXPECT_EQ(shown, 1);
}

TEST_F(ConsolesWizardTest, TheTreeRemovesAndUpgradesOnTheRunListsPage) {
  for (const char* const entry : {"mnuPopUpTreeUninstall", "mnuPopUpTreeUpgrade"}) {
    expectWizard([this] {
      EXPECT_EQ(wizard.CurrentPage, 2);
      EXPECT_FALSE(wizard.cmdBack.Enabled);
      EXPECT_THAT(namesIn(wizard.lvSystems), LinesAre({"OLD1", "OLD2"}));
      EXPECT_THAT(paths(), LinesAre({"OLD1", "OLD2"}));
    });
    fromTree(entry);
  }
  EXPECT_EQ(shown, 2);
}

TEST_F(ConsolesWizardTest, TheListAddsWhatIsSelectedAndThePathsPageHasIt) {
  expectWizard([this] {
    EXPECT_EQ(wizard.CurrentPage, 2);
    EXPECT_THAT(namesIn(wizard.lvSelected), LinesAre({"NEW1", "NEW2"}));
    wizard.cmdNext.userClick();
    EXPECT_THAT(paths(), LinesAre({"NEW1", "NEW2"}));
    wizard.cmdNext.userClick();
    EXPECT_EQ(wizard.CurrentPage, 5);
  });
  fromList("mnuPopUpListInstall", {"NEW1", "NEW2"});
  EXPECT_EQ(shown, 1);
}

TEST_F(ConsolesWizardTest, TheListRemovesAndUpgradesWhatIsSelected) {
  for (const char* const entry : {"mnuPopUpListUninstall", "mnuPopUpListUpgrade"}) {
    expectWizard([this] {
      EXPECT_EQ(wizard.CurrentPage, 2);
      EXPECT_THAT(namesIn(wizard.lvSystems), LinesAre({"OLD2"}));
      EXPECT_THAT(paths(), LinesAre({"OLD2"}));
    });
    fromList(entry, {"OLD2"});
  }
  EXPECT_EQ(shown, 2);
}

TEST_F(ConsolesWizardTest, ARunInTheWizardEndsWithAFreshListInTheConsole) {
  fake.libraries.computers["OLD1"] = {};
  ui.nextModal("frmTargets", [this](ui::Form&) {
    ui.nextModal("frmLogin", [this](ui::Form&) {
      forms.frmLogin.txtAccount.userEdit(R"(CORP\admin)", 0);
      forms.frmLogin.cmdLogin.userClick();
    });
    wizard.cmdInstall.userClick();
    EXPECT_EQ(wizard.lblProgress.Caption, "Completed successfully");
    wizard.cmdInstall.userClick();
    EXPECT_FALSE(wizard.isLoaded());
  });
  fromList("mnuPopUpListUninstall", {"OLD1"});
  EXPECT_THAT(rows(), testing::Contains("OLD1|Windows XP|-none-|Unmanaged|"));
  EXPECT_THAT(rows(), testing::Contains("OLD2|Windows XP|-none-|Managed - Standard Mode|32001"));
}

TEST_F(ConsolesWizardTest, TheWizardIsOneOfTheConsolesForms) {
  expectWizard([this] {
    EXPECT_FALSE(frmMain.acceptsInput());
    EXPECT_EQ(wizard.Icon, "app-varnhold");
  });
  frmMain.mnuToolsInstall.userClick();
  EXPECT_TRUE(frmMain.acceptsInput());
  EXPECT_THAT(boxes(), IsEmpty());
}

}  // namespace
}  // namespace varnhold::console
