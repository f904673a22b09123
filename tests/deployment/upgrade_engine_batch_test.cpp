// Many computers in one run of either upgrade, stops, errors of the engine itself, and two runs.
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

/// The two upgrades, and what differs between them.
struct UpgradeKind {
  const char* name;
  void (*engine)(core::Program&, frmTargets&);
  bool overIP;
  std::uint32_t successExit;
  const char* function;
  const char* failure;  ///< before the catalogue's words
};
const UpgradeKind kKinds[] = {
    {"OverTheDomain", UpgradeAgents, false, 1700, "qrvCUpgradeAgent", ""},
    {"OverIP", UpgradeAgentsOverIP, true, 4000, "qrvCUpgradeAgentOverIP", "Upgrade failed. "},
};

class UpgradeBatch : public EngineTest, public testing::WithParamInterface<UpgradeKind> {
 protected:
  UpgradeBatch() : EngineTest(GetParam().engine, 3) {
    targets.optWinDom.Value.settle(!GetParam().overIP);
    targets.optOverIP.Value.settle(GetParam().overIP);
  }

  fakes::FakeComputer& addAgent(const std::string& name, const std::string& status = kStandard,
                                int type = 7) {
    inventory.addAgent(name, 1);
    auto& computer = addComputer(name, status, type);
    computer.upgradeExit = GetParam().successExit;
    return computer;
  }
  void addThree() {
    for (const auto* name : {"HOST1", "HOST2", "HOST3"}) addAgent(name);
  }
  /// The computers whose job was started.
  Lines upgraded() {
    Lines names;
    for (const auto& line : jobs(GetParam().function)) {
      const auto at = line.find("HOST");
      names.push_back(line.substr(at, line.find_first_of(",]", at) - at));
    }
    return names;
  }
};

INSTANTIATE_TEST_SUITE_P(Upgrades, UpgradeBatch, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return kind.param.name; });

TEST_P(UpgradeBatch, TwelveComputersEachWithItsOwnOutcome) {
  addAgent("HOST01");
  addAgent("MANAGER");
  inventory.addAgent("HOST03", 1, 1);
  addComputer("HOST03", "Managed - Agentless Mode");
  addComputer("HOST04");
  addAgent("HOST05").upgradeExit = 1180;
  addAgent("HOST06").startsThreads = false;
  addAgent("HOST07", kStandard, 0);
  addAgent("HOST08", kStandard, 0);
  addAgent("HOST09", kStandard, 101);
  addAgent("HOST10", kStandard, 301);
  addAgent("HOST11", "Managed - High Performance Mode").polls = 2;
  addAgent("HOST12", "Tracking Changes & Events");
  for (const auto answer : {ui::Answer::No, ui::Answer::Yes, ui::Answer::Yes}) ui.nextAnswer(answer);
  run();
  const std::string failure = GetParam().failure;
  const auto failed180 =
      failure + "Failed to create service. This may be due to insufficient permission or network problems.";
  const auto notStarted =
      failure + "Unknown error. This may be due to insufficient permission or network problems.";
  EXPECT_THAT(statuses(), LinesAre({kUpgraded, "Skipped: Manager (local system)",
                                    "Skipped: No need to upgrade agent less agents",
                                    "Skipped: Agent not installed", failed180, notStarted, kStandard,
                                    kUpgraded, kStandard, kStandard, kUpgraded, kUpgraded}));
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST04 - Cannot upgrade because Agent is not installed",
                               "HOST05 - " + failed180, "HOST06 - " + notStarted}));
  EXPECT_THAT(upgraded(), LinesAre({"HOST01", "HOST05", "HOST06", "HOST08", "HOST11", "HOST12"}));
  EXPECT_THAT(changes(), IsEmpty());
  EXPECT_THAT(fakes::linesOf(fake.journal, "Select "), SizeIs(12));
  EXPECT_EQ(targets.pbProgress.Value, 96);
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_P(UpgradeBatch, AStopDuringTheFirstJobLeavesTheOthersAlone) {
  addThree();
  stopDuring("HOST1");
  run();
  EXPECT_THAT(upgraded(), LinesAre({"HOST1"}));
  EXPECT_THAT(statuses(), LinesAre({kUpgraded, kStandard, kStandard}));
}

