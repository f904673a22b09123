// What one run of the wizard leaves to the next, agentless computers, and what becomes of snapshots.
#include "core/registry_values.h"
#include "tests/fakes/lines_are.h"
#include "tests/session/lab_session.h"

namespace varnhold::session {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class WizardRuns : public LabSession {
 protected:
  /// From the list to the page with the path, and on it the account of the manager's own service.
  static void chooseAgentless(OperatorsConsole& console, const std::string& password) {
    console.wizard.cmdNext.userClick();
    console.wizard.OptAgentless.userClick();
    console.wizard.cmdNext.userClick();
    enterServiceAccount(console, password);
  }
  static void enterServiceAccount(OperatorsConsole& console, const std::string& password) {
    OperatorsConsole::type(console.wizard.txtAccount, R"(CORP\agent)");
    OperatorsConsole::type(console.wizard.txtPwd, password);
    OperatorsConsole::type(console.wizard.txtConfirmPwd, password);
  }
  /// With the account that is asked for, or with none.
  static void uninstall(OperatorsConsole& console, const std::string& name, bool logsIn,
                        const std::string& outcome) {
    console.openFromList({name}, "mnuPopUpListUninstall", [&] {
      logsIn ? console.logIn(R"(CORP\admin)", "corp") : console.refuseLogin();
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({name + ": " + outcome}));
      console.finish();
    });
  }
  /// One that fails.
  static void installOn(OperatorsConsole& console, const std::string& name) {
    console.openFromList({name}, "mnuPopUpListInstall", [&] {
      console.goOn();
      console.act();
      console.finish();
    });
  }
};

TEST_F(WizardRuns, AnAcceptedLoginLastsAndARefusedOneDoesNotTakeItBack) {
  OperatorsConsole console(stage);
  console.run([&] {
    console.install({"ATLAS", "BIRCH"});
    uninstall(console, "ATLAS", false, "Not Accessible, will be skipped.");
    EXPECT_EQ(agentService("ATLAS", "state"), "running");
    uninstall(console, "ATLAS", true, kUninstalled);
    EXPECT_EQ(console.program.gLoginPassword, "corp");
    uninstall(console, "BIRCH", false, kUninstalled);
    EXPECT_TRUE(console.forms.frmLogin.LoginAccepted);
    EXPECT_EQ(console.program.gLoginUser + console.program.gLoginDomain + console.program.gLoginPassword, "");
  });
  EXPECT_THAT(cli::Stage::agents(), IsEmpty());
}

TEST_F(WizardRuns, TheLogOfTheInstallersFolderGrowsAndTheOneBesideTheProgramGoes) {
  OperatorsConsole console(stage);
  stage.writeFile("AILog.txt", "of the command line");
  const std::string unresolved = "GROVE - Could not resolve the IP Address for the system.";
  console.run([&] {
    installOn(console, "GROVE");
    EXPECT_FALSE(std::filesystem::exists(stage.home() / "AILog.txt"));
    EXPECT_THAT(log(), ElementsAre(unresolved));
    installOn(console, "GROVE");
    console.openFromList({"ATLAS"}, "mnuPopUpListInstall", [&] {
      console.goOn();
      console.act();
      EXPECT_EQ(console.wizard.lblProgress.Caption, "Completed successfully") << "whatever the log holds";
      console.finish();
    });
  });
  EXPECT_THAT(log(), ElementsAre(unresolved, unresolved));
}

TEST_F(WizardRuns, AComputerWithoutAnswerCountsAsTheOneBeforeItOfTheSameRun) {
  const std::string noVista =
      "Skipped: Cannot deploy agentless on VISTA/2K8 system from 2000/2003/XP Manager";
  OperatorsConsole console(stage);
  console.run([&] {
    console.openFromList({"EMBER", "HAVEN"}, "mnuPopUpListInstall", [&] {
      chooseAgentless(console, "agent");
      console.logIn(R"(CORP\admin)", "corp");
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"EMBER: " + noVista, "HAVEN: " + noVista}));
      console.finish();
    });
    console.openFromList({"HAVEN"}, "mnuPopUpListInstall", [&] {
      console.wizard.cmdNext.userClick();
      console.wizard.OptAgentless.userClick();
      console.wizard.cmdNext.userClick();
      EXPECT_TRUE(console.wizard.txtAccount.Locked) << "the service has its account by now";
      console.logIn(R"(CORP\admin)", "corp");
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"HAVEN: Skipped: The RPC server is unavailable."}));
      console.finish();
    });
  });
  EXPECT_THAT(log(), Contains("Skipped: HAVEN - The RPC server is unavailable."));
  EXPECT_THAT(cli::Stage::agents(), IsEmpty());
}

