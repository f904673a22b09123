// Many computers in one run of the install engine: what one leaves to the next, stops, and errors of the
// engine itself.
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Each;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kInstalled = "Installed successfully";

class InstallBatch : public EngineTest {
 protected:
  InstallBatch() : EngineTest(InstallAgents, 1) {}

  void addTwelve() {
    addComputer("HOST01");
    addRow("MANAGER");
    addUnknownComputer("HOST03");
    addComputer("HOST04", "Managed - Agentless Mode");
    addUnknownComputer("HOST05").answers = false;
    addComputer("HOST06").address.reset();
    addComputer("HOST07").startsThreads = false;
    addComputer("HOST08").installExit = 1167;
    addComputer("HOST09", "Not Accessible, will be skipped.");
    addComputer("HOST10").installExit = 1180;
    addComputer("HOST11", "Managed - High Performance Mode").polls = 2;
    addComputer("HOST12").configurationResult = 0;
  }
  void addThree() {
    for (const auto* name : {"HOST1", "HOST2", "HOST3"}) addComputer(name);
  }
  static Lines agentBased(const std::string& name) {
    return {"qrvFindSystemAndReturnDetails " + name, "qrvGetSystemIPAddress " + name,
            "qrvCReadNWriteVhaConfigINI4Turbo", "qrvCCreateConfigurationFile " + name, "qrvCInstall " + name};
  }
  /// The calls of the library with the computer that each is about.
  Lines calls() {
    Lines lines;
    for (const auto& line : fakes::linesOf(fake.journal, "qrv")) {
      const auto at = std::min(line.find("HOST"), line.size());
      const auto name = line.substr(at, line.find_first_of(" ,]", at) - at);
      lines.push_back(line.substr(0, line.find(' ')) + (name.empty() ? "" : " " + name));
    }
    return lines;
  }
};

TEST_F(InstallBatch, TwelveComputersEachWithItsOwnOutcome) {
  addTwelve();
  run();
  EXPECT_THAT(
      statuses(),
      LinesAre({kInstalled, "Skipped: Manager (local system)", kInstalled,
                "Skipped: Cannot implement both agent based and agent less simultaneously",
                "Skipped: System not responding", "Could not resolve the IP Address for the system.",
                kNotStarted, kInstalled + " - Failed to configure security. Please apply security settings.",
                "Not Accessible, will be skipped.", kFailed180, kInstalled,
                "Could not create the configuration file on the local system."}));
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST05 - System not responding",
                               "HOST06 - Could not resolve the IP Address for the system.",
                               "HOST07 - " + kNotStarted, "HOST10 - " + kFailed180,
                               "HOST12 - Could not create the configuration file on the local system."}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST01|1|C:\A|0|0)", R"(HOST03|1|C:\A|0|0)",
                                            R"(HOST08|1|C:\A|0|0)", R"(HOST11|1|C:\A|0|0)"}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(InstallBatch, TwelveComputersInTheirOrderOneAtATime) {
  addTwelve();
  run();
  auto unresponding = Lines{"qrvFindSystemAndReturnDetails HOST05", "qrvFindSystemAndReturnDetails HOST05"};
  auto found = agentBased("HOST03");
  found.insert(found.begin() + 1,
               {"qrvFindSystemAndReturnDetails HOST03", "qrvUpdateSystemDetailsInDB HOST03"});
  auto unwritten = agentBased("HOST12");
  unwritten.pop_back();
  EXPECT_THAT(calls(), ElementsAreArray(
                           together({agentBased("HOST01"),
                                     found,
                                     unresponding,
                                     {"qrvFindSystemAndReturnDetails HOST06", "qrvGetSystemIPAddress HOST06"},
                                     agentBased("HOST07"),
                                     agentBased("HOST08"),
                                     agentBased("HOST10"),
                                     agentBased("HOST11"),
                                     unwritten})));
}