TEST_P(UpgradeBatch, AStopDuringAMiddleJobLetsItEnd) {
  addThree();
  stopDuring("HOST2");
  run();
  EXPECT_THAT(upgraded(), LinesAre({"HOST1", "HOST2"}));
  EXPECT_THAT(statuses(), LinesAre({kUpgraded, kUpgraded, kStandard}));
}

TEST_P(UpgradeBatch, AStopDuringTheLastJobChangesNothing) {
  addThree();
  stopDuring("HOST3");
  run();
  EXPECT_THAT(statuses(), Each(kUpgraded));
  EXPECT_EQ(targets.pbProgress.Value, 99);
}

TEST_P(UpgradeBatch, AnErrorInTheMiddleEndsTheRunWithItsDescription) {
  addThree();
  fake.libraries.onJob = [this](platform::DeploymentJob& job) {
    EXPECT_TRUE(targets.RunBusy);
    if (job.SystemName.ends_with("HOST2")) throw RuntimeError(kLibraryFunctionMissing, "No such function.");
  };
  run();
  EXPECT_THAT(statuses(), LinesAre({kUpgraded, kStandard, kStandard}));
  EXPECT_EQ(fake.journal.at(fake.journal.size() - 2), "Pointer 0");
  EXPECT_EQ(fake.journal.back(), "MessageBox plain: No such function.");
}

TEST_P(UpgradeBatch, AComputerThatTheInventoryDoesNotKnowEndsTheRun) {
  addAgent("HOST1");
  addUnknownComputer("HOST2", kStandard);
  addAgent("HOST3");
  run();
  EXPECT_THAT(upgraded(), LinesAre({"HOST1"}));
  EXPECT_THAT(boxes(), SizeIs(1));
}

TEST_P(UpgradeBatch, ALogThatCannotBeWrittenEndsTheRunBeforeTheStatusIsSet) {
  addThree();
  fake.libraries.computers["HOST1"].upgradeExit = 1180;
  refuseLog();
  run();
  EXPECT_THAT(statuses(), Each(kStandard));
  EXPECT_THAT(upgraded(), LinesAre({"HOST1"}));
  EXPECT_THAT(boxes(), SizeIs(1));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_P(UpgradeBatch, ALogThatCannotBeDeletedEndsTheRunBeforeItsFirstComputer) {
  addThree();
  fake.files.makeFolder(R"(C:\VARNHOLD\AILog.txt)");
  run();
  EXPECT_THAT(libraryCalls(), IsEmpty());
  EXPECT_THAT(boxes(), SizeIs(1));
}

TEST_P(UpgradeBatch, AComputerThatDoesNotAnswerKeepsTheVersionOfTheOneBeforeInOneRunOnly) {
  addAgent("HOST1").osMajorVersion = 6;
  addAgent("HOST2").answers = false;
  const auto flags = [this] { return jobs(GetParam().function); };
  run();
  EXPECT_THAT(flags(), Each(testing::HasSubstr("OSFlag=6")));
  fake.libraries.computers["HOST1"].answers = false;
  for (auto& row : targets.lvSystems.ListItems) row.SubItems(kStatusSubItem) = kStandard;
  run();
  EXPECT_THAT(flags(), testing::AllOf(SizeIs(2), Each(testing::Not(testing::HasSubstr("OSFlag")))));
}

TEST_P(UpgradeBatch, ASecondRunKeepsTheOldLogAndTheErrors) {
  addAgent("HOST1").upgradeExit = 1180;
  run();
  const auto first = log();
  fake.libraries.computers["HOST1"].upgradeExit = GetParam().successExit;
  targets.lvSystems.ListItems(1).SubItems(kStatusSubItem) = kStandard;
  run();
  EXPECT_THAT(statuses(), LinesAre({kUpgraded}));
  EXPECT_EQ(log(), first);
  EXPECT_TRUE(targets.ErrorsSeen) << "only the wizard's load and the installs clear it";
}

}  // namespace
}  // namespace varnhold::deployment