TEST_F(WizardRuns, AgentlessComputersArePolledByTheManagersOwnAgentUntilTheyAreUninstalled) {
  const auto manager = managerName();
  OperatorsConsole console(stage);
  const auto before = labs();
  console.run([&] {
    console.openFromList({"ATLAS", "LINDEN"}, "mnuPopUpListInstall", [&] {
      chooseAgentless(console, "agent");
      console.logIn(R"(PLANT\admin)", "plant");
      console.act();
      EXPECT_THAT(console.rows(),
                  LinesAre({"ATLAS: Installed successfully", "LINDEN: Installed successfully"}));
      console.finish();
    });
    EXPECT_THAT(cli::Stage::agents(), LinesAre({R"(ATLAS|1|%ProgramFiles%\Kelmont Works\Varnhold|0|1)",
                                                R"(LINDEN|1|%ProgramFiles%\Kelmont Works\Varnhold|0|1)"}));
    EXPECT_THAT(labFile(manager, "registry.reg"), HasSubstr(R"("ATLAS"="10.1.1.11")"));
    EXPECT_THAT(labFile(manager, "registry.reg"), HasSubstr(R"("LINDEN"="10.1.1.22")"));
    EXPECT_EQ(agentService(manager, "account"), R"(CORP\agent)");
    EXPECT_EQ(agentService(manager, "state"), "running");
    EXPECT_THAT(labFile(manager, "rights.ini"), HasSubstr("=granted"));
    EXPECT_EQ(labs(), before) << "nothing runs on the computers themselves";

    console.openFromList({"ATLAS", "LINDEN"}, "mnuPopUpListUninstall", [&] {
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"ATLAS: " + kUninstalled, "LINDEN: " + kUninstalled}));
      console.finish();
    });
  });
  EXPECT_THAT(cli::Stage::agents(), IsEmpty());
  EXPECT_THAT(labFile(manager, "registry.reg"), Not(HasSubstr("ATLAS")));
  const std::string shown = "Opening Varnhold Receiver Service On: " + manager;
  EXPECT_THAT(
      log(),
      LinesAre({shown, R"(The user CORP\agent has been given 'LogonAsService' rights on system )" + manager,
                "Opening Varnhold Agent Service On: " + manager,
                "Sucessfully changed the service account On: " + manager,
                shown}));  // the prompt for the account has activated the wizard, which shows its page
}

TEST_F(WizardRuns, PollingIsSavedAsThePageShowsItAfterThePrompt) {
  OperatorsConsole console(stage);
  const auto install = [&](const std::string& name, bool fromAdvanced) {
    console.openFromList({name}, "mnuPopUpListInstall", [&] {
      console.wizard.cmdNext.userClick();
      console.wizard.OptAgentless.userClick();
      console.wizard.cmdNext.userClick();
      if (!console.wizard.txtAccount.Locked) enterServiceAccount(console, "agent");
      console.wizard.cboPollFreq.userSelect(3);
      if (fromAdvanced) console.wizard.cmdAdvanced.userClick();
      console.logIn(R"(CORP\admin)", "corp");
      console.act();
      console.finish();
    });
  };
  console.run([&] {
    // The prompt's end shows the page with the polling anew, as the registry has it.
    install("ATLAS", false);
    EXPECT_EQ(registryText(console, core::kAgentKey, "gPollingFreq"), "1:0");
    // On the page behind it the choice stands.
    install("BIRCH", true);
    EXPECT_EQ(registryText(console, core::kAgentKey, "gPollingFreq"), "2:0");
  });
}

TEST_F(WizardRuns, ThePromptInARunShowsThePageAnewWithItsGroupsOnceMore) {
  OperatorsConsole console(stage);
  console.run([&] {
    console.install({"ATLAS"});
    console.openFromList({"ATLAS"}, "mnuPopUpListUninstall", [&] {
      EXPECT_EQ(console.wizard.cboGroups.ListCount(), 3);
      console.wizard.optConfig(1).Value = true;
      console.logIn(R"(CORP\admin)", "corp");
      std::string info;
      console.clock.onSleep = [&](std::uint32_t) {
        if (console.wizard.RunBusy) info = console.wizard.lblInfo.Caption;
      };
      console.act();
      EXPECT_EQ(info, "Agent(s) will be uninstalled from the following remote computer(s).");
      EXPECT_EQ(console.wizard.cboGroups.ListCount(), 5);
      EXPECT_TRUE(console.wizard.optConfig(0).Value);
      EXPECT_THAT(console.rows(), LinesAre({"ATLAS: " + kUninstalled})) << "the run goes on all the same";
      console.finish();
    });
  });
}

