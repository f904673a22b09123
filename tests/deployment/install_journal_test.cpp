// Whole runs of the Varnhold agent's install, line by line.
#include "core/registry_values.h"
#include "tests/deployment/engine_journal.h"

namespace varnhold::deployment {
namespace {

const std::string kInstalled = "Installed successfully";
const std::string kBothKinds = "Skipped: Cannot implement both agent based and agent less simultaneously";

class InstallJournal : public EngineJournalTest {
 protected:
  InstallJournal() : EngineJournalTest(InstallAgents, 1) {}

  static std::string configures(const std::string& name, int result = 1) {
    return "qrvCCreateConfigurationFile " + kRemins + " " + name + R"( C:\A 1 -> )" + std::to_string(result);
  }
  static std::string installs(const std::string& name, int thread) {
    return "qrvCInstall [SystemName=" + name + R"(, InstallDirectory=C:\A, AgentKind=2, AgentMode=1] )" +
           kRemins + " -> " + std::to_string(thread);
  }
  /// What stands before the job on a computer that the inventory knows.
  static Lines prepared(const std::string& name) {
    return {findsDetails(name), findsSystem(name), resolves(name), kIni + "1 -> 1", configures(name)};
  }
  static std::string findsAgent(const std::string& name) {
    return "SQL: SELECT * FROM Module_Table WHERE (System_Name = '" + name +
           "' AND Module_ID = 1 AND Agentless = 0)";
  }
  static Lines added(const std::string& name) {
    return {findsAgent(name),
            "SQL: INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) "
            "VALUES ('" +
                name + R"(', 1, 'C:\A', 0, 0))"};
  }
  static Lines changed(const std::string& name) {
    return {findsAgent(name),
            R"(SQL: UPDATE Module_Table SET Install_Directory =  'C:\A', Manual = 0, Module_ID = 1 WHERE )"
            "System_Name = '" +
                name + "' AND (Module_ID = 1 OR Module_ID = 5) AND Agentless = 0"};
  }
  /// The screen around a computer that is looked at; the bar stands at `mark` then.
  static Lines row(const std::string& name, int mark, const std::vector<Lines>& parts) {
    return together({{"Pointer 0", "Pointer 13"},
                     together(parts),
                     {"Select " + name, "Visible " + name, progress(mark)}});
  }
  /// A computer where all goes well, its job being found running `polls` times.
  static Lines installed(const std::string& name, int thread, int mark, int polls = 0) {
    return row(name, mark,
               {prepared(name),
                {installs(name, thread)},
                runs(thread, polls, mark - 33),
                ends(thread, 1150),
                {status(name, kInstalled)},
                added(name)});
  }
  static Lines begins() { return {"Pointer 13", kResetLog}; }
  void addThree() {
    for (const auto* name : {"HOST1", "HOST2", "HOST3"}) addComputer(name);
  }
};

TEST_F(InstallJournal, OfTwelveComputersEachWithItsOwnOutcome) {
  addComputer("HOST01");
  addRow("MANAGER");
  addUnknownComputer("HOST03");
  addComputer("HOST04", "Managed - Agentless Mode");
  addUnknownComputer("HOST05").answers = false;
  addComputer("HOST06").address.reset();
  addComputer("HOST07").startsThreads = false;
  addComputer("HOST08").installExit = 1167;
  addComputer("HOST09", kInaccessible);
  addComputer("HOST10").installExit = 1180;
  addComputer("HOST11", "Managed - High Performance Mode").polls = 2;
  addComputer("HOST12").configurationResult = 0;
  run();
  expectJournal(
      {begins(),
       row("HOST01", 8,
           {prepared("HOST01"),
            {installs("HOST01", 7)},
            ends(7, 1150),
            {status("HOST01", kInstalled)},
            added("HOST01")}),
       row("MANAGER", 16, {{status("MANAGER", kLocal)}}),
       row("HOST03", 24,
           {{findsDetails("HOST03"), findsSystem("HOST03"), findsDetails("HOST03"),
             "qrvUpdateSystemDetailsInDB HOST03 -> 1", findsSystem("HOST03"), resolves("HOST03"),
             kIni + "1 -> 1", configures("HOST03"), installs("HOST03", 8)},
            ends(8, 1150),
            {status("HOST03", kInstalled)},
            added("HOST03")}),
       row("HOST04", 32, {{status("HOST04", kBothKinds)}}),
       row("HOST05", 40,
           {{findsDetails("HOST05", false), findsSystem("HOST05"), findsDetails("HOST05", false)},
            skipped("HOST05", "System not responding")}),
       row("HOST06", 48,
           {{findsDetails("HOST06"), findsSystem("HOST06"), resolves("HOST06", false)},
            fault("HOST06", kNotResolved)}),
       row("HOST07", 56, {prepared("HOST07"), {installs("HOST07", 0)}, fault("HOST07", kNotStarted)}),
       row("HOST08", 64,
           {prepared("HOST08"),
            {installs("HOST08", 9)},
            ends(9, 1167),
            {status("HOST08",
                    kInstalled + " - Failed to configure security. Please apply security settings.")},
            added("HOST08")}),
       // Nothing is done for this one, and the pointer stays as it is until the next.
       {"Pointer 0", "Select HOST09", "Visible HOST09", progress(72), "Pointer 13"},
       prepared("HOST10"),
       {installs("HOST10", 10)},
       ends(10, 1180),
       fault("HOST10", kFailed180),
       {"Select HOST10", "Visible HOST10", progress(80)},
       row("HOST11", 88,
           {prepared("HOST11"),
            {installs("HOST11", 11)},
            runs(11, 2, 80),
            ends(11, 1150),
            {status("HOST11", kInstalled)},
            added("HOST11")}),
       row("HOST12", 96,
           {{findsDetails("HOST12"), findsSystem("HOST12"), resolves("HOST12"), kIni + "1 -> 1",
             configures("HOST12", 0)},
            fault("HOST12", kNoConfiguration)}),
       {"Pointer 0"}});
}

TEST_F(InstallJournal, OfAStopDuringTheFirstJob) {
  addThree();
  stopDuring("HOST1");
  run();
  expectJournal({begins(), installed("HOST1", 7, 33, 1), {"Pointer 0"}});
}

TEST_F(InstallJournal, OfAStopDuringAMiddleJob) {
  addThree();
  stopDuring("HOST2");
  run();
  expectJournal({begins(), installed("HOST1", 7, 33), installed("HOST2", 8, 66, 1), {"Pointer 0"}});
}

TEST_F(InstallJournal, OfAStopDuringTheLastJob) {
  addThree();
  stopDuring("HOST3");
  run();
  expectJournal({begins(),
                 installed("HOST1", 7, 33),
                 installed("HOST2", 8, 66),
                 installed("HOST3", 9, 99, 1),
                 {"Pointer 0"}});
}

TEST_F(InstallJournal, OfAnErrorInTheMiddleWhichCostsItsStep) {
  addThree();
  fake.libraries.onJob = [](platform::DeploymentJob& job) {
    if (job.SystemName == "HOST2") throw RuntimeError(kLibraryFunctionMissing, "No function.");
  };
  run();
  expectJournal({begins(),
                 installed("HOST1", 7, 33),
                 row("HOST2", 66, {prepared("HOST2"), fault("HOST2", kNotStarted)}),
                 installed("HOST3", 8, 99),
                 {"Pointer 0"}});
}

TEST_F(InstallJournal, OfASecondRunWhichFindsTheRowsOfTheFirst) {
  addThree();
  run();
  run();
  const auto again = [](const std::string& name, int thread, int mark) {
    return row(name, mark, {prepared(name), {installs(name, thread)}, ends(thread, 1150), changed(name)});
  };
  // The status is the one of the first run, so that no row changes.
  expectJournal(
      {begins(), again("HOST1", 10, 33), again("HOST2", 11, 66), again("HOST3", 12, 99), {"Pointer 0"}});
}

class AgentlessInstallJournal : public InstallJournal {
 protected:
  AgentlessInstallJournal() {
    chooseAgentless();
    targets.LocalOSMajor = 5;
    targets.cboPollFreq.ListIndex = 5;
    targets.txtStartHour.Text = "06";
    targets.txtStartMin.Text = "05";
    fake.registry.makeKey(core::kAgentKey);
  }

