// What the operator chooses on the wizard's pages.
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::IsEmpty;

class OptionsTest : public WizardTest {
 protected:
  static bool isOpen(const ui::TextBox& box) {
    EXPECT_EQ(box.BackColor, box.Enabled ? ui::SystemColor::Window : ui::SystemColor::ButtonFace);
    return box.Enabled;
  }
  /// The operator's answer to the next question about remedial actions.
  void answer(bool yes) {
    ui.nextModal("frmRemedialActionHelp", [this, yes](ui::Form&) {
      (yes ? frmRemedialActionHelp.YesButton : frmRemedialActionHelp.NoButton).userClick();
    });
  }
};

// The configuration.

TEST_F(OptionsTest, OnlyACustomConfigurationHasAFile) {
  show(1, 1, [this] {
    turnTo(6);
    EXPECT_FALSE(isOpen(targets.txtTemplate));
    EXPECT_FALSE(targets.cmdBrowse.Enabled);
    targets.optConfig(1).userClick();
    EXPECT_TRUE(isOpen(targets.txtTemplate));
    EXPECT_TRUE(targets.cmdBrowse.Enabled);
    targets.optConfig(0).userClick();
    EXPECT_FALSE(isOpen(targets.txtTemplate));
    EXPECT_FALSE(targets.cmdBrowse.Enabled);
  });
}

TEST_F(OptionsTest, BackAndBrowseHaveOneMnemonicThatPressesNeither) {
  show(1, 1, [this] {
    turnTo(6);
    targets.optConfig(1).userClick();
    for (const auto* const button : {&targets.cmdBrowse, &targets.cmdBack, &targets.cmdBrowse}) {
      targets.userMnemonic('b');
      EXPECT_EQ(targets.ActiveControl(), button);
    }
    EXPECT_EQ(targets.CurrentPage, 6);
    targets.optConfig(0).userClick();
    targets.userMnemonic('b');
    EXPECT_NE(targets.CurrentPage, 6) << "the only one that can be reached is pressed";
  });
}

TEST_F(OptionsTest, BrowseTakesTheFileAndGoesBackToTheProgramsFolder) {
  show(1, 1, [this] {
    turnTo(6);
    targets.optConfig(1).userClick();
    ui.nextFile(R"(D:\configs\web.ini)");
    fake.journal.clear();
    targets.cmdBrowse.userClick();
    EXPECT_EQ(targets.txtTemplate.Text, R"(D:\configs\web.ini)");
    EXPECT_TRUE(targets.optConfig(1).Value) << "a dialog of the host activates nothing";
    EXPECT_THAT(fake.journal,
                LinesAre({"OpenFile Select Config File|Varnhold Agent Config Files (*.ini)|*.ini|*.ini -> "
                          R"(D:\configs\web.ini)",
                          R"(SetCurrentDirectory C:\VARNHOLD -> yes)"}));
  });
}

TEST_F(OptionsTest, ACancelledBrowseLeavesTheFileAndGoesBackToTheProgramsFolderToo) {
  show(1, 1, [this] {
    turnTo(6);
    targets.optConfig(1).userClick();
    targets.txtTemplate.Text = R"(C:\a.ini)";
    ui.nextFile(std::nullopt);
    targets.cmdBrowse.userClick();
    EXPECT_EQ(targets.txtTemplate.Text, R"(C:\a.ini)");
  });
  EXPECT_THAT(fake.journal, testing::Contains(R"(SetCurrentDirectory C:\VARNHOLD -> yes)"));
}

// Accounts.

TEST_F(OptionsTest, OnlyANamedAccountHasAName) {
  show(1, 1, [this] {
    turnTo(7);
    for (auto* const box : {&targets.txtUserName, &targets.txtPassword, &targets.txtConfirmPassword}) {
      targets.optAccounts(0).Value = true;
      EXPECT_FALSE(isOpen(*box));
      targets.optAccounts(1).Value = true;
      EXPECT_TRUE(isOpen(*box));
    }
  });
}

