// Many computers in one run of the uninstall engine, stops, errors of the engine itself, and two runs.
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

class UninstallBatch : public EngineTest {
 protected:
  UninstallBatch() : EngineTest(UninstallAgents, 2) {}

  void addThree() {
    for (const auto* name : {"HOST1", "HOST2", "HOST3"}) addAgentless(name);
  }
  /// The computers whose job was started.
  Lines uninstalled() {
    Lines names;
    for (const auto& line : jobs("qrvCUninstall")) names.push_back(line.substr(line.find("HOST"), 5));
    return names;
  }
};

TEST_F(UninstallBatch, TwelveComputersEachWithItsOwnOutcome) {
  addAgentBased("HOST01");
  addAgentless("HOST02");
  addAgentBased("MANAGER");
  addAgentBased("HOST04", kStandard, 101);
  addAgentBased("HOST05", "Unmanaged");
  addAgentBased("HOST06").uninstallExit = 1180;
  addAgentBased("HOST07").uninstallExit = 1196;
  addAgentless("HOST08").uninstallExit = 1196;
  addAgentBased("HOST09").startsThreads = false;
  addAgentBased("HOST10", "Not Accessible, will be skipped.");
  addAgentBased("HOST11", "Managed - High Performance Mode").polls = 1;
  addAgentBased("HOST12", "Tracking Changes & Events");
  logIn();
  ui.nextAnswer(ui::Answer::Yes);
  ui.nextAnswer(ui::Answer::No);
  run();
  const std::string noService = "Agent service does not exist.";
  const std::string notStarted =
      "Unknown error. This may be due to insufficient permission or network problems.";
  EXPECT_THAT(statuses(),
              LinesAre({kUninstalled, kUninstalled, "Skipped: Manager (local system)", kStandard,
                        "Skipped: Either Agent is not installed or it does not belong to this manager",
                        kFailed180, noService + " - Removed from Manager config", noService, notStarted,
                        "Not Accessible, will be skipped.", kUninstalled, kUninstalled}));
  const auto failed = [](const std::string& name, const std::string& words) {
    return "Could not uninstall Varnhold Agent on " + name + " - " + words;
  };
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST05 - Cannot uninstall because either Agent is not installed or "
                               "it does not belong to this manager",
                               failed("HOST06", kFailed180),
                               failed("HOST07", noService + " - Removed from Manager config"),
                               failed("HOST08", noService), failed("HOST09", notStarted)}));
  EXPECT_THAT(inventory.agents(),
              LinesAre({R"(HOST04|1|C:\OLD|0|0)", R"(HOST05|1|C:\OLD|0|0)", R"(HOST06|1|C:\OLD|0|0)",
                        R"(HOST08|1|C:\OLD|0|1)", R"(HOST09|1|C:\OLD|0|0)", R"(HOST10|1|C:\OLD|0|0)",
                        R"(MANAGER|1|C:\OLD|0|0)"}));
  EXPECT_THAT(fake.journal, Contains(kRestart).Times(1));
  EXPECT_THAT(fakes::linesOf(fake.journal, "Select "), SizeIs(11));
  EXPECT_EQ(targets.pbProgress.Value, 88);
}

TEST_F(UninstallBatch, AStopDuringTheFirstJobLeavesTheOthersAlone) {
  addThree();
  stopDuring("HOST1");
  run();
  EXPECT_THAT(uninstalled(), LinesAre({"HOST1"}));
  EXPECT_THAT(statuses(), LinesAre({kUninstalled, kAgentless, kAgentless}));
}

TEST_F(UninstallBatch, AStopDuringAMiddleJobLetsItEndAndConnectsTheNext) {
  for (const auto* name : {"HOST1", "HOST2", "HOST3"}) addAgentBased(name);
  stopDuring("HOST2");
  logIn();
  run();
  EXPECT_THAT(uninstalled(), LinesAre({"HOST1", "HOST2"}));
  EXPECT_THAT(statuses(), LinesAre({kUninstalled, kUninstalled, kStandard}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "createNew"), SizeIs(10)) << "the third stays connected";
}