  static std::string deploys(const std::string& name, int thread) {
    return "qrvCInstall [SystemName=" + name + R"(, InstallDirectory=C:\A, AgentKind=1] )" + kRemins +
           " -> " + std::to_string(thread);
  }
  static Lines readsLog(const std::string& name, int handle) {
    return {R"(OpenEventLog \\)" + name + " Security -> " + std::to_string(handle),
            "CloseEventLog " + std::to_string(handle)};
  }
  static Lines cannotReadLog(const std::string& name, int error) {
    return {R"(OpenEventLog \\)" + name + " Security -> 0, error " + std::to_string(error),
            "FormatMessage " + std::to_string(error)};
  }
  static Lines recorded(const std::string& name) {
    return {"SQL: SELECT * FROM Module_Table WHERE (System_Name ='" + name +
                "' AND  Module_ID = 1 AND Agentless = 1)",
            "SQL: INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) "
            "VALUES ('" +
                name + R"(', 1, 'C:\A', 0, 1))"};
  }
  /// A computer that is worked on between its shares.
  static Lines between(const std::string& name, int mark, const std::vector<Lines>& parts) {
    return together({connects(name), row(name, mark, {together(parts), disconnects(name)})});
  }
  static Lines polls() {
    const auto stores = [](const std::string& value) {
      return "RegSetValueEx " + std::string(core::kAgentKey) + "\\" + value + " -> Done";
    };
    return {stores("gPollingFreq type 1 4:0"), stores("gPollStartTime type 1 6:5"), kRestart};
  }
};

TEST_F(AgentlessInstallJournal, OfTwelveComputersEachWithItsOwnOutcome) {
  addComputer("HOST01");
  addRow("MANAGER");
  addComputer("HOST03", kStandard);
  addComputer("HOST04").osMajorVersion = 6;
  addComputer("HOST05");
  addComputer("HOST06");
  addUnknownComputer("HOST07").answers = false;
  addComputer("HOST08").address.reset();
  addComputer("HOST09").startsThreads = false;
  addComputer("HOST10").installExit = 1232;
  addComputer("HOST11", kInaccessible);
  addComputer("HOST12").installExit = 1180;
  fake.eventLog.refused = {{R"(\\HOST05)", 5}, {R"(\\HOST06)", 1722}};
  fake.eventLog.messages[5] = "Access is denied.\r\n";
  fake.eventLog.formatError = 317;
  logIn();
  run();
  expectJournal(
      {begins(),
       {"Show modal frmLogin", "Close frmLogin"},
       between("HOST01", 8,
               {{findsDetails("HOST01")},
                readsLog("HOST01", 1),
                {findsSystem("HOST01"), resolves("HOST01"), deploys("HOST01", 7)},
                ends(7, 1150),
                {status("HOST01", kInstalled)},
                recorded("HOST01")}),
       between("MANAGER", 16, {{status("MANAGER", kLocal)}}),
       between("HOST03", 24, {{status("HOST03", kBothKinds)}}),
       between("HOST04", 32,
               {{findsDetails("HOST04"), status("HOST04",
                                                "Skipped: Cannot deploy agentless on VISTA/2K8 system from "
                                                "2000/2003/XP Manager")}}),
       // The shares of the two with a closed log stay connected.
       connects("HOST05"),
       row("HOST05", 40,
           {{findsDetails("HOST05")}, cannotReadLog("HOST05", 5), skipped("HOST05", "Access is denied.")}),
       connects("HOST06"),
       row("HOST06", 48,
           {{findsDetails("HOST06")},
            cannotReadLog("HOST06", 1722),
            {logged("Skipped: HOST06 - Error in Format String -317"),
             status("HOST06", "Skipped: Due to unknown error. Refer to error log")}}),
       between("HOST07", 56,
               {{findsDetails("HOST07", false)},
                readsLog("HOST07", 2),
                {findsSystem("HOST07"), findsDetails("HOST07", false)},
                skipped("HOST07", "System not responding")}),
       between("HOST08", 64,
               {{findsDetails("HOST08")},
                readsLog("HOST08", 3),
                {findsSystem("HOST08"), resolves("HOST08", false)},
                fault("HOST08", kNotResolved)}),
       between("HOST09", 72,
               {{findsDetails("HOST09")},
                readsLog("HOST09", 4),
                {findsSystem("HOST09"), resolves("HOST09"), deploys("HOST09", 0)},
                fault("HOST09", kNotStarted)}),
       between("HOST10", 80,
               {{findsDetails("HOST10")},
                readsLog("HOST10", 5),
                {findsSystem("HOST10"), resolves("HOST10"), deploys("HOST10", 8)},
                ends(8, 1232),
                {status("HOST10", kInstalled + " - Could not start the service automatically. Please try "
                                               "manually.")},
                recorded("HOST10")}),
       connects("HOST11"),
       {"Pointer 0", "Select HOST11", "Visible HOST11", progress(88)},
       connects("HOST12"),
       {"Pointer 13", findsDetails("HOST12")},
       readsLog("HOST12", 6),
       {findsSystem("HOST12"), resolves("HOST12"), deploys("HOST12", 9)},
       ends(9, 1180),
       fault("HOST12", kFailed180),
       disconnects("HOST12"),
       {"Select HOST12", "Visible HOST12", progress(96)},
       polls(),
       {"Pointer 0"}});
}

}  // namespace
}  // namespace varnhold::deployment
