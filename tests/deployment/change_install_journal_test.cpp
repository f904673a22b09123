// Whole runs of the Tessmark agent's install, line by line.
#include "tests/deployment/engine_journal.h"

namespace varnhold::deployment {
namespace {

const std::string kUnknown = "Unknown error.";

class ChangeInstallJournal : public EngineJournalTest {
 protected:
  ChangeInstallJournal() : EngineJournalTest(InstallChangeAgents, 1) { chooseTessmark(); }

  static std::string configures(const std::string& name, int result = 1) {
    return "qrvCCreateConfigurationFile " + kTessmarkRemins + " " + name + R"( C:\T 0 -> )" +
           std::to_string(result);
  }
  static std::string installs(const std::string& name, int thread) {
    return "qrvCInstall [SystemName=" + name + R"(, InstallDirectory=C:\T] )" + kTessmarkRemins + " -> " +
           std::to_string(thread);
  }
  /// From the look into the inventory to the start of the job.
  static Lines started(const std::string& name, int thread) {
    return {findsSystem(name), resolves(name), configures(name), installs(name, thread)};
  }
  static std::string findsAgent(const std::string& name) {
    return "SQL: SELECT * FROM Module_Table WHERE System_Name = '" + name + "' AND Module_ID = 2";
  }
  static Lines added(const std::string& name) {
    return {findsAgent(name),
            "SQL: INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual) VALUES ('" +
                name + R"(', 2, 'C:\T', 0))"};
  }
  static Lines changed(const std::string& name) {
    return {findsAgent(name),
            R"(SQL: UPDATE Module_Table SET Install_Directory =  'C:\T', Manual = 0 WHERE System_Name = ')" +
                name + "' AND Module_ID = 2"};
  }
  static Lines row(const std::string& name, int mark, const std::vector<Lines>& parts) {
    return together({{"Select " + name}, together(parts), {progress(mark)}});
  }
  /// A plain install says nothing: the status stays as it is.
  static Lines installed(const std::string& name, int thread, int mark, int polls = 0) {
    return row(name, mark,
               {started(name, thread), runs(thread, polls, mark - 33), ends(thread, 1150), added(name)});
  }
  static Lines begins() { return {"Pointer 13", kResetLog}; }
  void addThree() {
    for (const auto* name : {"HOST1", "HOST2", "HOST3"}) addComputer(name);
  }
};

TEST_F(ChangeInstallJournal, OfTwelveComputersEachWithItsOwnOutcome) {
  addComputer("HOST01");
  addComputer("HOST02").installExit = 1180;
  addComputer("HOST03").startsThreads = false;
  addComputer("HOST04").address.reset();
  addComputer("HOST05").configurationResult = 0;
  addComputer("HOST06").installExit = 1232;
  addUnknownComputer("HOST07").polls = 2;
  addRow("MANAGER");
  addUnknownComputer("HOST09").answers = false;
  addComputer("HOST10", "Tracking Changes & Events");
  addComputer("HOST11", kInaccessible);
  addComputer("HOST12", "Tracking Changes").installExit = 1290;
  run();
  expectJournal(
      {begins(),
       row("HOST01", 8, {started("HOST01", 7), ends(7, 1150), added("HOST01")}),
       row("HOST02", 16, {started("HOST02", 8), ends(8, 1180), fault("HOST02", kTessmark180)}),
       row("HOST03", 24, {started("HOST03", 0), fault("HOST03", kUnknown)}),
       row("HOST04", 32, {{findsSystem("HOST04"), resolves("HOST04", false)}, fault("HOST04", kNotResolved)}),
       row("HOST05", 40,
           {{findsSystem("HOST05"), resolves("HOST05"), configures("HOST05", 0)},
            fault("HOST05", kNoConfiguration)}),
       row("HOST06", 48,
           {started("HOST06", 9), ends(9, 1232), {status("HOST06", kServiceNotStarted)}, added("HOST06")}),
       row("HOST07", 56,
           {{findsSystem("HOST07"), findsDetails("HOST07"), "qrvUpdateSystemDetailsInDB HOST07 -> 1"},
            started("HOST07", 10),
            runs(10, 2, 48),
            ends(10, 1150),
            added("HOST07")}),
       row("MANAGER", 64, {{status("MANAGER", kLocal)}}),
       row("HOST09", 72,
           {{findsSystem("HOST09"), findsDetails("HOST09", false)},
            skipped("HOST09", "System not responding")}),
       row("HOST10", 80, {skipped("HOST10", "Agent already installed")}),
       // HOST11 cannot be reached: nothing is done for it, and the bar does not move.
       row("HOST12", 88,
           {started("HOST12", 11), ends(11, 1290), {status("HOST12", kSnapshotsKept)}, added("HOST12")}),
       {"Pointer 0"}});
}

TEST_F(ChangeInstallJournal, OfAStopDuringTheFirstJob) {
  addThree();
  stopDuring("HOST1");
  run();
  expectJournal({begins(), installed("HOST1", 7, 33, 1), {"Pointer 0"}});
}

TEST_F(ChangeInstallJournal, OfAStopDuringAMiddleJob) {
  addThree();
  stopDuring("HOST2");
  run();
  expectJournal({begins(), installed("HOST1", 7, 33), installed("HOST2", 8, 66, 1), {"Pointer 0"}});
}

TEST_F(ChangeInstallJournal, OfAStopDuringTheLastJob) {
  addThree();
  stopDuring("HOST3");
  run();
  expectJournal({begins(),
                 installed("HOST1", 7, 33),
                 installed("HOST2", 8, 66),
                 installed("HOST3", 9, 99, 1),
                 {"Pointer 0"}});
}

TEST_F(ChangeInstallJournal, OfAnErrorInTheMiddleWhichCostsItsStep) {
  addThree();
  fake.libraries.onJob = [](platform::DeploymentJob& job) {
    if (job.SystemName == "HOST2") throw RuntimeError(kLibraryFunctionMissing, "No function.");
  };
  run();
  expectJournal(
      {begins(),
       installed("HOST1", 7, 33),
       row("HOST2", 66,
           {{findsSystem("HOST2"), resolves("HOST2"), configures("HOST2")}, fault("HOST2", kUnknown)}),
       installed("HOST3", 8, 99),
       {"Pointer 0"}});
}

TEST_F(ChangeInstallJournal, OfASecondRunWhichFindsTheRowsOfTheFirst) {
  addThree();
  run();
  run();
  const auto again = [](const std::string& name, int thread, int mark) {
    return row(name, mark, {started(name, thread), ends(thread, 1150), changed(name)});
  };
  expectJournal(
      {begins(), again("HOST1", 10, 33), again("HOST2", 11, 66), again("HOST3", 12, 99), {"Pointer 0"}});
}

}  // namespace
}  // namespace varnhold::deployment
