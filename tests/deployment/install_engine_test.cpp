// The install of the Varnhold agent, agent based.
#include "base/runtime_error.h"
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kIni =
    R"(qrvCReadNWriteVhaConfigINI4Turbo C:\VARNHOLD\RemoteInstaller\Agent\vhagent )"
    R"(C:\VARNHOLD\RemoteInstaller\Agent C:\VARNHOLD\RemoteInstaller\Agent\vhaconfig.ini )";
const std::string kNotResolved = "Could not resolve the IP Address for the system.";
const std::string kNoConfiguration = "Could not create the configuration file on the local system.";

class InstallEngine : public EngineTest {
 protected:
  InstallEngine() : EngineTest(InstallAgents, 1) {}

  static std::string configures(const std::string& name, int result = 1) {
    return "qrvCCreateConfigurationFile " + kRemins + " " + name + R"( C:\A 1 -> )" + std::to_string(result);
  }
  static std::string installs(const std::string& name, int thread) {
    return "qrvCInstall [SystemName=" + name + R"(, InstallDirectory=C:\A, AgentKind=2, AgentMode=1] )" +
           kRemins + " -> " + std::to_string(thread);
  }
  static std::string findsAgent(const std::string& name) {
    return "SQL: SELECT * FROM Module_Table WHERE (System_Name = '" + name +
           "' AND Module_ID = 1 AND Agentless = 0)";
  }
  static std::string addsAgent(const std::string& name) {
    return "SQL: INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) "
           "VALUES ('" +
           name + R"(', 1, 'C:\A', 0, 0))";
  }
  void expectFault(const std::string& text) {
    EXPECT_THAT(statuses(), ElementsAre(text));
    EXPECT_THAT(log(), LinesAre({"HOST1 - " + text}));
    EXPECT_TRUE(targets.ErrorsSeen);
    EXPECT_THAT(changes(), IsEmpty());
  }
};

TEST_F(InstallEngine, InstallsOnAComputerStepByStep) {
  addComputer("HOST1").polls = 1;
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13",
                                      kResetLog,
                                      "Pointer 0",
                                      "Pointer 13",
                                      "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1",
                                      findsSystem("HOST1"),
                                      "qrvGetSystemIPAddress HOST1 -> 1",
                                      kIni + "1 -> 1",
                                      configures("HOST1"),
                                      installs("HOST1", 7),
                                      "GetExitCodeThread 7 -> 259",
                                      "Progress 1",
                                      "Sleep 200",
                                      "GetExitCodeThread 7 -> 1150",
                                      "CloseHandle 7",
                                      status("HOST1", "Installed successfully"),
                                      findsAgent("HOST1"),
                                      addsAgent("HOST1"),
                                      "Select HOST1",
                                      "Visible HOST1",
                                      "Progress 99",
                                      "Pointer 0"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)"}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(InstallEngine, HandlesEventsBetweenItsSteps) {
  addComputer("HOST1");
  watchPumps();
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13",
                                      kResetLog,
                                      "pump",
                                      "pump",
                                      "pump",
                                      "pump",
                                      "Pointer 0",
                                      "Pointer 13",
                                      "pump",
                                      "pump",
                                      "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1",
                                      "pump",
                                      "pump",
                                      findsSystem("HOST1"),
                                      "qrvGetSystemIPAddress HOST1 -> 1",
                                      "pump",
                                      kIni + "1 -> 1",
                                      configures("HOST1"),
                                      installs("HOST1", 7),
                                      "pump",
                                      "GetExitCodeThread 7 -> 1150",
                                      "CloseHandle 7",
                                      "pump",
                                      status("HOST1", "Installed successfully"),
                                      findsAgent("HOST1"),
                                      addsAgent("HOST1"),
                                      "pump",
                                      "pump",
                                      "Select HOST1",
                                      "Visible HOST1",
                                      "Progress 99",
                                      "Pointer 0"}));
}

