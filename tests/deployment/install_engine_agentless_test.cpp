// The install of the Varnhold agent where nothing runs on the computer: the manager's own agent polls it.
#include "core/registry_values.h"
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

class AgentlessInstallEngine : public EngineTest {
 protected:
  AgentlessInstallEngine() : EngineTest(InstallAgents, 1) {
    chooseAgentless();
    targets.cboPollFreq.ListIndex = 5;
    targets.txtStartHour.Text = "06";
    targets.txtStartMin.Text = "05";
    fake.registry.makeKey(core::kAgentKey);
    fake.journal.clear();
  }

  static std::string stores(const std::string& value, const std::string& text) {
    return "RegSetValueEx " + std::string(core::kAgentKey) + "\\" + value + " type 1 " + text + " -> Done";
  }
  static Lines savesPolling() { return {stores("gPollingFreq", "4:0"), stores("gPollStartTime", "6:5")}; }
  static std::string installs(const std::string& name, int thread, const std::string& osFlag = "") {
    return "qrvCInstall [SystemName=" + name + R"(, InstallDirectory=C:\A, )" + osFlag + "AgentKind=1] " +
           kRemins + " -> " + std::to_string(thread);
  }
  void refuseSecurityLog(const std::string& name) {
    fake.eventLog.refused[R"(\\)" + name] = 5;
    fake.eventLog.messages[5] = "Access is denied.\r\n";
  }
};

TEST_F(AgentlessInstallEngine, ConnectsChecksDeploysAndDisconnectsStepByStep) {
  addComputer("HOST1");
  logIn();
  run();
  EXPECT_THAT(fake.journal,
              ElementsAreArray(together(
                  {{"Pointer 13", kResetLog, "Show modal frmLogin", "Close frmLogin"},
                   connects("HOST1"),
                   {"Pointer 0", "Pointer 13", "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1",
                    R"(OpenEventLog \\HOST1 Security -> 1)", "CloseEventLog 1", findsSystem("HOST1"),
                    "qrvGetSystemIPAddress HOST1 -> 1", installs("HOST1", 7), "GetExitCodeThread 7 -> 1150",
                    "CloseHandle 7", status("HOST1", "Installed successfully"),
                    "SQL: SELECT * FROM Module_Table WHERE (System_Name ='HOST1' AND  Module_ID = 1 AND "
                    "Agentless = 1)",
                    "SQL: INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, "
                    "Manual,Agentless) VALUES "
                    "('HOST1', 1, 'C:\\A', 0, 1)"},
                   disconnects("HOST1"),
                   {"Select HOST1", "Visible HOST1", "Progress 99"},
                   savesPolling(),
                   {kRestart, "Pointer 0"}})));
}

