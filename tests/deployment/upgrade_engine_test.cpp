// The upgrade over the Windows network.
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kIni =
    R"(qrvCReadNWriteVhaConfigINI4Turbo C:\VARNHOLD\RemoteInstaller\Agent\vhagent )"
    R"(C:\VARNHOLD\RemoteInstaller\Agent C:\VARNHOLD\RemoteInstaller\Agent\vhaconfig.ini )";

class UpgradeEngine : public EngineTest {
 protected:
  UpgradeEngine() : EngineTest(UpgradeAgents, 3) { targets.optWinDom.Value.settle(true); }

  fakes::FakeComputer& addAgent(const std::string& name, const std::string& status = kStandard,
                                int type = 7) {
    inventory.addAgent(name, 1);
    return addComputer(name, status, type);
  }
  static std::string upgrades(const std::string& name, int thread) {
    return R"(qrvCUpgradeAgent [SystemName=\\)" + name + ", AgentMode=1, UseDefaultConfig=1] " + kRemins +
           " -> " + std::to_string(thread);
  }
  void setType(const std::string& name, int type) {
    inventory.execute("UPDATE System_Table SET System_Type = " + std::to_string(type) +
                      " WHERE System_Name = '" + name + "'");
  }
  static std::string asks(const std::string& name, const std::string& answer) {
    return "MessageBox question: Unable to resolve system '" + name +
           "' as a Windows based system .<CR><LF>If you are sure this system is a Windows based system click "
           "\"Yes\" to proceed with upgrade,<CR><LF>click \"No\" to skip -> " +
           answer;
  }
};

