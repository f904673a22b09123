// The upgrade through the running agents.
#include "core/registry_values.h"
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kNoInstallPath =
    "RegQueryValueEx " + std::string(core::kAgentKey) + R"(\InstallPath -> KeyMissing)";
const std::string kInstallPath =
    "RegQueryValueEx " + std::string(core::kAgentKey) + R"(\InstallPath -> Done)";
const std::string kVhagent = R"(C:\VARNHOLD\RemoteInstaller\remins\vhagent)";

class OverIPUpgradeEngine : public EngineTest {
 protected:
  OverIPUpgradeEngine() : EngineTest(UpgradeAgentsOverIP, 3) {
    targets.optWinDom.Value.settle(false);
    targets.optOverIP.Value.settle(true);
  }

  fakes::FakeComputer& addAgent(const std::string& name, const std::string& status = kStandard) {
    inventory.addAgent(name, 1);
    auto& computer = addComputer(name, status);
    computer.upgradeExit = 4000;
    return computer;
  }
  static std::string configures(int mode, int result = 1) {
    return "qrvCCreateConfigurationFile " + kRemins + R"( MANAGER C:\VARNHOLD\RemoteInstaller )" +
           std::to_string(mode) + " -> " + std::to_string(result);
  }
  static std::string upgrades(const std::string& name, const std::string& fields, int thread) {
    return "qrvCUpgradeAgentOverIP [SystemName=" + name + fields + "] " + kVhagent + " -> " +
           std::to_string(thread);
  }
  static std::string checks(const std::string& name, int thread) {
    return "qrvCVHCheckVersion " + kVhagent + " " + name + " -> " + std::to_string(thread);
  }
  static Lines ends(int thread, int code) {
    return {"GetExitCodeThread " + std::to_string(thread) + " -> " + std::to_string(code),
            "CloseHandle " + std::to_string(thread)};
  }
  /// The rounds of the version check, without the screen.
  Lines rounds() {
    Lines lines;
    for (const auto& line : fake.journal) {
      if (line == "Sleep 5000" || line.starts_with("qrvCVHCheckVersion")) lines.push_back(line);
    }
    return lines;
  }
};

TEST_F(OverIPUpgradeEngine, UpgradesAComputerStepByStepAndChecksItsVersion) {
  addAgent("HOST1");
  run();
  EXPECT_THAT(fake.journal,
              ElementsAreArray(
                  together({{"Pointer 13", kResetLog, configures(1), "Select HOST1", findsSystem("HOST1"),
                             asksIfAgentless("HOST1"), "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1",
                             kNoInstallPath, upgrades("HOST1", ", AgentMode=1, UseDefaultConfig=1", 7)},
                            ends(7, 4000),
                            {kNoInstallPath, "Sleep 5000", checks("HOST1", 8)},
                            ends(8, 4000),
                            {status("HOST1", kUpgraded), "Progress 99", "Pointer 0"}})));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(OverIPUpgradeEngine, HandlesEventsBetweenItsSteps) {
  addAgent("HOST1");
  watchPumps();
  run();
  EXPECT_THAT(fakes::linesWithout(fake.journal, {"SQL", "GetExit", "Close", "Reg"}),
              LinesAre({"Pointer 13", kResetLog, "pump", configures(1), "pump", "Select HOST1", "pump",
                        "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1", "pump",
                        upgrades("HOST1", ", AgentMode=1, UseDefaultConfig=1", 7), "Sleep 5000",
                        checks("HOST1", 8), status("HOST1", kUpgraded), "Progress 99", "pump", "Pointer 0"}));
}

TEST_F(OverIPUpgradeEngine, TakesTheLibraryOfTheAgentOnThisComputer) {
  fake.registry.setText(core::kAgentKey, "InstallPath", R"(D:\Agent)");
  addAgent("HOST1");
  run();
  EXPECT_THAT(jobs("qrvCUpgradeAgentOverIP"), ElementsAre(HasSubstr(R"(] D:\Agent\vhagent -> 7)")));
  EXPECT_THAT(jobs("qrvCVHCheckVersion"), LinesAre({R"(qrvCVHCheckVersion D:\Agent\vhagent HOST1 -> 8)"}));
  EXPECT_THAT(fake.journal, Contains(kInstallPath).Times(2));
}

TEST_F(OverIPUpgradeEngine, HighPerformanceReachesTheJobAndNotTheIniFile) {
  addAgent("HOST1");
  targets.chkHPMode.Value.settle(1);
  run();
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCCreate"), LinesAre({configures(5)}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCReadNWrite"), IsEmpty());
  EXPECT_THAT(jobs("qrvCUpgradeAgentOverIP"),
              LinesAre({upgrades("HOST1", ", AgentMode=5, UseDefaultConfig=1", 7)}));
}

TEST_F(OverIPUpgradeEngine, GivesTheJobTheConfigurationTheScriptsAndTheVersion) {
  addAgent("HOST1").osMajorVersion = 6;
  targets.optConfig(1).Value.settle(true);
  targets.txtTemplate.Text = R"(C:\own.ini)";
  targets.chkUpgradeRemedialActionScripts.Value.settle(1);
  run();
  EXPECT_THAT(
      jobs("qrvCUpgradeAgentOverIP"),
      LinesAre({upgrades("HOST1", R"(, ConfigFile=C:\own.ini, OSFlag=6, AgentMode=1, RemedialFlag=1)", 7)}));
}

