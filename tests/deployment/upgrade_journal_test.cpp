// Whole runs of the two upgrades, line by line.
#include "core/registry_values.h"
#include "tests/deployment/engine_journal.h"

namespace varnhold::deployment {
namespace {

const std::string kVhagent = R"(C:\VARNHOLD\RemoteInstaller\remins\vhagent)";
const std::string kNoInstallPath =
    "RegQueryValueEx " + std::string(core::kAgentKey) + R"(\InstallPath -> KeyMissing)";

/// What both upgrades show of a computer.
class UpgradeJournalTest : public EngineJournalTest {
 protected:
  UpgradeJournalTest(Engine engine, bool overIP) : EngineJournalTest(engine, 3) {
    targets.optWinDom.Value.settle(!overIP);
    targets.optOverIP.Value.settle(overIP);
  }

  void addTwelve(std::uint32_t success) {
    const auto add = [&](const std::string& name, const std::string& status = kStandard,
                         int type = 7) -> fakes::FakeComputer& {
      inventory.addAgent(name, 1);
      auto& computer = addComputer(name, status, type);
      computer.upgradeExit = success;
      return computer;
    };
    add("HOST01");
    add("MANAGER");
    inventory.addAgent("HOST03", 1, 1);
    addComputer("HOST03", "Managed - Agentless Mode");
    addComputer("HOST04");
    add("HOST05").upgradeExit = 1180;
    add("HOST06").startsThreads = false;
    add("HOST07", kStandard, 0);
    add("HOST08", kStandard, 0);
    add("HOST09", kStandard, 101);
    add("HOST10", kStandard, 301);
    add("HOST11", "Managed - High Performance Mode").polls = 2;
    add("HOST12", "Tracking Changes & Events");
    for (const auto answer : {ui::Answer::No, ui::Answer::Yes, ui::Answer::Yes}) ui.nextAnswer(answer);
  }
  void addThree(std::uint32_t success) {
    for (const auto* name : {"HOST1", "HOST2", "HOST3"}) {
      inventory.addAgent(name, 1);
      addComputer(name, kStandard).upgradeExit = success;
    }
  }
  static Lines row(const std::string& name, int mark, const std::vector<Lines>& parts) {
    return together({{"Select " + name, findsSystem(name)}, together(parts), {progress(mark)}});
  }
  /// The computer is looked at anew, and then the operator is asked.
  static Lines doubted(const std::string& name, const std::string& answer) {
    return {"qrvNetOpGetSystem " + name, "Sleep 500", findsSystem(name),
            "MessageBox question: Unable to resolve system '" + name +
                "' as a Windows based system .<CR><LF>If you are sure this system is a Windows based system "
                "click \"Yes\" to proceed with upgrade,<CR><LF>click \"No\" to skip -> " +
                answer};
  }
  static Lines skippedAgentless(const std::string& name) {
    return {asksIfAgentless(name), status(name, "Skipped: No need to upgrade agent less agents")};
  }
  static Lines withoutAgent(const std::string& name) {
    return {asksIfAgentless(name),
            logged("Skipped: " + name + " - Cannot upgrade because Agent is not installed"),
            status(name, "Skipped: Agent not installed")};
  }
};

class UpgradeJournal : public UpgradeJournalTest {
 protected:
  UpgradeJournal() : UpgradeJournalTest(UpgradeAgents, false) {}