TEST_F(AgentlessInstallEngine, UpdatesTheAgentlessRowAndLeavesThatOfAnAgentAlone) {
  addComputer("HOST1");
  inventory.addAgent("HOST1", 1, 1);
  inventory.addAgent("HOST1", 5, 0);
  logIn();
  run();
  EXPECT_THAT(changes(),
              LinesAre({"SQL: UPDATE Module_Table SET Install_Directory =  'C:\\A', Manual = 0, Module_ID = "
                        "1 WHERE System_Name = 'HOST1' AND (Module_ID = 1 OR Module_ID = 5) AND Agentless "
                        "= 1"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|1)", R"(HOST1|5|C:\OLD|0|0)"}));
}

TEST_F(AgentlessInstallEngine, ARefusedLoginSkipsEveryRowAndStillRestartsTheManagersAgent) {
  addComputer("HOST1");
  addComputer("HOST2");
  refuseLogin();
  run();
  EXPECT_THAT(deeds(),
              ElementsAreArray(together({{kResetLog, "Show modal frmLogin", "Close frmLogin",
                                          status("HOST1", kInaccessible), status("HOST2", kInaccessible)},
                                         savesPolling(),
                                         {kRestart}})));
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(AgentlessInstallEngine, TheLoginLasts) {
  addComputer("HOST1");
  logIn();
  run();
  refuseLogin();
  fake.journal.clear();
  run();
  // Refused, but accepted once: no shares are connected, and the computer is worked on.
  EXPECT_THAT(fakes::linesOf(fake.journal, "createNew"), IsEmpty());
  EXPECT_EQ(jobs("qrvCInstall").size(), 1u);
  EXPECT_THAT(statuses(), LinesAre({"Installed successfully"}));
}

TEST_F(AgentlessInstallEngine, TakesTheConfigurationAndTheAccountBeforeThePromptShowsThePagesAnew) {
  addComputer("HOST1");
  targets.optConfig(1).Value.settle(true);
  targets.txtTemplate.Text = R"(C:\own.ini)";
  targets.optAccounts(1).Value.settle(true);
  targets.txtUserName.Text = R"(CORP\svc)";
  ui.nextModal("frmLogin", [this](ui::Form&) {
    targets.optConfig(1).Value.settle(false);
    targets.optAccounts(1).Value.settle(false);
    frmLogin.LoginAccepted = true;
    frmLogin.CmdCancel.userClick();
  });
  run();
  EXPECT_THAT(jobs("qrvCInstall"),
              ElementsAre(HasSubstr(R"(ServiceUser=CORP\svc, ServicePassword= , ConfigFile=C:\own.ini)")));
}

TEST_F(AgentlessInstallEngine, GoesOnInFrontOfThePageThatThePromptHasShownAnew) {
  addComputer("HOST1").polls = 1;
  show(1, 5, [this] {
    chooseAgentless();
    targets.optConfig(1).Value = true;
    targets.txtTemplate.Text = R"(C:\own.ini)";
    targets.freMain.Visible = false;
    logIn();
    int looks = 0;
    fake.clock.onSleep = [&] {
      ++looks;
      EXPECT_TRUE(targets.freMain.Visible && targets.pbProgress.Visible && !targets.frePath.Visible);
      EXPECT_FALSE(targets.cmdInstall.Enabled || targets.cmdAdvanced.Enabled);
      EXPECT_FALSE(targets.cmdBack.Enabled || targets.cmdNext.Enabled);
    };
    run();
    EXPECT_EQ(looks, 5) << "four batch files and one poll";
    EXPECT_TRUE(targets.optConfig(0).Value) << "the prompt has activated the wizard";
  });
  EXPECT_THAT(jobs("qrvCInstall"), ElementsAre(HasSubstr(R"(ConfigFile=C:\own.ini)")));
  EXPECT_THAT(statuses(), LinesAre({"Installed successfully"}));
}

TEST_F(AgentlessInstallEngine, KeepsPagesAwayWhileItRuns) {
  addComputer("HOST1").polls = 1;
  targets.frePath.Visible = targets.cmdInstall.Enabled = targets.cmdAdvanced.Enabled = true;
  logIn();
  bool hidden = false;
  fake.clock.onSleep = [&] {
    hidden = !targets.frePath.Visible && !targets.cmdInstall.Enabled && !targets.cmdAdvanced.Enabled;
  };
  run();
  EXPECT_TRUE(hidden);
}

TEST_F(AgentlessInstallEngine, SkipsAComputerWithAnAgentAndDisconnectsItsShares) {
  addComputer("HOST1", "Managed - Standard Mode");
  logIn();
  run();
  EXPECT_THAT(
      deeds(),
      ElementsAreArray(together(
          {{kResetLog, "Show modal frmLogin", "Close frmLogin"},
           connects("HOST1"),
           {status("HOST1", "Skipped: Cannot implement both agent based and agent less simultaneously")},
           disconnects("HOST1"),
           savesPolling(),
           {kRestart}})));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(AgentlessInstallEngine, AnOlderManagerSkipsAVistaWithoutAWordInTheLog) {
  targets.LocalOSMajor = 5;
  addComputer("HOST1").osMajorVersion = 6;
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({"Skipped: Cannot deploy agentless on VISTA/2K8 system from "
                                    "2000/2003/XP Manager"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "OpenEventLog"), IsEmpty());
  EXPECT_EQ(fakes::linesOf(fake.journal, "createNew").size(), 4u) << "connected and disconnected";
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(AgentlessInstallEngine, AVistaManagerTakesAVistaWithoutLookingAtItsLog) {
  addComputer("HOST1").osMajorVersion = 6;
  refuseSecurityLog("HOST1");
  logIn();
  run();
  EXPECT_THAT(fakes::linesOf(fake.journal, "OpenEventLog"), IsEmpty());
  EXPECT_THAT(jobs("qrvCInstall"), LinesAre({installs("HOST1", 7, "OSFlag=6, ")}));
}

TEST_F(AgentlessInstallEngine, AnOlderManagerTakesAnOlderComputer) {
  targets.LocalOSMajor = 5;
  addComputer("HOST1").osMajorVersion = 5;
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({"Installed successfully"}));
}

TEST_F(AgentlessInstallEngine, LeavesTheSharesOfAComputerWithAClosedLogConnected) {
  addComputer("HOST1");
  refuseSecurityLog("HOST1");
  logIn();
  run();
  EXPECT_THAT(
      fake.journal,
      ElementsAreArray(together(
          {{"Pointer 13", kResetLog, "Show modal frmLogin", "Close frmLogin"},
           connects("HOST1"),
           {"Pointer 0", "Pointer 13", "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1",
            R"(OpenEventLog \\HOST1 Security -> 0, error 5)", "FormatMessage 5",
            logged("Skipped: HOST1 - Access is denied."), status("HOST1", "Skipped: Access is denied."),
            "Select HOST1", "Visible HOST1", "Progress 99"},
           savesPolling(),
           {kRestart, "Pointer 0"}})));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(AgentlessInstallEngine, AComputerThatDoesNotAnswerIsJudgedByTheOneBefore) {
  targets.LocalOSMajor = 5;
  addComputer("HOST1").osMajorVersion = 6;
  addComputer("HOST2").answers = false;
  logIn();
  run();
  EXPECT_THAT(statuses(),
              Each("Skipped: Cannot deploy agentless on VISTA/2K8 system from 2000/2003/XP Manager"));
}

TEST_F(AgentlessInstallEngine, ASecondRunForgetsTheVersionsOfTheFirst) {
  targets.LocalOSMajor = 5;
  addComputer("HOST1").osMajorVersion = 6;
  logIn();
  run();
  fake.libraries.computers["HOST1"].answers = false;
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({"Installed successfully"}));
}

TEST_F(AgentlessInstallEngine, SaysThatTheManagersAgentWasNotRestarted) {
  fake.libraries.computers["MANAGER"].restartsServices = false;
  refuseLogin();
  run();
  EXPECT_THAT(boxes(), LinesAre({kRestartFailed}));
}

TEST_F(AgentlessInstallEngine, ARestartThatTheLibraryLacksIsARestartThatFailed) {
  raiseFrom("qrvRestartService");
  refuseLogin();
  run();
  EXPECT_THAT(boxes(), LinesAre({kRestartFailed}));
}

TEST_F(AgentlessInstallEngine, TriesTheRestartThoughThePollingCouldNotBeSaved) {
  fake.registry.refusesWrites = true;
  refuseLogin();
  run();
  EXPECT_THAT(boxes(), LinesAre({"MessageBox critical: Could not save the polling frequency.",
                                 "MessageBox critical: Could not save the poll start time."}));
  EXPECT_EQ(fake.journal.at(fake.journal.size() - 2), kRestart);
}

TEST_F(AgentlessInstallEngine, AStopStillSavesThePollingAndRestarts) {
  addComputer("HOST1");
  addComputer("HOST2");
  stopDuring("HOST1");
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({"Installed successfully", "Unmanaged"}));
  // The second computer's shares were connected before the stop was looked at.
  EXPECT_EQ(fakes::linesOf(fake.journal, "createNew").size(), 6u);
  EXPECT_EQ(fake.journal.at(fake.journal.size() - 2), kRestart);
}

TEST_F(AgentlessInstallEngine, ABatchFileThatCannotBeMadeCostsTheSharesAndNotTheComputer) {
  addComputer("HOST1");
  fake.files.refuse(kBatch, platform::FileOutcome::Refused);
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({"Installed successfully"}));
}

TEST_F(AgentlessInstallEngine, ALogThatCannotBeWrittenLeavesTheClosedComputerWithoutAWord) {
  addComputer("HOST1");
  addComputer("HOST2");
  refuseSecurityLog("HOST1");
  refuseLog();
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({"Unmanaged", "Installed successfully"}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(AgentlessInstallEngine, NeverTellsThePasswordButToItsBatchFile) {
  addComputer("HOST1").installExit = 1180;
  logIn();
  run();
  const auto others = fakes::linesWithout(fake.journal, {"createNew "});
  EXPECT_THAT(others, Each(testing::Not(HasSubstr("secret"))));
}

}  // namespace
}  // namespace varnhold::deployment