/// The managers of both products are in the home; ATLAS and BIRCH have the agents of both.
class WizardWithSnapshots : public WizardRuns {
 protected:
  WizardWithSnapshots() {
    const auto root = stage.home() / "Tessmark";
    std::filesystem::create_directories(root / "remins");
    std::filesystem::create_directories(root / "Agent");
    stage.writeFile("Tessmark/remins/readme.txt", "Material.\n");
    stage.writeFile("Tessmark/Agent/TkwService.exe", "Stand-in.\n");
    stage.writeFile("Tessmark/Agent/tkwconfig.ini", "[Changes]\nFiles = yes\n");
    setRegistry(console, core::kWindowsChangesKey, "LocalRootDir", root.string());
    setRegistry(console, core::kWindowsChangesKey, "Version", "5.0");
  }

  void takeBoth() {
    console.wizard.lvSelect.userSelection({1, 2}, 1);
    console.wizard.cmdAdd.userClick();
    console.wizard.cmdNext.userClick();
  }
  /// On to the page with the products.
  void chooseTessmark() {
    while (!console.wizard.freAgents.Visible) console.wizard.cmdNext.userClick();
    console.wizard.optClient(1).userClick();
  }
  void installBoth() {
    console.openFromMenu(console.main.mnuToolsInstall, [&] {
      takeBoth();
      chooseTessmark();
      console.goOn();
      console.act();
      // A plain success leaves the status as it was.
      EXPECT_THAT(console.rows(), LinesAre({"ATLAS: Unmanaged", "BIRCH: Unmanaged"}));
      console.finish();
    });
    console.openFromMenu(console.main.mnuToolsInstall, [&] {
      takeBoth();
      console.goOn();
      console.act();
      console.finish();
    });
    EXPECT_THAT(console.statuses(),
                testing::IsSupersetOf(eachWith({"ATLAS", "BIRCH"}, "Tracking Changes & Events")));
  }
  [[nodiscard]] bool has(const std::string& name, const std::string& product) const {
    return lab(name).contains("C/Program Files/Kelmont Works/" + product);
  }

  OperatorsConsole console{stage, core::kChangesTitle};
  const std::string snapshot = "C/Program Files/Kelmont Works/Tessmark/Snapshots/first.tks";
};

TEST_F(WizardWithSnapshots, AreKeptWhereTheOperatorSaysSoAndGoneElsewhere) {
  console.run([&] {
    installBoth();
    EXPECT_TRUE(lab("ATLAS").contains(snapshot) && lab("BIRCH").contains(snapshot));
    console.openFromMenu(console.main.mnuToolsUninstall, [&] {
      auto& wizard = console.wizard;
      takeBoth();
      wizard.lvSystems.userMouseUp(ui::MouseButton::Left, 1, deployment::kKeepSnapsSubItem, 6);
      EXPECT_EQ(wizard.lvSystems.ListItems(1).SubItems(deployment::kKeepSnapsSubItem), "Yes");
      EXPECT_EQ(wizard.lvSystems.ListItems(2).SubItems(deployment::kKeepSnapsSubItem), "No");
      chooseTessmark();
      console.logIn(R"(CORP\admin)", "corp");
      console.ui.onPump = [&] {
        // The prompt's end has shown the page with the products anew, the other one chosen.
        if (wizard.RunBusy && wizard.freAgents.Visible && wizard.optClient(0).Value)
          wizard.optClient(1).userClick();
      };
      console.act();
      console.ui.onPump = {};
      EXPECT_THAT(console.rows(), LinesAre({"ATLAS: " + kUninstalled, "BIRCH: " + kUninstalled}));
      console.finish();
    });
  });
  EXPECT_TRUE(lab("ATLAS").contains(snapshot));
  EXPECT_FALSE(has("BIRCH", "Tessmark"));
  EXPECT_TRUE(has("ATLAS", "Varnhold") && has("BIRCH", "Varnhold"));
  EXPECT_THAT(cli::Stage::agents(), ElementsAre(StartsWith("ATLAS|1|"), StartsWith("BIRCH|1|")));
}

TEST_F(WizardWithSnapshots, ThePromptInTheRunChoosesTheVarnholdAgentAgain) {
  console.run([&] {
    installBoth();
    console.openFromMenu(console.main.mnuToolsUninstall, [&] {
      takeBoth();
      chooseTessmark();
      console.logIn(R"(CORP\admin)", "corp");
      console.act();
      EXPECT_TRUE(console.wizard.optClient(0).Value);
      EXPECT_THAT(console.rows(), LinesAre({"ATLAS: " + kUninstalled, "BIRCH: " + kUninstalled}));
      console.finish();
    });
  });
  for (const char* const name : {"ATLAS", "BIRCH"}) {
    EXPECT_FALSE(has(name, "Varnhold"));
    EXPECT_TRUE(lab(name).contains(snapshot));
  }
  EXPECT_THAT(cli::Stage::agents(), ElementsAre(StartsWith("ATLAS|2|"), StartsWith("BIRCH|2|")));
}

}  // namespace
}  // namespace varnhold::session