  static Lines started(const std::string& name, int thread) {
    return {asksIfAgentless(name), findsDetails(name), kIni + "0 -> 1",
            R"(qrvCUpgradeAgent [SystemName=\\)" + name + ", AgentMode=1, UseDefaultConfig=1] " + kRemins +
                " -> " + std::to_string(thread)};
  }
  static Lines upgraded(const std::string& name, int thread, int mark, int polls = 0) {
    return row(name, mark,
               {started(name, thread),
                runs(thread, polls, mark - 33),
                ends(thread, 1700),
                {status(name, kUpgraded)}});
  }
  static Lines begins() { return {"Pointer 13", kResetLog}; }
};

TEST_F(UpgradeJournal, OfTwelveComputersEachWithItsOwnOutcome) {
  addTwelve(1700);
  run();
  expectJournal(
      {begins(),
       row("HOST01", 8, {started("HOST01", 7), ends(7, 1700), {status("HOST01", kUpgraded)}}),
       row("MANAGER", 16, {{status("MANAGER", kLocal)}}),
       row("HOST03", 24, {skippedAgentless("HOST03")}),
       row("HOST04", 32, {withoutAgent("HOST04")}),
       row("HOST05", 40, {started("HOST05", 8), ends(8, 1180), fault("HOST05", kFailed180)}),
       row("HOST06", 48, {started("HOST06", 0), fault("HOST06", kNotStarted)}),
       row("HOST07", 56, {doubted("HOST07", "No")}),
       row("HOST08", 64,
           {doubted("HOST08", "Yes"), started("HOST08", 9), ends(9, 1700), {status("HOST08", kUpgraded)}}),
       row("HOST09", 72, {doubted("HOST09", "Yes")}),
       row("HOST10", 80, {}),
       row("HOST11", 88,
           {started("HOST11", 10), runs(10, 2, 80), ends(10, 1700), {status("HOST11", kUpgraded)}}),
       row("HOST12", 96, {started("HOST12", 11), ends(11, 1700), {status("HOST12", kUpgraded)}}),
       {"Pointer 0"}});
}

TEST_F(UpgradeJournal, OfAStopDuringTheFirstJob) {
  addThree(1700);
  stopDuring("HOST1");
  run();
  expectJournal({begins(), upgraded("HOST1", 7, 33, 1), {"Pointer 0"}});
}

TEST_F(UpgradeJournal, OfAStopDuringAMiddleJob) {
  addThree(1700);
  stopDuring("HOST2");
  run();
  expectJournal({begins(), upgraded("HOST1", 7, 33), upgraded("HOST2", 8, 66, 1), {"Pointer 0"}});
}

TEST_F(UpgradeJournal, OfAStopDuringTheLastJob) {
  addThree(1700);
  stopDuring("HOST3");
  run();
  expectJournal({begins(),
                 upgraded("HOST1", 7, 33),
                 upgraded("HOST2", 8, 66),
                 upgraded("HOST3", 9, 99, 1),
                 {"Pointer 0"}});
}

TEST_F(UpgradeJournal, OfAnErrorInTheMiddleWhichEndsTheRun) {
  addThree(1700);
  fake.libraries.onJob = [](platform::DeploymentJob& job) {
    if (job.SystemName.ends_with("HOST2")) throw RuntimeError(kLibraryFunctionMissing, "No function.");
  };
  run();
  expectJournal({begins(),
                 upgraded("HOST1", 7, 33),
                 {"Select HOST2", findsSystem("HOST2"), asksIfAgentless("HOST2"), findsDetails("HOST2"),
                  kIni + "0 -> 1", "Pointer 0", "MessageBox plain: No function."}});
}

TEST_F(UpgradeJournal, OfASecondRunWhichReadsTheResultsOfTheFirst) {
  addThree(1700);
  run();
  run();
  expectJournal({begins(),
                 row("HOST1", 33, {withoutAgent("HOST1")}),
                 row("HOST2", 66, {withoutAgent("HOST2")}),
                 row("HOST3", 99, {withoutAgent("HOST3")}),
                 {"Pointer 0"}});
}

class OverIPUpgradeJournal : public UpgradeJournalTest {
 protected:
  OverIPUpgradeJournal() : UpgradeJournalTest(UpgradeAgentsOverIP, true) {}

