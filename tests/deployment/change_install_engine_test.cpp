// The install of the Tessmark agent.
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

class ChangeInstallEngine : public EngineTest {
 protected:
  ChangeInstallEngine() : EngineTest(InstallChangeAgents, 1) { chooseTessmark(); }

  static std::string configures(const std::string& name) {
    return "qrvCCreateConfigurationFile " + kTessmarkRemins + " " + name + R"( C:\T 0 -> 1)";
  }
  static std::string installs(const std::string& name, int thread) {
    return "qrvCInstall [SystemName=" + name + R"(, InstallDirectory=C:\T] )" + kTessmarkRemins + " -> " +
           std::to_string(thread);
  }
  static std::string findsAgent(const std::string& name) {
    return "SQL: SELECT * FROM Module_Table WHERE System_Name = '" + name + "' AND Module_ID = 2";
  }
  void expectFault(const std::string& text) {
    EXPECT_THAT(statuses(), ElementsAre(text));
    EXPECT_THAT(log(), LinesAre({"HOST1 - " + text}));
    EXPECT_TRUE(targets.ErrorsSeen);
    EXPECT_THAT(changes(), IsEmpty());
  }
};

TEST_F(ChangeInstallEngine, InstallsStepByStepAndLeavesTheStatusOfAPlainInstall) {
  addComputer("HOST1");
  run();
  EXPECT_THAT(fake.journal,
              LinesAre({"Pointer 13", kResetLog, "Select HOST1", findsSystem("HOST1"),
                        "qrvGetSystemIPAddress HOST1 -> 1", configures("HOST1"), installs("HOST1", 7),
                        "GetExitCodeThread 7 -> 1150", "CloseHandle 7", findsAgent("HOST1"),
                        "SQL: INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual) "
                        "VALUES ('HOST1', 2, 'C:\\T', 0)",
                        "Progress 99", "Pointer 0"}));
  EXPECT_THAT(statuses(), LinesAre({"Unmanaged"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|2|C:\T|0|NULL)"}));
}

TEST_F(ChangeInstallEngine, HandlesEventsBeforeTheRowsAndWhileAJobRuns) {
  addComputer("HOST1").polls = 1;
  watchPumps();
  run();
  EXPECT_THAT(fakes::linesWithout(fake.journal, {"SQL", "qrv"}),
              LinesAre({"Pointer 13", kResetLog, "pump", "Select HOST1", "GetExitCodeThread 7 -> 259",
                        "Progress 1", "pump", "Sleep 200", "GetExitCodeThread 7 -> 1150", "CloseHandle 7",
                        "Progress 99", "Pointer 0"}));
}

TEST_F(ChangeInstallEngine, WordsASuccessWithAReservation) {
  addComputer("HOST1").installExit = 1290;
  addComputer("HOST2").installExit = 1232;
  run();
  EXPECT_THAT(statuses(), LinesAre({kSnapshotsKept, kServiceNotStarted}));
  EXPECT_THAT(inventory.agents(), SizeIs(2));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(ChangeInstallEngine, UpdatesTheAgentsRow) {
  addComputer("HOST1");
  inventory.addAgent("HOST1", 2);
  inventory.addAgent("HOST1", 1);
  run();
  EXPECT_THAT(changes(), LinesAre({"SQL: UPDATE Module_Table SET Install_Directory =  'C:\\T', Manual = 0 "
                                   "WHERE System_Name = 'HOST1' AND Module_ID = 2"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\OLD|0|0)", R"(HOST1|2|C:\T|0|0)"}));
}

TEST_F(ChangeInstallEngine, TakesNoAccountNoConfigurationAndNoLogin) {
  addComputer("HOST1").osMajorVersion = 6;
  chooseAgentless();
  targets.optConfig(1).Value.settle(true);
  targets.txtTemplate.Text = R"(C:\own.ini)";
  targets.optAccounts(1).Value.settle(true);
  targets.txtUserName.Text = R"(CORP\svc)";
  targets.chkHPMode.Value.settle(1);
  run();
  EXPECT_THAT(jobs("qrvCInstall"), LinesAre({installs("HOST1", 7)}));
  EXPECT_THAT(libraryCalls(),
              LinesAre({"qrvGetSystemIPAddress", "qrvCCreateConfigurationFile", "qrvCInstall"}));
}

TEST_F(ChangeInstallEngine, ASecurityThatWasNotConfiguredIsAFaultHere) {
  addComputer("HOST1").installExit = 1167;
  run();
  expectFault("Unknown error.");
}

TEST_F(ChangeInstallEngine, LogsAFailedJobInTheWordsOfItsOwnCatalogue) {
  addComputer("HOST1").installExit = 1180;
  run();
  EXPECT_THAT(deeds(), testing::Contains(logged("HOST1 - " + kTessmark180)));
  expectFault(kTessmark180);
}

TEST_F(ChangeInstallEngine, EndsIn710WhereNoThreadWasStarted) {
  addComputer("HOST1").startsThreads = false;
  run();
  expectFault("Unknown error.");
}

TEST_F(ChangeInstallEngine, EndsIn800WhereTheNameDoesNotResolve) {
  addComputer("HOST1").address.reset();
  run();
  EXPECT_THAT(libraryCalls(), LinesAre({"qrvGetSystemIPAddress"}));
  expectFault("Could not resolve the IP Address for the system.");
}

TEST_F(ChangeInstallEngine, EndsIn801WhereTheSetupFileIsNotWritten) {
  addComputer("HOST1").configurationResult = 0;
  run();
  EXPECT_THAT(jobs("qrvCInstall"), IsEmpty());
  expectFault("Could not create the configuration file on the local system.");
}

TEST_F(ChangeInstallEngine, OnlyAStatusWithBothProductsFailsTheGate) {
  addComputer("HOST1", "TRACKING CHANGES & EVENTS");
  addComputer("HOST2", "Tracking Changes");
  addComputer("HOST3", "Managed - Standard Mode");
  run();
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST1 - Agent already installed"}));
  EXPECT_THAT(statuses(),
              LinesAre({"Skipped: Agent already installed", "Tracking Changes", "Managed - Standard Mode"}));
  EXPECT_THAT(jobs("qrvCInstall"), LinesAre({installs("HOST2", 7), installs("HOST3", 8)}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(ChangeInstallEngine, WithTheOtherProductChosenMeanwhileOnlyBothStatusesFailTheGate) {
  targets.optClient(0).Value.settle(true);
  addComputer("HOST1", "Tracking Changes & Events");
  addComputer("HOST2", "Tracking Changes & Events Managed - Standard Mode");
  run();
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST2 - Agent already installed"}));
}

TEST_F(ChangeInstallEngine, SkipsTheManagersOwnComputerWithoutAWordInTheLog) {
  addRow("manager");
  run();
  EXPECT_THAT(fake.journal,
              LinesAre({"Pointer 13", kResetLog, "Select manager",
                        status("manager", "Skipped: Manager (local system)"), "Progress 99", "Pointer 0"}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(ChangeInstallEngine, SkipsAComputerThatDoesNotRespond) {
  addUnknownComputer("HOST1").answers = false;
  run();
  EXPECT_THAT(deeds(),
              LinesAre({kResetLog, findsSystem("HOST1"), "qrvFindSystemAndReturnDetails HOST1 level 1 -> 0",
                        logged("Skipped: HOST1 - System not responding"),
                        status("HOST1", "Skipped: System not responding")}));
}

TEST_F(ChangeInstallEngine, AnInaccessibleRowDoesNotEvenMoveTheBar) {
  addComputer("HOST1", "Not Accessible, will be skipped.");
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0"}));
}

TEST_F(ChangeInstallEngine, DoesNothingForNoComputers) {
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0"}));
}

TEST_F(ChangeInstallEngine, TwelveComputersEachWithItsOwnOutcome) {
  for (const auto* name : {"HOST01", "HOST02", "HOST03", "HOST04", "HOST05", "HOST06", "HOST07"})
    addComputer(name);
  addRow("MANAGER");
  addUnknownComputer("HOST09").answers = false;
  addComputer("HOST10", "Tracking Changes & Events");
  addComputer("HOST11", "Not Accessible, will be skipped.");
  addComputer("HOST12", "Tracking Changes").installExit = 1290;
  auto& computers = fake.libraries.computers;
  computers["HOST02"].installExit = 1180;
  computers["HOST03"].startsThreads = false;
  computers["HOST04"].address.reset();
  computers["HOST05"].configurationResult = 0;
  computers["HOST06"].installExit = 1232;
  computers["HOST07"].polls = 2;
  run();
  EXPECT_THAT(statuses(), LinesAre({"Unmanaged", kTessmark180, "Unknown error.",
                                    "Could not resolve the IP Address for the system.",
                                    "Could not create the configuration file on the local system.",
                                    kServiceNotStarted, "Unmanaged", "Skipped: Manager (local system)",
                                    "Skipped: System not responding", "Skipped: Agent already installed",
                                    "Not Accessible, will be skipped.", kSnapshotsKept}));
  EXPECT_THAT(log(), LinesAre({"HOST02 - " + kTessmark180, "HOST03 - Unknown error.",
                               "HOST04 - Could not resolve the IP Address for the system.",
                               "HOST05 - Could not create the configuration file on the local system.",
                               "Skipped: HOST09 - System not responding",
                               "Skipped: HOST10 - Agent already installed"}));
  EXPECT_THAT(jobs("qrvCInstall"),
              LinesAre({installs("HOST01", 7), installs("HOST02", 8), installs("HOST03", 0),
                        installs("HOST06", 9), installs("HOST07", 10), installs("HOST12", 11)}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST01|2|C:\T|0|NULL)", R"(HOST06|2|C:\T|0|NULL)",
                                            R"(HOST07|2|C:\T|0|NULL)", R"(HOST12|2|C:\T|0|NULL)"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "Select "), SizeIs(11));
  EXPECT_EQ(targets.pbProgress.Value, 88);
}

class ChangeInstallStops : public ChangeInstallEngine {
 protected:
  ChangeInstallStops() {
    for (const auto* name : {"HOST1", "HOST2", "HOST3"}) addComputer(name);
  }
  void expectJobs(int count) {
    run();
    Lines wanted;
    for (int i = 1; i <= count; ++i) wanted.push_back(installs("HOST" + std::to_string(i), 6 + i));
    EXPECT_THAT(jobs("qrvCInstall"), ElementsAreArray(wanted));
    EXPECT_THAT(inventory.agents(), SizeIs(static_cast<std::size_t>(count)));
  }
};

TEST_F(ChangeInstallStops, DuringTheFirstJobLeaveTheOthersAlone) {
  stopDuring("HOST1");
  expectJobs(1);
}
TEST_F(ChangeInstallStops, DuringAMiddleJobLetItEnd) {
  stopDuring("HOST2");
  expectJobs(2);
}
TEST_F(ChangeInstallStops, DuringTheLastJobChangeNothing) {
  stopDuring("HOST3");
  expectJobs(3);
  EXPECT_EQ(targets.pbProgress.Value, 99);
}

TEST_F(ChangeInstallStops, AnErrorOfACallCostsThatStepAndNotTheBatch) {
  fake.libraries.onJob = [](platform::DeploymentJob& job) {
    if (job.SystemName == "HOST2") throw RuntimeError(kLibraryFunctionMissing, "No function.");
  };
  run();
  EXPECT_THAT(statuses(), LinesAre({"Unmanaged", "Unknown error.", "Unmanaged"}));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_THAT(inventory.agents(), SizeIs(2));
}

TEST_F(ChangeInstallStops, AnInventoryThatFailsCostsItsStepsAndNotTheJobs) {
  inventory.execute("DROP TABLE System_Table");
  inventory.execute("DROP TABLE Module_Table");
  run();
  EXPECT_THAT(jobs("qrvCInstall"), SizeIs(3));
}

TEST_F(ChangeInstallStops, ALogThatCannotBeWrittenIsPassedOver) {
  fake.libraries.computers["HOST1"].installExit = 1180;
  refuseLog();
  run();
  EXPECT_THAT(statuses(), LinesAre({kTessmark180, "Unmanaged", "Unmanaged"}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(ChangeInstallStops, ASecondRunKeepsTheOldLogForgetsTheErrorsAndUpdatesTheRows) {
  fake.libraries.computers["HOST1"].installExit = 1180;
  run();
  fake.libraries.computers["HOST1"].installExit = 1150;
  run();
  EXPECT_FALSE(targets.ErrorsSeen);
  EXPECT_THAT(log(), LinesAre({"HOST1 - " + kTessmark180}));
  EXPECT_THAT(inventory.agents(), SizeIs(3));
}

}  // namespace
}  // namespace varnhold::deployment
