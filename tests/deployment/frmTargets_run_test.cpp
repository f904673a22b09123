// What stands before a run, what it shows while it goes, and what it ends with.
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* kComplete =
    "MessageBox information: The process is complete. Please check the status against each computer.";
constexpr const char* kNotDeep =
    "MessageBox critical: Please ensure that the installation path is at least 2 levels deep.";

/// The wizard with the computers HOST1 and HOST2, which can be deployed to.
class RunTest : public WizardTest {
 protected:
  RunTest() {
    for (const char* const name : {"HOST1", "HOST2"}) {
      addComputer(name);
      fake.libraries.computers[name] = {};
    }
  }

  /// Shows the wizard on page 1 with HOST1 and HOST2 selected.
  void showSelected(int operation, const std::function<void()>& script) {
    const char* const status = operation == 1 ? "Unmanaged" : "Managed - Standard Mode";
    targets.Load();
    choose("HOST1", status);
    choose("HOST2", status);
    show(operation, 1, script);
  }
  void goForwards() {
    while (targets.cmdNext.Enabled) targets.cmdNext.userClick();
  }
  /// The prompt that an uninstall of agents shows is answered.
  void logIn() {
    ui.nextModal("frmLogin", [this](ui::Form&) {
      infoAtLogin = targets.lblInfo.Caption;
      frmLogin.txtAccount.userEdit(R"(CORP\admin)", 0);
      frmLogin.cmdLogin.userClick();
    });
  }
  /// Goes as far as the buttons lead and begins; `script` runs on what the run has left.
  void run(int operation, const std::function<void()>& script) {
    showSelected(operation, [&] {
      goForwards();
      if (operation == 2) logIn();
      fake.journal.clear();
      targets.cmdInstall.userClick();
      script();
    });
  }
  /// Presses `cmdCancel` in the run as soon as `when` says so.
  void stopWhen(const std::function<bool()>& when) {
    ui.onPump = [this, when] {
      if (!targets.RunBusy || targets.StopRequested || !when()) return;
      targets.cmdCancel.userClick();
      infoAfterStop = targets.lblInfo.Caption;
    };
  }
  void breakComputer(const std::string& name) { fake.libraries.computers[name].address = std::nullopt; }
  bool jobsStarted(const std::string& function) {
    return !fakes::linesOf(fake.journal, function + " ").empty();
  }

  std::string infoAfterStop, infoAtLogin;
};

// What stands before it.

TEST_F(RunTest, WithoutAnyComputerItClosesTheWizard) {
  show(1, 2, [this] {
    turnTo(5);
    targets.cmdInstall.userClick();
    EXPECT_FALSE(targets.isLoaded());
  });
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RunTest, APathThatIsNotDeepEnoughTouchesNothing) {
  showSelected(1, [this] {
    goForwards();
    targets.txtPathVHW.Text = R"(C:\Foo)";
    fake.journal.clear();
    targets.cmdInstall.userClick();
    EXPECT_THAT(fake.journal, LinesAre({kNotDeep}));
    EXPECT_TRUE(targets.frePath.Visible);
    EXPECT_EQ(targets.cmdInstall.Caption, "&Install");
  });
}

TEST_F(RunTest, AnAgentlessInstallDoesNotLookAtThePath) {
  showSelected(1, [this] {
    targets.cmdNext.userClick();
    targets.OptAgentless.userClick();
    goForwards();
    targets.txtPathVHW.Text = R"(C:\Foo)";
    targets.txtAccount.Locked = true;
    ui.nextModal("frmLogin", [](ui::Form& form) { form.Unload(); });
    targets.cmdInstall.userClick();
  });
  EXPECT_THAT(boxes(), Not(Contains(kNotDeep)));
  EXPECT_THAT(boxes(), Contains(kComplete));
}