  static Lines started(const std::string& name, int thread) {
    return {asksIfAgentless(name), findsDetails(name), kNoInstallPath,
            "qrvCUpgradeAgentOverIP [SystemName=" + name + ", AgentMode=1, UseDefaultConfig=1] " + kVhagent +
                " -> " + std::to_string(thread)};
  }
  static Lines checks(const std::string& name, int thread) {
    return {"Sleep 5000", "qrvCVHCheckVersion " + kVhagent + " " + name + " -> " + std::to_string(thread)};
  }
  /// The check of the version in one round, its thread being the one behind the job's.
  static Lines confirmed(const std::string& name, int thread) {
    return together({{kNoInstallPath}, checks(name, thread), ends(thread, 4000), {status(name, kUpgraded)}});
  }
  static Lines upgraded(const std::string& name, int thread, int mark) {
    return row(name, mark, {started(name, thread), ends(thread, 4000), confirmed(name, thread + 1)});
  }
  /// The same where job and check are each found running once.
  static Lines slowlyUpgraded(const std::string& name, int thread, int mark) {
    return row(name, mark,
               {started(name, thread),
                runs(thread, 1, mark - 33),
                ends(thread, 4000),
                {kNoInstallPath},
                checks(name, thread + 1),
                runs(thread + 1, 1, mark - 32),
                ends(thread + 1, 4000),
                {status(name, kUpgraded)}});
  }
  static Lines begins() {
    return {"Pointer 13", kResetLog,
            "qrvCCreateConfigurationFile " + kRemins + R"( MANAGER C:\VARNHOLD\RemoteInstaller 1 -> 1)"};
  }
  static Lines failed(const std::string& name, const std::string& words) {
    return fault(name, "Upgrade failed. " + words);
  }
};

TEST_F(OverIPUpgradeJournal, OfTwelveComputersEachWithItsOwnOutcome) {
  addTwelve(4000);
  fake.libraries.computers["HOST12"].versionExits = {4001, 4001, 4001, 4001, 4001, 4026};
  run();
  Lines rounds = {kNoInstallPath};
  for (int thread = 15; thread <= 20; ++thread)
    rounds = together({rounds, checks("HOST12", thread), ends(thread, thread < 20 ? 4001 : 4026)});
  expectJournal(
      {begins(),
       upgraded("HOST01", 7, 8),
       row("MANAGER", 16, {{status("MANAGER", kLocal)}}),
       row("HOST03", 24, {skippedAgentless("HOST03")}),
       row("HOST04", 32, {withoutAgent("HOST04")}),
       row("HOST05", 40, {started("HOST05", 9), ends(9, 1180), failed("HOST05", kFailed180)}),
       row("HOST06", 48, {started("HOST06", 0), failed("HOST06", kNotStarted)}),
       row("HOST07", 56, {doubted("HOST07", "No")}),
       row("HOST08", 64,
           {doubted("HOST08", "Yes"), started("HOST08", 10), ends(10, 4000), confirmed("HOST08", 11)}),
       row("HOST09", 72, {doubted("HOST09", "Yes")}),
       row("HOST10", 80, {}),
       row("HOST11", 88,
           {started("HOST11", 12),
            runs(12, 2, 80),
            ends(12, 4000),
            {kNoInstallPath},
            checks("HOST11", 13),
            runs(13, 2, 82),
            ends(13, 4000),
            {status("HOST11", kUpgraded)}}),
       row("HOST12", 96,
           {started("HOST12", 14), ends(14, 4000), rounds,
            fault("HOST12", "Failed to check version. Failed to check agent version.")}),
       {"Pointer 0"}});
}

TEST_F(OverIPUpgradeJournal, OfAStopDuringTheFirstJob) {
  addThree(4000);
  stopDuring("HOST1");
  run();
  expectJournal({begins(), slowlyUpgraded("HOST1", 7, 33), {"Pointer 0"}});
}

TEST_F(OverIPUpgradeJournal, OfAStopDuringAMiddleJob) {
  addThree(4000);
  stopDuring("HOST2");
  run();
  expectJournal({begins(), upgraded("HOST1", 7, 33), slowlyUpgraded("HOST2", 9, 66), {"Pointer 0"}});
}

TEST_F(OverIPUpgradeJournal, OfAStopDuringTheLastJob) {
  addThree(4000);
  stopDuring("HOST3");
  run();
  expectJournal({begins(),
                 upgraded("HOST1", 7, 33),
                 upgraded("HOST2", 9, 66),
                 slowlyUpgraded("HOST3", 11, 99),
                 {"Pointer 0"}});
}

TEST_F(OverIPUpgradeJournal, OfAnErrorInTheMiddleWhichEndsTheRun) {
  addThree(4000);
  fake.libraries.onJob = [](platform::DeploymentJob& job) {
    if (job.SystemName == "HOST2") throw RuntimeError(kLibraryFunctionMissing, "No function.");
  };
  run();
  expectJournal({begins(),
                 upgraded("HOST1", 7, 33),
                 {"Select HOST2", findsSystem("HOST2"), asksIfAgentless("HOST2"), findsDetails("HOST2"),
                  kNoInstallPath, "Pointer 0", "MessageBox plain: No function."}});
}

TEST_F(OverIPUpgradeJournal, OfASecondRunWhichReadsTheResultsOfTheFirst) {
  addThree(4000);
  run();
  run();
  expectJournal({begins(),
                 row("HOST1", 33, {withoutAgent("HOST1")}),
                 row("HOST2", 66, {withoutAgent("HOST2")}),
                 row("HOST3", 99, {withoutAgent("HOST3")}),
                 {"Pointer 0"}});
}

}  // namespace
}  // namespace varnhold::deployment