TEST_F(InstallEngine, FindsAndStoresAComputerThatTheInventoryDoesNotKnow) {
  addUnknownComputer("HOST1");
  run();
  EXPECT_THAT(libraryCalls(),
              LinesAre({"qrvFindSystemAndReturnDetails", "qrvFindSystemAndReturnDetails",
                        "qrvUpdateSystemDetailsInDB", "qrvGetSystemIPAddress",
                        "qrvCReadNWriteVhaConfigINI4Turbo", "qrvCCreateConfigurationFile", "qrvCInstall"}));
  EXPECT_THAT(inventory.computers(), LinesAre({"HOST1|7"}));
  EXPECT_THAT(statuses(), LinesAre({"Installed successfully"}));
}

TEST_F(InstallEngine, ShowsTheRunAndLocksTheButtons) {
  addComputer("HOST1").polls = 1;
  targets.freMain.Visible = targets.pbProgress.Visible = targets.lblProgress.Visible = false;
  targets.cmdInstall.Enabled = targets.cmdAdvanced.Enabled = true;
  bool seen = false;
  fake.clock.onSleep = [&] {
    seen = true;
    EXPECT_TRUE(targets.RunBusy);
    EXPECT_TRUE(targets.freMain.Visible && targets.pbProgress.Visible);
    EXPECT_FALSE(targets.cmdInstall.Enabled || targets.cmdAdvanced.Enabled);
  };
  run();
  EXPECT_TRUE(seen);
  EXPECT_TRUE(targets.lblProgress.Visible);
}