TEST_F(OptionsTest, EditingTheAccountTellsWhatItIsForAndUnlocksItsBoxes) {
  show(1, 1, [this] {
    targets.OptAgentless.Value = true;
    turnTo(5);
    for (auto* const box : {&targets.txtAccount, &targets.txtPwd, &targets.txtConfirmPwd}) {
      box->Locked = true;
      box->BackColor = ui::SystemColor::ButtonFace;
    }
    fake.journal.clear();
    targets.cmdEditAccount.userClick();
    for (const auto* const box : {&targets.txtAccount, &targets.txtPwd, &targets.txtConfirmPwd}) {
      EXPECT_FALSE(box->Locked);
      EXPECT_EQ(box->BackColor, ui::SystemColor::Window);
    }
    EXPECT_FALSE(targets.cmdEditAccount.Enabled);
  });
  EXPECT_THAT(
      boxes(),
      LinesAre({"MessageBox exclamation: This account will be used to access all systems<CR><LF>which are "
                "configured for agentless monitoring.<CR><LF>Please ensure that you configure an account "
                "<CR><LF>that can access these systems as an administrator."}));
}

// The start time.

TEST_F(OptionsTest, TheStartTimeTakesDigitsAndFullStopsAlone) {
  show(1, 1, [this] {
    targets.OptAgentless.Value = true;
    turnTo(5);
    for (auto* const box : {&targets.txtStartHour, &targets.txtStartMin}) {
      box->userFocus();
      box->userType("1a2-.:");
      EXPECT_EQ(box->Text, "12.");
      box->userType("\b");
      EXPECT_EQ(box->Text, "12");
    }
  });
}

TEST_F(OptionsTest, TheStartTimeIsSelectedWhenTheFocusComes) {
  show(1, 1, [this] {
    targets.OptAgentless.Value = true;
    turnTo(5);
    for (auto* const box : {&targets.txtStartHour, &targets.txtStartMin}) {
      box->userFocus();
      EXPECT_EQ(box->SelStart, 0);
      EXPECT_EQ(box->SelLength, 2);
    }
  });
}

// Remedial actions.

TEST_F(OptionsTest, OnlyAnAgentBasedInstallOffersRemedialActions) {
  show(1, 1, [this] {
    turnTo(3);
    EXPECT_TRUE(targets.chkCopyRemedialActionScripts.Enabled);
    targets.OptAgentless.userClick();
    EXPECT_FALSE(targets.chkCopyRemedialActionScripts.Enabled);
    targets.OptAgentbased.userClick();
    EXPECT_TRUE(targets.chkCopyRemedialActionScripts.Enabled);
  });
}

TEST_F(OptionsTest, AnAgentlessInstallLeavesTheTick) {
  show(1, 1, [this] {
    turnTo(3);
    answer(true);
    targets.chkCopyRemedialActionScripts.userClick();
    targets.OptAgentless.userClick();
    EXPECT_EQ(targets.chkCopyRemedialActionScripts.Value, 1);
    EXPECT_FALSE(targets.chkCopyRemedialActionScripts.Enabled);
  });
}

TEST_F(OptionsTest, TheTickOfAnInstallStaysAfterYesAndGoesAfterNo) {
  show(1, 1, [this] {
    turnTo(3);
    answer(false);
    targets.chkCopyRemedialActionScripts.userClick();
    EXPECT_EQ(targets.chkCopyRemedialActionScripts.Value, 0);
    EXPECT_TRUE(targets.cmdBack.Enabled);
    answer(true);
    targets.chkCopyRemedialActionScripts.userClick();
    EXPECT_EQ(targets.chkCopyRemedialActionScripts.Value, 1);
  });
}

TEST_F(OptionsTest, TheTickOfAnUpgradeStaysAfterYesAndGoesAfterNo) {
  show(3, 2, [this] {
    turnTo(5);
    answer(false);
    targets.chkUpgradeRemedialActionScripts.userClick();
    EXPECT_EQ(targets.chkUpgradeRemedialActionScripts.Value, 0);
    EXPECT_TRUE(targets.cmdBack.Enabled);
    answer(true);
    targets.chkUpgradeRemedialActionScripts.userClick();
    EXPECT_EQ(targets.chkUpgradeRemedialActionScripts.Value, 1);
  });
}

