// The uninstall of either agent.
#include "tests/deployment/engine_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

const std::string kNoServiceQuestion =
    "MessageBox question: Agent service on 'HOST1' does not exist. Do you want to remove it from Manager "
    "config anyway?";
const std::string kNotInstalled =
    "Skipped: Either Agent is not installed or it does not belong to this manager";

class UninstallEngine : public EngineTest {
 protected:
  UninstallEngine() : EngineTest(UninstallAgents, 2) {}

  static std::string uninstalls(const std::string& name, int thread, const std::string& kind = "") {
    return R"(qrvCUninstall [SystemName=\\)" + name + ", KeepSnapshots=0" + kind + "] " + kRemins + " -> " +
           std::to_string(thread);
  }
  static std::string forgets(const std::string& name) {
    return "SQL: DELETE FROM Module_Table WHERE System_Name = '" + name +
           "' AND (Module_ID = 1 OR Module_ID = 5 )";
  }
  static Lines ends(int thread) {
    return {"GetExitCodeThread " + std::to_string(thread) + " -> 1152",
            "CloseHandle " + std::to_string(thread)};
  }
};

TEST_F(UninstallEngine, TakesAnAgentOffStepByStep) {
  addAgentBased("HOST1");
  logIn();
  run();
  EXPECT_THAT(fake.journal,
              ElementsAreArray(together(
                  {{"Pointer 13", kResetLog, asksIfAgentless("HOST1"), "Show modal frmLogin",
                    "Close frmLogin", asksIfAgentless("HOST1")},
                   connects("HOST1"),
                   {"Select HOST1", findsSystem("HOST1"), asksIfAgentless("HOST1"), uninstalls("HOST1", 7)},
                   ends(7),
                   {forgets("HOST1"), status("HOST1", kUninstalled), "Progress 99", asksIfAgentless("HOST1")},
                   disconnects("HOST1"),
                   {"Pointer 0"}})));
  EXPECT_THAT(inventory.agents(), IsEmpty());
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(UninstallEngine, DropsAnAgentlessComputerWithoutALoginAndRestartsTheManagersAgent) {
  addAgentless("HOST1");
  run();
  // The row is gone when the shares are looked at: it passes as one with an agent, and no account is there.
  EXPECT_THAT(fake.journal,
              ElementsAreArray(together({{"Pointer 13", kResetLog, asksIfAgentless("HOST1"),
                                          asksIfAgentless("HOST1"), "Select HOST1", findsSystem("HOST1"),
                                          asksIfAgentless("HOST1"), uninstalls("HOST1", 7, ", AgentKind=1")},
                                         ends(7),
                                         {forgets("HOST1"), status("HOST1", kUninstalled), "Progress 99",
                                          asksIfAgentless("HOST1"), kRestart, "Pointer 0"}})));
}

TEST_F(UninstallEngine, HandlesEventsBetweenItsSteps) {
  addAgentless("HOST1");
  watchPumps();
  run();
  EXPECT_THAT(fakes::linesWithout(fake.journal, {"SQL", "GetExit", "Close"}),
              LinesAre({"Pointer 13", kResetLog, "pump", "pump", "pump", "Select HOST1",
                        uninstalls("HOST1", 7, ", AgentKind=1"), status("HOST1", kUninstalled), "Progress 99",
                        "pump", kRestart, "Pointer 0"}));
}

TEST_F(UninstallEngine, ShowsTheBar) {
  targets.pbProgress.Visible = false;
  addAgentless("HOST1");
  run();
  EXPECT_TRUE(targets.pbProgress.Visible);
}

TEST_F(UninstallEngine, SaysThatTheManagersAgentWasNotRestarted) {
  addAgentless("HOST1");
  fake.libraries.computers["MANAGER"].restartsServices = false;
  run();
  EXPECT_THAT(boxes(), LinesAre({kRestartFailed}));
}

TEST_F(UninstallEngine, RestartsAlsoWhereTheAgentlessJobFailed) {
  addAgentless("HOST1").uninstallExit = 1180;
  run();
  EXPECT_THAT(libraryCalls(), LinesAre({"qrvCUninstall", "qrvRestartService"}));
}

TEST_F(UninstallEngine, AListOfAgentlessComputersAsksForNoLogin) {
  addAgentless("HOST1");
  addAgentless("HOST2");
  run();
  EXPECT_THAT(statuses(), Each(kUninstalled));
  EXPECT_THAT(fakes::linesOf(fake.journal, "createNew"), IsEmpty());
}

TEST_F(UninstallEngine, AnAgentlessFirstRowLeavesTheOthersWithoutALogin) {
  addAgentless("HOST1");
  addAgentBased("HOST2");
  addAgentless("HOST3");
  run();
  EXPECT_THAT(statuses(), LinesAre({kUninstalled, kInaccessible, kUninstalled}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "createNew"), IsEmpty());
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(UninstallEngine, ARefusedLoginSkipsAgentsAndTakesAgentlessRows) {
  addAgentBased("HOST1");
  addAgentless("HOST2");
  addAgentBased("HOST3");
  refuseLogin();
  run();
  EXPECT_THAT(statuses(), LinesAre({kInaccessible, kUninstalled, kInaccessible}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "Select "), LinesAre({"Select HOST2"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "Progress "), LinesAre({"Progress 33"}));
}

TEST_F(UninstallEngine, NeverTouchesWhatIsNoWindows) {
  for (const int type : {0, 101, 201, 301}) {
    const auto name = "HOST" + std::to_string(type);
    inventory.addAgent(name, 1, 1);
    addComputer(name, "Managed - Agentless Mode", type);
  }
  run();
  EXPECT_THAT(boxes(), LinesAre({"MessageBox plain: Selected system - HOST0 is not a windows based system, "
                                 "hence uninstallation not allowed.",
                                 "MessageBox plain: Selected system - HOST101 is not a windows based system, "
                                 "hence uninstallation not allowed.",
                                 "MessageBox plain: Selected system - HOST201 is not a windows based system, "
                                 "hence uninstallation not allowed.",
                                 "MessageBox plain: Selected system - HOST301 is not a windows based system, "
                                 "hence uninstallation not allowed."}));
  EXPECT_THAT(statuses(), Each("Managed - Agentless Mode"));
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_FALSE(targets.ErrorsSeen);
  EXPECT_THAT(libraryCalls(), IsEmpty());
  EXPECT_EQ(targets.pbProgress.Value, 99);
}

TEST_F(UninstallEngine, SkipsTheManagersOwnComputerWithoutAWordInTheLog) {
  addAgentBased("Manager");
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({"Skipped: Manager (local system)"}));
  EXPECT_THAT(jobs("qrvCUninstall"), IsEmpty());
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(UninstallEngine, SkipsAComputerWithoutAnAgentOfTheProduct) {
  addAgentBased("HOST1", "Tracking Changes");
  logIn();
  run();
  EXPECT_THAT(fakes::linesWithout(deeds(), {"createNew", "ShellExecute", "Sleep", "remove " + kBatch}),
              LinesAre({kResetLog, asksIfAgentless("HOST1"), "Show modal frmLogin", "Close frmLogin",
                        asksIfAgentless("HOST1"), findsSystem("HOST1"),
                        logged("Skipped: HOST1 - Cannot uninstall because either Agent is not installed or "
                               "it does not belong to this manager"),
                        status("HOST1", kNotInstalled), asksIfAgentless("HOST1")}));
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(UninstallEngine, TakesEveryStatusOfItsProduct) {
  logIn();
  for (const auto* status : {"Managed - Agentless Mode", "managed - high performance mode", kStandard.c_str(),
                             "Tracking Changes & Events"})
    addAgentBased("HOST" + std::to_string(targets.lvSystems.ListItems.Count()), status);
  run();
  EXPECT_THAT(statuses(), Each(kUninstalled));
}

TEST_F(UninstallEngine, ForTheTessmarkAgentTakesOtherStatusesAndAnotherRow) {
  chooseTessmark();
  addComputer("HOST1", "Tracking Changes");
  inventory.addAgent("HOST1", 2);
  addComputer("HOST2", kStandard);
  addComputer("HOST3", "Tracking Changes & Events");
  logIn();
  run();
  EXPECT_THAT(statuses(), LinesAre({kUninstalled, kNotInstalled, kUninstalled}));
  EXPECT_THAT(changes(),
              LinesAre({"SQL: DELETE FROM Module_Table WHERE System_Name = 'HOST1' AND Module_ID = 2",
                        "SQL: DELETE FROM Module_Table WHERE System_Name = 'HOST3' AND Module_ID = 2"}));
  EXPECT_THAT(jobs("qrvCUninstall"), Each(HasSubstr(R"(] C:\TESSMARK\remins -> )")));
}

TEST_F(UninstallEngine, PassesOnWhetherSnapshotsAreKept) {
  for (const auto* tag : {"1", "2", ""}) {
    addAgentless("HOST" + std::string(tag));
    targets.lvSystems.ListItems(targets.lvSystems.ListItems.Count()).ListSubItems(kKeepSnapsSubItem).Tag =
        tag;
  }
  run();
  EXPECT_THAT(jobs("qrvCUninstall"), ElementsAre(HasSubstr("KeepSnapshots=1"), HasSubstr("KeepSnapshots=0"),
                                                 HasSubstr("KeepSnapshots=0")));
}

TEST_F(UninstallEngine, SaysNothingOfSnapshotsWithoutATessmarkProduct) {
  program.gChangesRoot.clear();
  addAgentless("HOST1");
  run();
  EXPECT_THAT(jobs("qrvCUninstall"), Each(Not(HasSubstr("KeepSnapshots"))));
}

TEST_F(UninstallEngine, NeverTellsTheJobOfAVista) {
  addAgentless("HOST1").osMajorVersion = 6;
  run();
  EXPECT_THAT(jobs("qrvCUninstall"), LinesAre({uninstalls("HOST1", 7, ", AgentKind=1")}));
}

TEST_F(UninstallEngine, AnAgentBasedComputerIsNoneAfterAnAgentlessOne) {
  frmLogin.LoginAccepted = true;
  addAgentless("HOST1");
  addAgentBased("HOST2");
  run();
  EXPECT_THAT(jobs("qrvCUninstall"),
              LinesAre({uninstalls("HOST1", 7, ", AgentKind=1"), uninstalls("HOST2", 8)}));
}

TEST_F(UninstallEngine, LogsAFailedJobAndKeepsTheRow) {
  addAgentless("HOST1").uninstallExit = 1180;
  run();
  const std::string words =
      "Failed to create service. This may be due to insufficient permission or network problems.";
  EXPECT_THAT(statuses(), ElementsAre(words));
  EXPECT_THAT(log(), LinesAre({"Could not uninstall Varnhold Agent on HOST1 - " + words}));
  EXPECT_TRUE(targets.ErrorsSeen);
  EXPECT_THAT(inventory.agents(), SizeIs(1));
}

TEST_F(UninstallEngine, NamesTheTessmarkAgentByItsProductsName) {
  chooseTessmark();
  addComputer("HOST1", "Tracking Changes").startsThreads = false;
  logIn();
  run();
  EXPECT_THAT(log(), LinesAre({"Could not uninstall Tessmark for Windows Agent on HOST1 - Unknown error."}));
}

TEST_F(UninstallEngine, ForgetsAnAgentWithoutAServiceWhereTheOperatorWantsIt) {
  addAgentless("HOST1").uninstallExit = 1196;
  ui.nextAnswer(ui::Answer::Yes);
  run();
  const auto words = kNoService + " - Removed from Manager config";
  EXPECT_THAT(fakes::linesWithout(deeds(), {"SQL: SELECT", "qrv", "GetExit", "Close"}),
              LinesAre({kResetLog, kNoServiceQuestion + " -> Yes", forgets("HOST1"), status("HOST1", words),
                        logged("Could not uninstall Varnhold Agent on HOST1 - " + words)}));
  EXPECT_THAT(inventory.agents(), IsEmpty());
  EXPECT_TRUE(targets.ErrorsSeen);
}

TEST_F(UninstallEngine, KeepsAnAgentWithoutAServiceWhereTheOperatorDoesNot) {
  addAgentless("HOST1").uninstallExit = 1196;
  ui.nextAnswer(ui::Answer::No);
  run();
  EXPECT_THAT(boxes(), LinesAre({kNoServiceQuestion + " -> No"}));
  EXPECT_THAT(statuses(), LinesAre({kNoService}));
  EXPECT_THAT(log(), LinesAre({"Could not uninstall Varnhold Agent on HOST1 - " + kNoService}));
  EXPECT_THAT(inventory.agents(), SizeIs(1));
}

TEST_F(UninstallEngine, DoesNothingForNoComputers) {
  run();
  EXPECT_THAT(fake.journal, LinesAre({"Pointer 13", kResetLog, "Pointer 0"}));
}

}  // namespace
}  // namespace varnhold::deployment