TEST_F(UpgradeEngine, UpgradesAComputerStepByStepAndLeavesItsRowAlone) {
  addAgent("HOST1");
  run();
  EXPECT_THAT(fake.journal,
              LinesAre({"Pointer 13", kResetLog, "Select HOST1", findsSystem("HOST1"),
                        asksIfAgentless("HOST1"), "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1",
                        kIni + "0 -> 1", upgrades("HOST1", 7), "GetExitCodeThread 7 -> 1700", "CloseHandle 7",
                        status("HOST1", kUpgraded), "Progress 99", "Pointer 0"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\OLD|0|0)"}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(UpgradeEngine, HandlesEventsBetweenItsSteps) {
  addAgent("HOST1");
  watchPumps();
  run();
  EXPECT_THAT(
      fakes::linesWithout(fake.journal, {"SQL", "GetExit", "Close"}),
      LinesAre({"Pointer 13", kResetLog, "pump", "pump", "pump", "Select HOST1", "pump",
                "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1", "pump", kIni + "0 -> 1",
                upgrades("HOST1", 7), status("HOST1", kUpgraded), "Progress 99", "pump", "Pointer 0"}));
}

TEST_F(UpgradeEngine, HighPerformanceReachesTheIniFileButNotTheJob) {
  addAgent("HOST1", "Managed - High Performance Mode");
  targets.chkHPMode.Value.settle(1);
  run();
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCReadNWrite"), LinesAre({kIni + "5 -> 1"}));
  EXPECT_THAT(jobs("qrvCUpgradeAgent"), LinesAre({upgrades("HOST1", 7)}));
}

TEST_F(UpgradeEngine, GoesOnWhereTheIniFileWasNotEdited) {
  fake.libraries.iniEdits = false;
  addAgent("HOST1");
  run();
  EXPECT_THAT(statuses(), LinesAre({kUpgraded}));
}

TEST_F(UpgradeEngine, GivesTheJobTheConfigurationTheScriptsAndTheVersion) {
  addAgent("HOST1").osMajorVersion = 6;
  targets.optConfig(1).Value.settle(true);
  targets.txtTemplate.Text = R"(C:\own.ini)";
  targets.chkUpgradeRemedialActionScripts.Value.settle(1);
  run();
  EXPECT_THAT(jobs("qrvCUpgradeAgent"),
              LinesAre({R"(qrvCUpgradeAgent [SystemName=\\HOST1, ConfigFile=C:\own.ini, OSFlag=6, )"
                        "AgentMode=1, RemedialFlag=1] " +
                        kRemins + " -> 7"}));
}

TEST_F(UpgradeEngine, ShowsTheRun) {
  targets.freMain.Visible = targets.pbProgress.Visible = false;
  addAgent("HOST1");
  run();
  EXPECT_TRUE(targets.freMain.Visible && targets.pbProgress.Visible);
}

TEST_F(UpgradeEngine, LogsAFailedJob) {
  addAgent("HOST1").upgradeExit = 1180;
  run();
  EXPECT_THAT(statuses(), LinesAre({kFailed180}));
  EXPECT_THAT(log(), LinesAre({"HOST1 - " + kFailed180}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(UpgradeEngine, TakesAnInstallsSuccessForAFault) {
  addAgent("HOST1").upgradeExit = 1150;
  addAgent("HOST2").startsThreads = false;
  run();
  EXPECT_THAT(statuses(), LinesAre({"Unknown error.",
                                    "Unknown error. This may be due to insufficient "
                                    "permission or network problems."}));
}

TEST_F(UpgradeEngine, SkipsTheManagersOwnComputerWithoutAWordInTheLog) {
  addAgent("Manager");
  run();
  EXPECT_THAT(deeds(), LinesAre({kResetLog, findsSystem("Manager"),
                                 status("Manager", "Skipped: Manager (local system)")}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(UpgradeEngine, SkipsAnAgentlessRowWithoutAWordInTheLog) {
  inventory.addAgent("HOST1", 1, 1);
  addComputer("HOST1", "Managed - Agentless Mode");
  run();
  EXPECT_THAT(deeds(), LinesAre({kResetLog, findsSystem("HOST1"), asksIfAgentless("HOST1"),
                                 status("HOST1", "Skipped: No need to upgrade agent less agents")}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(UpgradeEngine, SkipsAComputerWithoutAnAgentOfTheProduct) {
  addComputer("HOST1", "Tracking Changes");
  run();
  EXPECT_THAT(deeds(), LinesAre({kResetLog, findsSystem("HOST1"), asksIfAgentless("HOST1"),
                                 logged("Skipped: HOST1 - Cannot upgrade because Agent is not installed"),
                                 status("HOST1", "Skipped: Agent not installed")}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(UpgradeEngine, TakesEveryStatusOfItsProduct) {
  addAgent("HOST1", "managed - high performance mode");
  addAgent("HOST2");
  addAgent("HOST3", "Tracking Changes & Events");
  run();
  EXPECT_THAT(statuses(), Each(kUpgraded));
}

TEST_F(UpgradeEngine, TakesTheStatusesOfTheTessmarkAgentForThatOne) {
  chooseTessmark();
  addComputer("HOST1", "Tracking Changes");
  addComputer("HOST2", kStandard);
  run();
  EXPECT_THAT(statuses(), LinesAre({kUpgraded, "Skipped: Agent not installed"}));
  EXPECT_THAT(jobs("qrvCUpgradeAgent"), ElementsAre(HasSubstr(R"(C:\TESSMARK\remins)")));
}

TEST_F(UpgradeEngine, AnInaccessibleRowIsPassedOver) {
  addAgent("HOST1", kInaccessible);
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0"}));
}

TEST_F(UpgradeEngine, LooksAnewAtAnUnknownTypeAndDoesNotAskWhereThatHelps) {
  addAgent("HOST1", kStandard, 0);
  fake.libraries.onRefresh = [this](const std::string& name) { setType(name, 10); };
  run();
  EXPECT_THAT(fakes::linesOf(fake.journal, "SQL: SELECT * FROM System_Table"), SizeIs(2));
  EXPECT_EQ(fakes::linesWithout(deeds(), {"SQL"}).at(1), "qrvNetOpGetSystem HOST1");
  EXPECT_EQ(fakes::linesWithout(deeds(), {"SQL"}).at(2), "Sleep 500");
  EXPECT_THAT(statuses(), LinesAre({kUpgraded}));
}

TEST_F(UpgradeEngine, UpgradesAnUnknownTypeWhereTheOperatorIsSure) {
  addAgent("HOST1", kStandard, 0);
  ui.nextAnswer(ui::Answer::Yes);
  run();
  EXPECT_THAT(boxes(), LinesAre({asks("HOST1", "Yes")}));
  EXPECT_THAT(statuses(), LinesAre({kUpgraded}));
}

TEST_F(UpgradeEngine, SkipsAnUnknownTypeInSilenceWhereTheOperatorIsNot) {
  addAgent("HOST1", kStandard, 0);
  ui.nextAnswer(ui::Answer::No);
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Select HOST1", findsSystem("HOST1"),
                                      "qrvNetOpGetSystem HOST1", "Sleep 500", findsSystem("HOST1"),
                                      asks("HOST1", "No"), "Progress 99", "Pointer 0"}));
  EXPECT_THAT(statuses(), LinesAre({kStandard}));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(UpgradeEngine, ASolarisNeverPassesWhateverTheAnswer) {
  addAgent("HOST1", kStandard, 101);
  addAgent("HOST2", kStandard, 101);
  ui.nextAnswer(ui::Answer::Yes);
  ui.nextAnswer(ui::Answer::No);
  run();
  EXPECT_THAT(boxes(), LinesAre({asks("HOST1", "Yes"), asks("HOST2", "No")}));
  EXPECT_THAT(statuses(), Each(kStandard));
  EXPECT_THAT(jobs("qrvCUpgradeAgent"), IsEmpty());
}

TEST_F(UpgradeEngine, KnownStrangersAreSkippedWithoutAQuestion) {
  addAgent("HOST1", kStandard, 201);
  addAgent("HOST2", kStandard, 301);
  run();
  EXPECT_THAT(libraryCalls(), IsEmpty());
  EXPECT_THAT(statuses(), Each(kStandard));
  EXPECT_EQ(targets.pbProgress.Value, 99);
}

TEST_F(UpgradeEngine, DoesNothingForNoComputers) {
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0"}));
}

class AgentlessUpgradeEngine : public UpgradeEngine {
 protected:
  AgentlessUpgradeEngine() { chooseAgentless(); }
};

TEST_F(AgentlessUpgradeEngine, LooksAtTheLogConnectsUpgradesAndDisconnectsStepByStep) {
  addAgent("HOST1").osMajorVersion = 6;
  logIn();
  run();
  EXPECT_THAT(
      fake.journal,
      ElementsAreArray(together(
          {{"Pointer 13", kResetLog, "Show modal frmLogin", "Close frmLogin",
            R"(OpenEventLog \\HOST1 Security -> 1)", "CloseEventLog 1"},
           connects("HOST1"),
           {"Select HOST1", findsSystem("HOST1"), asksIfAgentless("HOST1"),
            "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1",
            R"(qrvCUpgradeAgent [SystemName=\\HOST1, OSFlag=6, UseDefaultConfig=1] )" + kRemins + " -> 7",
            "GetExitCodeThread 7 -> 1700", "CloseHandle 7", status("HOST1", kUpgraded), "Progress 99"},
           disconnects("HOST1"),
           {"Pointer 0"}})));
}

TEST_F(AgentlessUpgradeEngine, AComputerWithAClosedLogIsNeitherConnectedNorDisconnected) {
  addAgent("HOST1");
  addAgent("HOST2");
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  fake.eventLog.messages[5] = "Access is denied.\r\n";
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({"Skipped: Access is denied.", kUpgraded}));
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST1 - Access is denied."}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "createNew"), Each(HasSubstr(R"(\\HOST2\)")));
  EXPECT_THAT(fakes::linesOf(fake.journal, "Select "), LinesAre({"Select HOST2"}));
}

TEST_F(AgentlessUpgradeEngine, TakesTheConfigurationBeforeThePromptShowsThePagesAnew) {
  addAgent("HOST1");
  targets.optConfig(1).Value.settle(true);
  targets.txtTemplate.Text = R"(C:\own.ini)";
  ui.nextModal("frmLogin", [this](ui::Form&) {
    targets.optConfig(1).Value.settle(false);
    frmLogin.LoginAccepted = true;
    frmLogin.CmdCancel.userClick();
  });
  run();
  EXPECT_THAT(jobs("qrvCUpgradeAgent"), ElementsAre(HasSubstr(R"(ConfigFile=C:\own.ini)")));
}

TEST_F(AgentlessUpgradeEngine, ARefusedLoginSkipsEveryRow) {
  addAgent("HOST1");
  addAgent("HOST2");
  refuseLogin();
  run();
  EXPECT_THAT(statuses(), Each(kInaccessible));
  EXPECT_THAT(libraryCalls(), IsEmpty());
  EXPECT_FALSE(targets.ErrorsSeen);
}

}  // namespace
}  // namespace varnhold::deployment