TEST_F(RunTest, PollingIsCheckedBeforeTheAccount) {
  showSelected(1, [this] {
    targets.cmdNext.userClick();
    targets.OptAgentless.userClick();
    goForwards();
    targets.txtAccount.Locked = false;
    targets.txtStartHour.Text = "25";
    fake.journal.clear();
    targets.cmdInstall.userClick();
    EXPECT_THAT(fake.journal, LinesAre({"MessageBox exclamation: Start time is in the HH:MM format and value "
                                        "of hour cannot be greater than 24 hours."}));
    EXPECT_TRUE(targets.frePath.Visible);
  });
}

TEST_F(RunTest, AnAccountThatTheOperatorWantsToEnterIsChecked) {
  showSelected(1, [this] {
    targets.cmdNext.userClick();
    targets.OptAgentless.userClick();
    goForwards();
    targets.txtAccount.Text = "";
    targets.txtAccount.Locked = false;
    fake.journal.clear();
    targets.cmdInstall.userClick();
    EXPECT_THAT(fake.journal, LinesAre({"MessageBox exclamation: No username."}));
    EXPECT_TRUE(targets.frePath.Visible);
  });
}

TEST_F(RunTest, TheAccountOfThePageThatNoButtonLeadsToIsCheckedWhereOneIsNamed) {
  showSelected(1, [this] {
    goForwards();
    targets.optAccounts(1).Value = true;
    fake.journal.clear();
    targets.cmdInstall.userClick();
    EXPECT_THAT(fake.journal, LinesAre({"MessageBox exclamation: No username."}));
  });
}

// While it goes.

TEST_F(RunTest, ShowsTheRunListAndOffersCancelAlone) {
  bool seen = false;
  ui.onPump = [&] {
    if (!targets.RunBusy || seen) return;
    seen = true;
    EXPECT_TRUE(targets.freMain.Visible);
    for (const auto* const frame : {&targets.freSelectAgent, &targets.freAgents, &targets.frePath,
                                    &targets.freUpgradeOpts, &targets.freConfig, &targets.freLogon}) {
      EXPECT_FALSE(frame->Visible) << frame->Name();
    }
    for (const ui::Control* const control : std::initializer_list<const ui::Control*>{
             &targets.lvSelect, &targets.lvSelected, &targets.cboGroups, &targets.cmdAdd, &targets.cmdRemove,
             &targets.cmdselectall, &targets.cmdremoveall}) {
      EXPECT_FALSE(control->Visible) << control->Name();
    }
    EXPECT_TRUE(targets.lvSystems.Visible);
    EXPECT_TRUE(targets.pbProgress.Visible);
    EXPECT_TRUE(targets.lblProgress.Visible);
    for (const auto* const button :
         {&targets.cmdBack, &targets.cmdNext, &targets.cmdAdvanced, &targets.cmdInstall}) {
      EXPECT_FALSE(button->Enabled) << button->Name();
    }
    EXPECT_TRUE(targets.cmdCancel.Enabled);
    EXPECT_EQ(targets.lblInfo.Caption, "Please wait...\rInstalling Agent(s)...");
    EXPECT_EQ(ui.screen.MousePointer, ui::Pointer::ArrowHourglass);
    EXPECT_THAT(names(targets.lvSystems), LinesAre({"HOST1", "HOST2"}));
    EXPECT_THAT(statuses(), LinesAre({"Unmanaged", "Unmanaged"}));
  };
  run(1, [&] { EXPECT_TRUE(seen); });
}

TEST_F(RunTest, SaysWhatItDoes) {
  const char* const texts[] = {"Please wait...\rInstalling Agent(s)...",
                               "Please wait...\rUninstalling Agent(s)...",
                               "Please wait...\rUpgrading Agent(s)..."};
  program.gChangesRoot.clear();
  for (const int operation : {1, 2, 3}) {
    std::string seen;
    ui.onPump = [&] {
      if (targets.RunBusy && seen.empty()) seen = targets.lblInfo.Caption;
    };
    run(operation, [&] {
      // The prompt's end shows the page anew, its text too.
      EXPECT_EQ(operation == 2 ? infoAtLogin : seen, texts[operation - 1]);
    });
    targets.Unload();
  }
}

