// Whole runs of the uninstall, line by line.
#include "tests/deployment/engine_journal.h"

namespace varnhold::deployment {
namespace {

const std::string kForgotten = " - Removed from Manager config";

class UninstallJournal : public EngineJournalTest {
 protected:
  UninstallJournal() : EngineJournalTest(UninstallAgents, 2) {}

  static std::string uninstalls(const std::string& name, int thread, const std::string& kind = "") {
    return R"(qrvCUninstall [SystemName=\\)" + name + ", KeepSnapshots=0" + kind + "] " + kRemins + " -> " +
           std::to_string(thread);
  }
  static std::string forgets(const std::string& name) {
    return "SQL: DELETE FROM Module_Table WHERE System_Name = '" + name +
           "' AND (Module_ID = 1 OR Module_ID = 5 )";
  }
  static std::string asksToForget(const std::string& name, const std::string& answer) {
    return "MessageBox question: Agent service on '" + name +
           "' does not exist. Do you want to remove it from Manager config anyway? -> " + answer;
  }
  /// The row says so, and the log behind it.
  static Lines failed(const std::string& name, const std::string& words) {
    return {status(name, words), logged("Could not uninstall Varnhold Agent on " + name + " - " + words)};
  }
  /// A computer from its selection on to the bar.
  static Lines row(const std::string& name, int mark, const std::vector<Lines>& parts) {
    return together(
        {{"Select " + name, findsSystem(name)}, together(parts), {progress(mark), asksIfAgentless(name)}});
  }
  /// One with an agent on it, between its shares.
  static Lines agentBased(const std::string& name, int mark, const std::vector<Lines>& parts) {
    return together({{asksIfAgentless(name)}, connects(name), row(name, mark, parts), disconnects(name)});
  }
  static Lines agentless(const std::string& name, int mark, const std::vector<Lines>& parts) {
    return together({{asksIfAgentless(name)}, row(name, mark, parts)});
  }
  static Lines started(const std::string& name, int thread, const std::string& kind = "") {
    return {asksIfAgentless(name), uninstalls(name, thread, kind)};
  }
  static Lines takenOff(const std::string& name) { return {forgets(name), status(name, kUninstalled)}; }
  /// An agentless computer where all goes well: no account is there, so no share is looked at.
  static Lines dropped(const std::string& name, int thread, int mark, int polls = 0) {
    return agentless(name, mark,
                     {started(name, thread, ", AgentKind=1"), runs(thread, polls, mark - 33),
                      ends(thread, 1152), takenOff(name)});
  }
  static Lines begins(const std::string& first) { return {"Pointer 13", kResetLog, asksIfAgentless(first)}; }
  static Lines restarts() { return {kRestart, "Pointer 0"}; }
  void addThree() {
    for (const auto* name : {"HOST1", "HOST2", "HOST3"}) addAgentless(name);
  }
};

TEST_F(UninstallJournal, OfTwelveComputersEachWithItsOwnOutcome) {
  addAgentBased("HOST01");
  addAgentless("HOST02");
  addAgentBased("MANAGER");
  addAgentBased("HOST04", kStandard, 101);
  addAgentBased("HOST05", "Unmanaged");
  addAgentBased("HOST06").uninstallExit = 1180;
  addAgentBased("HOST07").uninstallExit = 1196;
  addAgentless("HOST08").uninstallExit = 1196;
  addAgentBased("HOST09").startsThreads = false;
  addAgentBased("HOST10", kInaccessible);
  addAgentBased("HOST11", "Managed - High Performance Mode").polls = 1;
  addAgentBased("HOST12", "Tracking Changes & Events");
  logIn();
  ui.nextAnswer(ui::Answer::Yes);
  ui.nextAnswer(ui::Answer::No);
  run();
  expectJournal(
      {begins("HOST01"),
       {"Show modal frmLogin", "Close frmLogin"},
       agentBased("HOST01", 8, {started("HOST01", 7), ends(7, 1152), takenOff("HOST01")}),
       // It has lost its row when the shares are looked at, and passes as one with an agent.
       agentless("HOST02", 16, {started("HOST02", 8, ", AgentKind=1"), ends(8, 1152), takenOff("HOST02")}),
       disconnects("HOST02"),
       agentBased("MANAGER", 24, {{status("MANAGER", kLocal)}}),
       agentBased("HOST04", 32,
                  {{"MessageBox plain: Selected system - HOST04 is not a windows based system, "
                    "hence uninstallation not allowed."}}),
       agentBased("HOST05", 40,
                  {{logged("Skipped: HOST05 - Cannot uninstall because either Agent is not installed or it "
                           "does not belong to this manager"),
                    status("HOST05",
                           "Skipped: Either Agent is not installed or it does not belong to this manager")}}),
       agentBased("HOST06", 48, {started("HOST06", 9), ends(9, 1180), failed("HOST06", kFailed180)}),
       agentBased("HOST07", 56,
                  {started("HOST07", 10),
                   ends(10, 1196),
                   {asksToForget("HOST07", "Yes"), forgets("HOST07")},
                   failed("HOST07", kNoService + kForgotten)}),
       agentless("HOST08", 64,
                 {started("HOST08", 11, ", AgentKind=1"),
                  ends(11, 1196),
                  {asksToForget("HOST08", "No")},
                  failed("HOST08", kNoService)}),
       agentBased("HOST09", 72, {started("HOST09", 0), failed("HOST09", kNotStarted)}),
       // Left alone as soon as its status is looked at: its shares stay connected, the bar stays.
       {asksIfAgentless("HOST10")},
       connects("HOST10"),
       agentBased("HOST11", 80, {started("HOST11", 12), runs(12, 1, 72), ends(12, 1152), takenOff("HOST11")}),
       agentBased("HOST12", 88, {started("HOST12", 13), ends(13, 1152), takenOff("HOST12")}),
       restarts()});
}

TEST_F(UninstallJournal, OfAStopDuringTheFirstJob) {
  addThree();
  stopDuring("HOST1");
  run();
  expectJournal({begins("HOST1"), dropped("HOST1", 7, 33, 1), {asksIfAgentless("HOST2")}, restarts()});
}

TEST_F(UninstallJournal, OfAStopDuringAMiddleJob) {
  addThree();
  stopDuring("HOST2");
  run();
  expectJournal({begins("HOST1"),
                 dropped("HOST1", 7, 33),
                 dropped("HOST2", 8, 66, 1),
                 {asksIfAgentless("HOST3")},
                 restarts()});
}

TEST_F(UninstallJournal, OfAStopDuringTheLastJob) {
  addThree();
  stopDuring("HOST3");
  run();
  expectJournal({begins("HOST1"), dropped("HOST1", 7, 33), dropped("HOST2", 8, 66),
                 dropped("HOST3", 9, 99, 1), restarts()});
}

TEST_F(UninstallJournal, OfAnErrorInTheMiddleWhichEndsTheRunWithoutARestart) {
  addThree();
  fake.libraries.onJob = [](platform::DeploymentJob& job) {
    if (job.SystemName.ends_with("HOST2")) throw RuntimeError(kLibraryFunctionMissing, "No function.");
  };
  run();
  expectJournal({begins("HOST1"),
                 dropped("HOST1", 7, 33),
                 {asksIfAgentless("HOST2"), "Select HOST2", findsSystem("HOST2"), asksIfAgentless("HOST2"),
                  "Pointer 0", "MessageBox plain: No function."}});
}

TEST_F(UninstallJournal, OfASecondRunWhichFindsNoAgentAnyMore) {
  addThree();
  run();
  refuseLogin();
  run();
  // Their rows are gone: an account is asked for, and refused.
  const auto left = [](const std::string& name) {
    return Lines{asksIfAgentless(name), status(name, kInaccessible)};
  };
  expectJournal({begins("HOST1"),
                 {"Show modal frmLogin", "Close frmLogin"},
                 left("HOST1"),
                 left("HOST2"),
                 left("HOST3"),
                 {"Pointer 0"}});
}

}  // namespace
}  // namespace varnhold::deployment