TEST_F(OptionsTest, ClosingTheQuestionByItsFrameIsANo) {
  show(1, 1, [this] {
    turnTo(3);
    ui.nextModal("frmRemedialActionHelp", [](ui::Form& form) { form.userClose(); });
    targets.chkCopyRemedialActionScripts.userClick();
    EXPECT_EQ(targets.chkCopyRemedialActionScripts.Value, 0);
  });
}

TEST_F(OptionsTest, ClearingATickAsksNothing) {
  show(1, 1, [this] {
    turnTo(3);
    answer(true);
    targets.chkCopyRemedialActionScripts.userClick();
    targets.chkCopyRemedialActionScripts.userClick();
    EXPECT_EQ(targets.chkCopyRemedialActionScripts.Value, 0);
  });
}

TEST_F(OptionsTest, TheQuestionEndsInAnActivationOfTheWizard) {
  addGroup("Lab");
  show(1, 1, [this] {
    turnTo(3);
    answer(true);
    targets.chkCopyRemedialActionScripts.userClick();
    EXPECT_THAT(entries(targets.cboGroups), LinesAre({"All", "Lab", "Lab", "Lab"}));
  });
}

// Snapshots.

class SnapshotsTest : public OptionsTest {
 protected:
  /// Shows the run list of an uninstall: HOST1 has snapshots, HOST2 has none.
  void showRunList(int operation, const std::function<void()>& script) {
    targets.Load();
    choose("HOST1", "Tracking Changes & Events");
    choose("HOST2", "Managed - Standard Mode");
    show(operation, 1, [&] {
      targets.cmdNext.userClick();
      script();
    });
  }
  std::string cell(int row) { return targets.lvSystems.ListItems(row).SubItems(kKeepSnapsSubItem).get(); }
  void click(int row, int column = kKeepSnapsSubItem, int flags = 6,
             ui::MouseButton button = ui::MouseButton::Left) {
    targets.lvSystems.userMouseUp(button, row, column, flags);
  }
};

TEST_F(SnapshotsTest, AClickOnTheCellTurnsItOver) {
  showRunList(2, [this] {
    EXPECT_EQ(cell(1), "No");
    click(1);
    EXPECT_EQ(cell(1), "Yes");
    click(1);
    EXPECT_EQ(cell(1), "No");
  });
}

TEST_F(SnapshotsTest, ARowWithoutSnapshotsAsksNothing) {
  showRunList(2, [this] {
    click(2);
    EXPECT_EQ(cell(2), "");
  });
}

TEST_F(SnapshotsTest, ACellWithoutATagStaysAsItIs) {
  targets.Load();
  addRow("HOST1", "Tracking Changes").SubItems(kKeepSnapsSubItem) = "No";
  show(2, 2, [this] {
    click(1);
    EXPECT_EQ(cell(1), "No");
  });
}

TEST_F(SnapshotsTest, OnlyTheLeftButtonOnTheCellItselfCounts) {
  showRunList(2, [this] {
    click(1, kKeepSnapsSubItem, 6, ui::MouseButton::Right);
    click(1, kStatusSubItem);
    click(1, 0, 2);
    click(1, kKeepSnapsSubItem, 4);
    click(1, kKeepSnapsSubItem, 1);
    click(0);
    EXPECT_EQ(cell(1), "No");
  });
}

TEST_F(SnapshotsTest, OnlyAnUninstallWithTheChangeProductAsks) {
  showRunList(2, [this] {
    targets.Operation = 3;
    click(1);
    targets.Operation = 2;
    program.gChangesRoot.clear();
    click(1);
    EXPECT_EQ(cell(1), "No");
  });
}

}  // namespace
}  // namespace varnhold::deployment