TEST_F(RunTest, APromptInTheRunShowsThePageAnew) {
  program.gChangesRoot.clear();
  std::string info;
  bool canGoBack = false;
  ui.onPump = [&] {
    if (!jobsStarted("qrvCUninstall") || !info.empty()) return;
    info = targets.lblInfo.Caption;
    canGoBack = targets.cmdBack.Enabled;
  };
  run(2, [&] {
    EXPECT_EQ(info, "Agent(s) will be uninstalled from the following remote computer(s).");
    EXPECT_TRUE(canGoBack);
  });
}

TEST_F(RunTest, TheButtonThatThePromptShowsAnewStartsNoSecondRun) {
  program.gChangesRoot.clear();
  bool pressed = false;
  ui.onPump = [&] {
    if (pressed || !targets.RunBusy || !jobsStarted("qrvCUninstall")) return;
    pressed = true;
    targets.cmdInstall.userClick();
  };
  run(2, [&] {
    EXPECT_TRUE(pressed);
    EXPECT_EQ(fakes::linesOf(fake.journal, "qrvCUninstall ").size(), 2u) << "one for each computer";
    EXPECT_EQ(targets.cmdInstall.Caption, "&Finish");
  });
}

TEST_F(RunTest, InstallWorksOnThePathsPagesListInItsOrder) {
  targets.Load();
  addRow("FROM-RUN-LIST");
  run(1, [this] { EXPECT_THAT(names(targets.lvSystems), LinesAre({"HOST1", "HOST2"})); });
}

TEST_F(RunTest, EachChoiceHasItsEngine) {
  run(1, [this] {
    EXPECT_THAT(statuses(), LinesAre({"Installed successfully", "Installed successfully"}));
    EXPECT_TRUE(jobsStarted("qrvCInstall"));
  });
  targets.Unload();
  showSelected(1, [this] {
    goForwards();
    targets.optClient(1).Value = true;
    fake.journal.clear();
    targets.cmdInstall.userClick();
    EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCInstall"), Contains(testing::HasSubstr(R"(C:\TESSMARK)")));
  });
  targets.Unload();
  run(2, [this] { EXPECT_TRUE(jobsStarted("qrvCUninstall")); });
  targets.Unload();
  run(3, [this] {
    EXPECT_TRUE(jobsStarted("qrvCUpgradeAgent"));
    EXPECT_FALSE(jobsStarted("qrvCUpgradeAgentOverIP"));
  });
  targets.Unload();
  showSelected(3, [this] {
    goForwards();
    targets.optOverIP.userClick();
    targets.OptAgentless.Value = true;
    targets.txtAccount.Locked = true;
    fake.journal.clear();
    targets.cmdInstall.userClick();
    EXPECT_FALSE(jobsStarted("qrvCUpgradeAgent"));
    EXPECT_THAT(fake.journal,
                Contains(StartsWith(R"(qrvCCreateConfigurationFile C:\VARNHOLD\RemoteInstaller\remins)")));
    EXPECT_TRUE(targets.OptAgentbased.Value) << "an upgrade is agent based";
  });
}

TEST_F(RunTest, StopFinishesTheComputerInHand) {
  stopWhen([this] { return jobsStarted("qrvCInstall"); });
  run(1, [this] {
    EXPECT_EQ(infoAfterStop, "Update cancelled (finishing current task)");
    EXPECT_THAT(statuses(), LinesAre({"Installed successfully", "Unmanaged"}));
    EXPECT_TRUE(targets.isLoaded());
  });
}

TEST_F(RunTest, TheFrameDoesNotCloseItMeanwhile) {
  ui.onPump = [this] {
    if (targets.RunBusy) targets.userClose();
  };
  run(1, [this] {
    EXPECT_TRUE(targets.Visible());
    EXPECT_THAT(statuses(), LinesAre({"Installed successfully", "Installed successfully"}));
  });
}

// What it ends with.