TEST_F(UninstallBatch, AStopDuringTheLastJobStillRestartsTheManagersAgent) {
  addThree();
  stopDuring("HOST3");
  run();
  EXPECT_THAT(statuses(), Each(kUninstalled));
  EXPECT_EQ(fake.journal.at(fake.journal.size() - 2), kRestart);
}

TEST_F(UninstallBatch, AnErrorInTheMiddleEndsTheRunWithItsDescription) {
  addThree();
  fake.libraries.onJob = [this](platform::DeploymentJob& job) {
    EXPECT_TRUE(targets.RunBusy);
    if (job.SystemName.ends_with("HOST2")) throw RuntimeError(kLibraryFunctionMissing, "No such function.");
  };
  run();
  EXPECT_THAT(statuses(), LinesAre({kUninstalled, kAgentless, kAgentless}));
  EXPECT_EQ(fake.journal.at(fake.journal.size() - 2), "Pointer 0");
  EXPECT_EQ(fake.journal.back(), "MessageBox plain: No such function.");
  EXPECT_THAT(libraryCalls(), Each("qrvCUninstall")) << "no restart either";
}

TEST_F(UninstallBatch, AComputerThatTheInventoryDoesNotKnowEndsTheRun) {
  addAgentless("HOST1");
  inventory.addAgent("HOST2", 1, 1);
  addUnknownComputer("HOST2", kAgentless);
  addAgentless("HOST3");
  run();
  EXPECT_THAT(uninstalled(), LinesAre({"HOST1"}));
  EXPECT_THAT(boxes(), SizeIs(1));
  EXPECT_THAT(statuses(), LinesAre({kUninstalled, kAgentless, kAgentless}));
}

TEST_F(UninstallBatch, ALogThatCannotBeWrittenEndsTheRun) {
  addThree();
  fake.libraries.computers["HOST1"].uninstallExit = 1180;
  refuseLog();
  run();
  EXPECT_THAT(uninstalled(), LinesAre({"HOST1"}));
  EXPECT_THAT(boxes(), SizeIs(1));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(UninstallBatch, ALogThatCannotBeDeletedEndsTheRunBeforeItsFirstComputer) {
  addThree();
  fake.files.makeFolder(R"(C:\VARNHOLD\AILog.txt)");
  run();
  EXPECT_THAT(libraryCalls(), IsEmpty());
  EXPECT_THAT(boxes(), SizeIs(1));
}

TEST_F(UninstallBatch, TheAnswersOfTheFirstRunStayForTheSecond) {
  addAgentBased("HOST1").uninstallExit = 1180;
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({kFailed180}));
  EXPECT_TRUE(targets.ErrorsSeen);

  targets.lvSystems.ListItems(1).SubItems(kStatusSubItem) = kStandard;
  fake.libraries.computers["HOST1"].uninstallExit = 1152;
  refuseLogin();
  run();
  // The refusal emptied the account, but a login was accepted once: no shares, and no skip.
  EXPECT_THAT(fakes::linesOf(fake.journal, "createNew"), IsEmpty());
  EXPECT_THAT(statuses(), LinesAre({kUninstalled}));
  EXPECT_THAT(log(), LinesAre({"Could not uninstall Varnhold Agent on HOST1 - " + kFailed180}));
  EXPECT_TRUE(targets.ErrorsSeen) << "only the wizard's load and the installs clear it";
}

TEST_F(UninstallBatch, ASecondRunRestartsNothingForTheFirst) {
  addAgentless("HOST1");
  run();
  targets.lvSystems.ListItems.Clear();
  addAgentBased("HOST2");
  logIn();
  run();
  EXPECT_THAT(libraryCalls(), LinesAre({"qrvCUninstall"}));
}

}  // namespace
}  // namespace varnhold::deployment