TEST_F(InstallBatch, TwelveComputersMoveTheBarByEightEach) {
  addTwelve();
  run();
  EXPECT_THAT(fakes::linesOf(fake.journal, "Progress "),
              LinesAre({"Progress 8", "Progress 16", "Progress 24", "Progress 32", "Progress 40",
                        "Progress 48", "Progress 56", "Progress 64", "Progress 72", "Progress 80",
                        "Progress 81", "Progress 82", "Progress 88", "Progress 96"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "Select "), SizeIs(12));
}

TEST_F(InstallBatch, AStopDuringTheFirstJobLeavesTheOthersAlone) {
  addThree();
  stopDuring("HOST1");
  run();
  EXPECT_THAT(calls(), ElementsAreArray(agentBased("HOST1")));
  EXPECT_THAT(statuses(), LinesAre({kInstalled, "Unmanaged", "Unmanaged"}));
}

TEST_F(InstallBatch, AStopDuringAMiddleJobLetsItEnd) {
  addThree();
  stopDuring("HOST2");
  run();
  EXPECT_THAT(calls(), ElementsAreArray(together({agentBased("HOST1"), agentBased("HOST2")})));
  EXPECT_THAT(statuses(), LinesAre({kInstalled, kInstalled, "Unmanaged"}));
  EXPECT_THAT(inventory.agents(), SizeIs(2));
}

TEST_F(InstallBatch, AStopDuringTheLastJobChangesNothing) {
  addThree();
  stopDuring("HOST3");
  run();
  EXPECT_THAT(statuses(), Each(kInstalled));
  EXPECT_EQ(targets.pbProgress.Value, 99);
}

TEST_F(InstallBatch, AStopBeforeTheFirstComputerStartsNothing) {
  addThree();
  targets.StopRequested = true;
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0"}));
}

TEST_F(InstallBatch, AnErrorOfACallCostsThatStepAndNotTheBatch) {
  addThree();
  raiseFrom("qrvFindSystemAndReturnDetails");
  run();
  EXPECT_THAT(statuses(), Each(kInstalled));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(InstallBatch, AJobThatCannotBeStartedForAnErrorEndsIn710) {
  addThree();
  fake.libraries.onJob = [this](platform::DeploymentJob& job) {
    if (job.SystemName == "HOST2") throw RuntimeError(kLibraryFunctionMissing, "No function.");
  };
  run();
  EXPECT_THAT(statuses(), LinesAre({kInstalled, kNotStarted, kInstalled}));
  EXPECT_THAT(log(), LinesAre({"HOST2 - " + kNotStarted}));
}

TEST_F(InstallBatch, AnAddressThatCannotBeAskedForIsNone) {
  addComputer("HOST1");
  raiseFrom("qrvGetSystemIPAddress");
  run();
  EXPECT_THAT(statuses(), LinesAre({"Could not resolve the IP Address for the system."}));
}

TEST_F(InstallBatch, APreparationThatRaisesEndsIn710) {
  addComputer("HOST1");
  raiseFrom("qrvCCreateConfigurationFile");
  run();
  EXPECT_THAT(jobs("qrvCInstall"), IsEmpty());
  EXPECT_THAT(statuses(), LinesAre({kNotStarted}));
}

TEST_F(InstallBatch, ALookUpThatFailsCostsTheRegistrationAndTheRecordButNotTheJob) {
  addThree();
  inventory.execute("DROP TABLE System_Table");
  inventory.execute("DROP TABLE Module_Table");
  run();
  EXPECT_THAT(jobs("qrvCInstall"), SizeIs(3));
  EXPECT_THAT(statuses(), Each(kInstalled));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(InstallBatch, ALogThatCannotBeWrittenIsPassedOver) {
  addThree();
  fake.libraries.computers["HOST1"].installExit = 1180;
  refuseLog();
  run();
  EXPECT_THAT(statuses(), LinesAre({kFailed180, kInstalled, kInstalled}));
  EXPECT_TRUE(targets.ErrorsSeen);
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(InstallBatch, ALogThatCannotBeDeletedIsPassedOver) {
  addThree();
  fake.files.makeFolder(R"(C:\VARNHOLD\AILog.txt)");
  run();
  EXPECT_THAT(statuses(), Each(kInstalled));
}

TEST_F(InstallBatch, ARowThatGoesAwayCostsItselfAndNotTheRun) {
  addThree();
  fake.libraries.onJob = [this](platform::DeploymentJob& job) {
    if (job.SystemName == "HOST2") targets.lvSystems.ListItems.Remove(3);
  };
  run();
  EXPECT_THAT(statuses(), LinesAre({kInstalled, kInstalled}));
}

TEST_F(InstallBatch, ASecondRunKeepsTheOldLogAndForgetsTheErrors) {
  addComputer("HOST1").installExit = 1180;
  run();
  EXPECT_TRUE(targets.ErrorsSeen);
  fake.libraries.computers["HOST1"].installExit = 1150;
  fake.files.put(R"(C:\VARNHOLD\AILog.txt)", "viewed");
  run();
  EXPECT_FALSE(targets.ErrorsSeen);
  // Deleted in the program's folder, written in the installer's.
  EXPECT_EQ(fake.files.content(R"(C:\VARNHOLD\AILog.txt)"), std::nullopt);
  EXPECT_THAT(log(), LinesAre({"HOST1 - " + kFailed180}));
}

TEST_F(InstallBatch, ASecondRunTakesNothingFromTheRecordOfTheFirst) {
  addComputer("HOST1").osMajorVersion = 6;
  targets.optConfig(1).Value.settle(true);
  targets.txtTemplate.Text = R"(C:\own.ini)";
  run();
  fake.libraries.computers["HOST1"].answers = false;
  targets.optConfig(1).Value.settle(false);
  run();
  EXPECT_THAT(
      jobs("qrvCInstall"),
      LinesAre({R"(qrvCInstall [SystemName=HOST1, InstallDirectory=C:\A, AgentKind=2, AgentMode=1] )" +
                kRemins + " -> 8"}));
}

}  // namespace
}  // namespace varnhold::deployment