TEST_F(InstallEngine, WordsASuccessWithAReservationAndRecordsTheAgent) {
  addComputer("HOST1").installExit = 1167;
  addComputer("HOST2").installExit = 1232;
  run();
  EXPECT_THAT(
      statuses(),
      LinesAre({"Installed successfully - Failed to configure security. Please apply security settings.",
                "Installed successfully - Could not start the service automatically. Please try manually."}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)", R"(HOST2|1|C:\A|0|0)"}));
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(InstallEngine, LogsAFailedJobAndRecordsNothing) {
  addComputer("HOST1").installExit = 1180;
  run();
  EXPECT_THAT(deeds(), testing::Contains(logged("HOST1 - " + kFailed180)));
  expectFault(kFailed180);
}

TEST_F(InstallEngine, EndsIn710WhereNoThreadWasStarted) {
  addComputer("HOST1").startsThreads = false;
  run();
  EXPECT_THAT(fakes::linesOf(fake.journal, "GetExitCodeThread"), IsEmpty());
  expectFault(kNotStarted);
}

TEST_F(InstallEngine, EndsIn800WhereTheNameDoesNotResolve) {
  addComputer("HOST1").address.reset();
  run();
  EXPECT_THAT(libraryCalls(), LinesAre({"qrvFindSystemAndReturnDetails", "qrvGetSystemIPAddress"}));
  expectFault(kNotResolved);
}

TEST_F(InstallEngine, EndsIn801WhereTheSetupFileIsNotWritten) {
  addComputer("HOST1").configurationResult = 2;
  run();
  EXPECT_THAT(jobs("qrvCInstall"), IsEmpty());
  expectFault(kNoConfiguration);
}

TEST_F(InstallEngine, EndsIn710WhereTheIniFileIsNotEditedAndWritesNoSetupFile) {
  addComputer("HOST1");
  fake.libraries.iniEdits = false;
  run();
  EXPECT_THAT(libraryCalls(), LinesAre({"qrvFindSystemAndReturnDetails", "qrvGetSystemIPAddress",
                                        "qrvCReadNWriteVhaConfigINI4Turbo"}));
  expectFault(kNotStarted);
}

TEST_F(InstallEngine, TakesAFailedPollForAResultAndLeavesTheHandleOpen) {
  addComputer("HOST1");
  fake.threads.failsGetExitCode = true;
  run();
  EXPECT_EQ(fake.threads.openHandles().size(), 1u);
  expectFault("Unknown error.");
}

TEST_F(InstallEngine, SkipsAComputerThatDoesNotRespond) {
  addUnknownComputer("HOST1").answers = false;
  run();
  EXPECT_THAT(deeds(), LinesAre({kResetLog, "qrvFindSystemAndReturnDetails HOST1 level 1 -> 0",
                                 findsSystem("HOST1"), "qrvFindSystemAndReturnDetails HOST1 level 1 -> 0",
                                 logged("Skipped: HOST1 - System not responding"),
                                 status("HOST1", "Skipped: System not responding")}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(InstallEngine, SkipsTheManagersOwnComputerInAnyCaseWithoutAWordInTheLog) {
  addRow("Manager");
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0", "Pointer 13",
                                      status("Manager", "Skipped: Manager (local system)"), "Select Manager",
                                      "Visible Manager", "Progress 99", "Pointer 0"}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(InstallEngine, SkipsAnAgentlessComputerForAnAgentOnIt) {
  addComputer("HOST1", "managed - agentless mode");
  run();
  EXPECT_THAT(deeds(),
              LinesAre({kResetLog,
                        status("HOST1",
                               "Skipped: Cannot implement both agent based and agent less simultaneously")}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(InstallEngine, SkipsAnInaccessibleRowWithoutAWord) {
  addComputer("HOST1", "not accessible, will be skipped.");
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0", "Select HOST1", "Visible HOST1",
                                      "Progress 99"}));
}

TEST_F(InstallEngine, InstallsAgainOverARunningAgentAndUpdatesItsRowInPlace) {
  addComputer("HOST1", "Managed - Standard Mode");
  inventory.addAgent("HOST1", 1);
  run();
  EXPECT_THAT(changes(),
              LinesAre({"SQL: UPDATE Module_Table SET Install_Directory =  'C:\\A', Manual = 0, Module_ID = "
                        "1 WHERE System_Name = 'HOST1' AND (Module_ID = 1 OR Module_ID = 5) AND Agentless "
                        "= 0"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)"}));
}

TEST_F(InstallEngine, NoStatusFailsTheGate) {
  for (const auto* held :
       {"Tracking Changes", "Tracking Changes & Events", "Managed - High Performance Mode",
        "Tracking Changes & Events Managed - Standard Mode Managed - High Performance Mode"})
    addComputer("HOST" + std::to_string(targets.lvSystems.ListItems.Count()), held);
  run();
  EXPECT_EQ(jobs("qrvCInstall").size(), 4u);
}

TEST_F(InstallEngine, OneStatusWithAllTheWordsWouldFailTheGate) {
  addComputer("HOST1",
              "Tracking Changes & Events Managed - Standard Mode Managed - High Performance Mode "
              "Managed - Agentless Mode");
  targets.OptAgentbased.Value.settle(false);
  run();
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST1 - Agent already installed"}));
  EXPECT_THAT(statuses(), LinesAre({"Skipped: Agent already installed"}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(InstallEngine, AStatusWithAllTheModesAloneDoesNotFailTheGate) {
  addComputer("HOST1", "Managed - Standard Mode Managed - High Performance Mode Managed - Agentless Mode");
  targets.OptAgentbased.Value.settle(false);
  run();
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_EQ(jobs("qrvCInstall").size(), 1u);
}

TEST_F(InstallEngine, HighPerformanceReachesTheIniFileAndTheInventoryButNotTheJob) {
  addComputer("HOST1");
  inventory.addAgent("HOST1", 1);
  targets.chkHPMode.Value.settle(1);
  run();
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCReadNWrite"), LinesAre({kIni + "5 -> 1"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCCreate"), LinesAre({configures("HOST1")}));
  EXPECT_THAT(jobs("qrvCInstall"), LinesAre({installs("HOST1", 7)}));
  EXPECT_THAT(
      fakes::linesOf(fake.journal, "SQL: "),
      LinesAre({findsSystem("HOST1"),
                "SQL: SELECT * FROM Module_Table WHERE (System_Name ='HOST1' AND Module_ID = 1 AND "
                "Agentless = 0)",
                "SQL: UPDATE Module_Table SET Install_Directory =  'C:\\A', Manual = 0, Module_ID = 5 WHERE "
                "System_Name = 'HOST1' AND (Module_ID = 5 OR Module_ID = 1) AND Agentless = 0"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|5|C:\A|0|0)"}));
}

TEST_F(InstallEngine, ASecondHighPerformanceInstallAddsASecondRow) {
  addComputer("HOST1");
  inventory.addAgent("HOST1", 5);
  targets.chkHPMode.Value.settle(1);
  run();
  EXPECT_THAT(changes(),
              LinesAre({"SQL: INSERT INTO Module_Table (System_Name, Module_ID, "
                        "Install_Directory, Manual,Agentless) VALUES ('HOST1', 5, 'C:\\A', 0,0)"}));
}

TEST_F(InstallEngine, GivesTheJobTheAccountTheConfigurationAndTheScripts) {
  addComputer("HOST1").osMajorVersion = 6;
  targets.optConfig(1).Value.settle(true);
  targets.txtTemplate.Text = R"(C:\own.ini)";
  targets.optAccounts(1).Value.settle(true);
  targets.txtUserName.Text = R"(CORP\svc)";
  targets.txtPassword.Text = "pw";
  targets.chkCopyRemedialActionScripts.Value.settle(1);
  run();
  EXPECT_THAT(jobs("qrvCInstall"),
              LinesAre({"qrvCInstall [SystemName=HOST1, InstallDirectory=C:\\A, ServiceUser=CORP\\svc, "
                        "ServicePassword=pw, ConfigFile=C:\\own.ini, OSFlag=6, AgentKind=2, AgentMode=1, "
                        "RemedialFlag=1] " +
                        kRemins + " -> 7"}));
}

TEST_F(InstallEngine, ANamedAccountWithoutAPasswordGetsOneBlank) {
  addComputer("HOST1");
  targets.optAccounts(1).Value.settle(true);
  targets.txtUserName.Text = R"(CORP\svc)";
  run();
  EXPECT_THAT(jobs("qrvCInstall"), ElementsAre(HasSubstr("ServicePassword= , AgentKind")));
}

TEST_F(InstallEngine, LeavesAccountAndConfigurationOutUnlessTheyAreChosen) {
  addComputer("HOST1");
  targets.optConfig(1).Value.settle(false);
  targets.optAccounts(1).Value.settle(false);
  targets.txtTemplate.Text = R"(C:\own.ini)";
  targets.txtUserName.Text = R"(CORP\svc)";
  run();
  EXPECT_THAT(jobs("qrvCInstall"), LinesAre({installs("HOST1", 7)}));
}

TEST_F(InstallEngine, RecordsTheFolderThatTheLibraryWroteBackUpToItsFirstNul) {
  addComputer("HOST1");
  fake.libraries.onJob = [](platform::DeploymentJob& job) {
    job.InstallDirectory = std::string("D:\\B\0rest", 9);
  };
  addComputer("HOST2");
  run();
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|D:\B|0|0)", R"(HOST2|1|D:\B|0|0)"}));
  EXPECT_THAT(jobs("qrvCInstall"), LinesAre({installs("HOST1", 7), installs("HOST2", 8)}));
}

TEST_F(InstallEngine, ExactlyFiveIsNoVista) {
  addComputer("HOST1").osMajorVersion = 5;
  addComputer("HOST2").osMajorVersion = 6;
  run();
  EXPECT_THAT(jobs("qrvCInstall"), ElementsAre(testing::Not(HasSubstr("OSFlag")), HasSubstr("OSFlag=6")));
}

TEST_F(InstallEngine, KeepsTheVersionOfTheComputerBeforeWhereOneDoesNotAnswer) {
  addComputer("HOST1").answers = false;
  addComputer("HOST2").osMajorVersion = 6;
  addComputer("HOST3").answers = false;
  run();
  EXPECT_THAT(jobs("qrvCInstall"),
              ElementsAre(testing::Not(HasSubstr("OSFlag")), HasSubstr("OSFlag=6"), HasSubstr("OSFlag=6")));
}

TEST_F(InstallEngine, DoesNothingForNoComputers) {
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0"}));
}

TEST_F(InstallEngine, AnApostropheGoesIntoTheStatementsAsItIs) {
  addComputer("O'BRIEN");
  run();
  EXPECT_THAT(fakes::linesOf(fake.journal, "SQL: "), testing::Contains(findsSystem("O'BRIEN")));
}

}  // namespace
}  // namespace varnhold::deployment