TEST_F(OverIPUpgradeEngine, WithoutTheSetupFileTouchesNoComputer) {
  addAgent("HOST1");
  fake.libraries.computers["MANAGER"].configurationResult = 0;
  run();
  EXPECT_THAT(fake.journal,
              LinesAre({"Pointer 13", kResetLog, configures(1, 0),
                        "MessageBox information: Failed to create 'vhsetup.ins' file.", "Pointer 0"}));
  EXPECT_THAT(statuses(), LinesAre({kStandard}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(OverIPUpgradeEngine, WritesTheSetupFileForNoComputersToo) {
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, configures(1), "Pointer 0"}));
}

TEST_F(OverIPUpgradeEngine, ShowsTheRun) {
  targets.freMain.Visible = targets.pbProgress.Visible = false;
  addAgent("HOST1");
  run();
  EXPECT_TRUE(targets.freMain.Visible && targets.pbProgress.Visible);
}

TEST_F(OverIPUpgradeEngine, LogsAFailedJobAndDoesNotCheck) {
  addAgent("HOST1").upgradeExit = 1000 + 3025;
  run();
  const std::string words = "Upgrade failed. Agent upgradation failed. This may be due to network problems.";
  EXPECT_THAT(rounds(), IsEmpty());
  EXPECT_THAT(deeds().back(), status("HOST1", words));
  EXPECT_THAT(log(), LinesAre({"HOST1 - " + words}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(OverIPUpgradeEngine, AnUpgradeOverTheDomainsSuccessIsAFaultHere) {
  addAgent("HOST1").upgradeExit = 1700;
  run();
  EXPECT_THAT(statuses(), LinesAre({"Upgrade failed. Unknown error."}));
}

TEST_F(OverIPUpgradeEngine, EndsIn710WhereNoThreadWasStarted) {
  addAgent("HOST1").startsThreads = false;
  run();
  EXPECT_THAT(statuses(), LinesAre({"Upgrade failed. " + kNotStarted}));
}

TEST_F(OverIPUpgradeEngine, ChecksUntilTheAgentIsBack) {
  addAgent("HOST1").versionExits = {4001, fakes::FakeComputer::kNoThread, 4000};
  run();
  EXPECT_THAT(rounds(), LinesAre({"Sleep 5000", checks("HOST1", 8), "Sleep 5000", checks("HOST1", 0),
                                  "Sleep 5000", checks("HOST1", 9)}));
  EXPECT_THAT(statuses(), LinesAre({kUpgraded}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(OverIPUpgradeEngine, TakesTheSixthRoundForTheLast) {
  addAgent("HOST1").versionExits = {4001, 4001, 4001, 4001, 4001, 4000};
  run();
  EXPECT_THAT(rounds(), SizeIs(12));
  EXPECT_THAT(statuses(), LinesAre({kUpgraded}));
}

TEST_F(OverIPUpgradeEngine, GivesUpAfterSixRoundsInTheWordsOfTheLast) {
  addAgent("HOST1").versionExits = {4001, 4001, 4001, 4001, 4001, 4002, 4000};
  run();
  EXPECT_THAT(rounds(), SizeIs(12));
  EXPECT_THAT(statuses(), LinesAre({"Failed to check version. Insufficient buffer."}));
  EXPECT_THAT(log(), LinesAre({"HOST1 - Failed to check version. Insufficient buffer."}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(OverIPUpgradeEngine, AChecksMissingThreadIs710) {
  addAgent("HOST1").versionExits = {fakes::FakeComputer::kNoThread};
  run();
  EXPECT_THAT(rounds(), SizeIs(12));
  EXPECT_THAT(statuses(), LinesAre({"Failed to check version. " + kNotStarted}));
}

TEST_F(OverIPUpgradeEngine, EachComputerHasItsOwnSixRounds) {
  addAgent("HOST1").versionExits = {4001};
  addAgent("HOST2").versionExits = {4001, 4001, 4000};
  run();
  EXPECT_THAT(rounds(), SizeIs(18));
  EXPECT_THAT(statuses(), LinesAre({"Failed to check version. General error.", kUpgraded}));
}

TEST_F(OverIPUpgradeEngine, OnlyTheAgentsOfItsProductPassTheGate) {
  chooseTessmark();
  addAgent("HOST1", "Tracking Changes");
  addAgent("HOST2", kStandard);
  addAgent("HOST3", "Tracking Changes & Events");
  run();
  EXPECT_THAT(statuses(),
              LinesAre({"Skipped: Agent not installed", "Skipped: Agent not installed", kUpgraded}));
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST1 - Cannot upgrade because Agent is not installed",
                               "Skipped: HOST2 - Cannot upgrade because Agent is not installed"}));
}

TEST_F(OverIPUpgradeEngine, AnInaccessibleRowIsNoneHere) {
  addAgent("HOST1", "Not Accessible, will be skipped. Managed - Standard Mode");
  run();
  EXPECT_THAT(statuses(), LinesAre({kUpgraded}));
}

TEST_F(OverIPUpgradeEngine, ForAgentlessLooksAtTheLogButAsksForNoLogin) {
  chooseAgentless();
  addAgent("HOST1");
  addAgent("HOST2");
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  fake.eventLog.messages[5] = "Access is denied.\r\n";
  targets.frePath.Visible = targets.cmdInstall.Enabled = targets.cmdAdvanced.Enabled = true;
  run();
  EXPECT_THAT(statuses(), LinesAre({"Skipped: Access is denied.", kUpgraded}));
  EXPECT_THAT(log(), LinesAre({"Skipped: HOST1 - Access is denied."}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCCreate"), LinesAre({configures(0)}));
  EXPECT_THAT(jobs("qrvCUpgradeAgentOverIP"), LinesAre({upgrades("HOST2", ", UseDefaultConfig=1", 7)}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "createNew"), IsEmpty());
  EXPECT_FALSE(targets.frePath.Visible || targets.cmdInstall.Enabled || targets.cmdAdvanced.Enabled);
}

}  // namespace
}  // namespace varnhold::deployment