TEST_F(RunTest, EndsOnTheResultScreen) {
  const char* const texts[] = {"Completed installing Agent software.",
                               "Completed uninstalling Agent software.",
                               "Completed upgrading Agent software"};
  program.gChangesRoot.clear();
  for (const int operation : {1, 2, 3}) {
    run(operation, [&] {
      EXPECT_EQ(targets.lblInfo.Caption, texts[operation - 1]);
      EXPECT_EQ(targets.cmdInstall.Caption, "&Finish");
      EXPECT_TRUE(targets.cmdInstall.Enabled);
      EXPECT_EQ(targets.cmdCancel.Caption, "View &Log");
      EXPECT_TRUE(targets.lblProgress.Visible);
      EXPECT_FALSE(targets.pbProgress.Visible);
      EXPECT_EQ(ui.screen.MousePointer, ui::Pointer::Default);
      EXPECT_EQ(boxes().back(), kComplete);
    });
    targets.Unload();
  }
}

TEST_F(RunTest, WithoutErrorsItCompletedSuccessfully) {
  run(1, [this] {
    EXPECT_EQ(targets.lblProgress.Caption, "Completed successfully");
    EXPECT_FALSE(targets.cmdCancel.Enabled);
  });
}

TEST_F(RunTest, StoppedWithoutErrorsItSaysSo) {
  stopWhen([] { return true; });
  run(1, [this] {
    EXPECT_EQ(targets.lblProgress.Caption, "Action stopped by user");
    EXPECT_FALSE(targets.cmdCancel.Enabled);
  });
}

TEST_F(RunTest, WithErrorsItOffersTheLog) {
  breakComputer("HOST1");
  run(1, [this] {
    EXPECT_EQ(targets.lblProgress.Caption,
              "Certain errors were encountered please select 'View &Log' to view the log");
    EXPECT_TRUE(targets.cmdCancel.Enabled);
  });
}

TEST_F(RunTest, StoppedWithErrorsItOffersTheLogToo) {
  breakComputer("HOST1");
  stopWhen([this] { return targets.ErrorsSeen; });
  run(1, [this] {
    EXPECT_EQ(targets.lblProgress.Caption,
              "Action stopped by user, there were some errors, select 'View &Log' for details");
    EXPECT_TRUE(targets.cmdCancel.Enabled);
    EXPECT_THAT(statuses().back(), "Unmanaged");
  });
}

TEST_F(RunTest, AnEngineThatFailsStillEndsOnTheResultScreen) {
  program.gChangesRoot.clear();
  for (const int operation : {1, 2, 3}) {
    for (const char* const function : {"qrvCInstall", "qrvCUninstall", "qrvCUpgradeAgent"})
      fake.libraries.failures.insert_or_assign(function, RuntimeError(kFileNotFound, "no library"));
    run(operation, [this] {
      EXPECT_EQ(targets.cmdInstall.Caption, "&Finish");
      EXPECT_EQ(boxes().back(), kComplete);
    });
    targets.Unload();
  }
}

TEST_F(RunTest, ViewLogOpensTheLogInNotepad) {
  breakComputer("HOST1");
  run(1, [this] {
    fake.journal.clear();
    targets.cmdCancel.userClick();
    EXPECT_THAT(fake.journal,
                LinesAre({R"(ShellExecute open Notepad.exe C:\VARNHOLD\AILog.txt show 1 -> 33)"}));
    EXPECT_TRUE(targets.Visible());
  });
}

TEST_F(RunTest, ViewLogSaysWhenThereIsNoNotepad) {
  breakComputer("HOST1");
  run(1, [this] {
    fake.processes.result = 2;
    fake.journal.clear();
    targets.cmdCancel.userClick();
    EXPECT_THAT(boxes(), LinesAre({"MessageBox critical: Error: Could not load 'NotePad'."}));
    EXPECT_TRUE(targets.Visible());
  });
}

TEST_F(RunTest, FinishClosesTheWizardAndRefreshesTheConsole) {
  run(1, [this] {
    fake.journal.clear();
    targets.cmdInstall.userClick();
    EXPECT_FALSE(targets.isLoaded());
    EXPECT_THAT(fake.journal, Contains("mnuViewRefresh_Click"));
  });
}

}  // namespace
}  // namespace varnhold::deployment
