// One computer's install: what is asked of the library and the inventory, in order, and what the log says.
#include "base/runtime_error.h"
#include "tests/fakes/lines_are.h"
#include "tests/startup/installer_fixture.h"

namespace varnhold::startup {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kFindSystem = "SQL: SELECT * FROM System_Table WHERE System_Name = 'HOST1'";
const std::string kFindAgent =
    "SQL: SELECT * FROM Module_Table WHERE (System_Name = 'HOST1' AND Module_ID = 1)";
const std::string kIni =
    R"(qrvCReadNWriteVhaConfigINI4Turbo C:\I\RemoteInstaller\Agent\vhagent C:\I\RemoteInstaller\Agent )"
    R"(C:\I\RemoteInstaller\Agent\vhaconfig.ini )";
const std::string kNotResponding = "Failed to install on HOST1. System not responding.";
const std::string kUnknown710 =
    "Failed to install on HOST1. Error: Unknown error. This may be due to insufficient permission or network "
    "problems.";

class CliInstallTest : public InstallerTest {
 protected:
  CliInstallTest() { program.gCliAction = 1; }
  void install(const std::string& name = "HOST1") { CliInstall(program, name, R"(C:\A)"); }
  static std::string failed(const std::string& words) {
    return "Failed to install on HOST1. Error: " + words;
  }
  static std::string erred(const std::string& words) {
    return "Error occurred while installing agent on HOST1. ERROR : " + words;
  }
};

TEST_F(CliInstallTest, InstallsOnAnUnknownComputerStepByStep) {
  install();
  EXPECT_THAT(
      fake.journal,
      LinesAre(
          {"qrvGetSystemIPAddress HOST1 -> 1", kFindSystem,
           "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1", "qrvUpdateSystemDetailsInDB HOST1 -> 1",
           "qrvGetSystemIPAddress HOST1 -> 1", kIni + "1 -> 1",
           R"(qrvCCreateConfigurationFile C:\I\RemoteInstaller\remins HOST1 C:\A 1 -> 1)",
           R"(qrvCInstall [SystemName=HOST1, InstallDirectory=C:\A, AgentMode=1] C:\I\RemoteInstaller\remins -> 7)",
           "GetExitCodeThread 7 -> 1150", "CloseHandle 7", logged("HOST1: Installed successfully"),
           kFindAgent,
           "SQL: INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual,Agentless) "
           "VALUES "
           "('HOST1', 1, 'C:\\A', 0, 0)"}));
  EXPECT_THAT(inventory.computers(), LinesAre({"HOST1|7"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)"}));
}

TEST_F(CliInstallTest, DoesNotLookForAKnownComputerAndUpdatesItsAgentsRow) {
  knowHost1();
  inventory.addAgent("HOST1", 1);
  install();
  EXPECT_THAT(libraryCalls(),
              LinesAre({"qrvGetSystemIPAddress", "qrvGetSystemIPAddress", "qrvCReadNWriteVhaConfigINI4Turbo",
                        "qrvCCreateConfigurationFile", "qrvCInstall"}));
  EXPECT_THAT(
      statements(),
      LinesAre({kFindSystem, kFindAgent,
                "SQL: UPDATE Module_Table SET Install_Directory =  'C:\\A', Manual = 0 WHERE System_Name = "
                "'HOST1' AND Module_ID = 1 AND Agentless = 0"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)"}));
}

TEST_F(CliInstallTest, LeavesAnAgentlessRowAsItIs) {
  knowHost1();
  inventory.addAgent("HOST1", 1, 1);
  install();
  EXPECT_THAT(log(), LinesAre({"HOST1: Installed successfully"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\OLD|0|1)"}));
}

TEST_F(CliInstallTest, AddsARowBesideThoseOfOtherModules) {
  knowHost1();
  inventory.addAgent("HOST1", 2);
  inventory.addAgent("HOST1", 5);
  install();
  EXPECT_THAT(inventory.agents(),
              LinesAre({R"(HOST1|1|C:\A|0|0)", R"(HOST1|2|C:\OLD|0|0)", R"(HOST1|5|C:\OLD|0|0)"}));
}

TEST_F(CliInstallTest, PollsTheJobEvery200Milliseconds) {
  host1().polls = 2;
  install();
  EXPECT_THAT(fakes::linesWithout(fake.journal, {"qrv", "SQL", "append"}),
              LinesAre({"GetExitCodeThread 7 -> 259", "Sleep 200", "GetExitCodeThread 7 -> 259", "Sleep 200",
                        "GetExitCodeThread 7 -> 1150", "CloseHandle 7"}));
}

TEST_F(CliInstallTest, LeavesTheHandleOpenWhenThePollFails) {
  fake.threads.failsGetExitCode = true;
  install();
  EXPECT_THAT(log(), LinesAre({failed("Unknown error.")}));
  EXPECT_EQ(fake.threads.openHandles().size(), 1u);
}

TEST_F(CliInstallTest, SkipsTheManagersOwnComputerInAnyCase) {
  install("Manager");
  EXPECT_THAT(
      fake.journal,
      LinesAre({logged("Skipped: Manager - Manager (local computer). Varnhold Agent cannot be installed on "
                       "local system. Because Manager is running on this system.")}));
}

TEST_F(CliInstallTest, GoesOnUnderTheNameThatTheLibraryWritesBack) {
  fake.libraries.computers["10.1.1.1"].nameWrittenBack = std::string("HOST1\0\0\0", 8);
  install("10.1.1.1");
  EXPECT_THAT(
      fakes::linesOf(fake.journal, "qrvCInstall"),
      ElementsAre(StartsWith(R"(qrvCInstall [SystemName=10.1.1.1, InstallDirectory=C:\A, AgentMode=1])")));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCCreateConfigurationFile"),
              LinesAre({R"(qrvCCreateConfigurationFile C:\I\RemoteInstaller\remins HOST1 C:\A 1 -> 1)"}));
  EXPECT_THAT(log(), LinesAre({"HOST1: Installed successfully"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)"}));
}

TEST_F(CliInstallTest, RecordsThePathUpToItsFirstNul) {
  CliInstall(program, "HOST1", std::string("C:\\A\0rest", 9));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)"}));
}

TEST_F(CliInstallTest, GivesUpOnAComputerThatDoesNotAnswer) {
  host1().answers = false;
  install();
  EXPECT_THAT(fake.journal,
              LinesAre({"qrvGetSystemIPAddress HOST1 -> 1", kFindSystem,
                        "qrvFindSystemAndReturnDetails HOST1 level 1 -> 0", logged(kNotResponding)}));
}

TEST_F(CliInstallTest, GivesUpOnAComputerThatCannotBeStored) {
  host1().canBeStored = false;
  install();
  EXPECT_THAT(libraryCalls(), LinesAre({"qrvGetSystemIPAddress", "qrvFindSystemAndReturnDetails",
                                        "qrvUpdateSystemDetailsInDB"}));
  EXPECT_THAT(log(), LinesAre({kNotResponding}));
}

TEST_F(CliInstallTest, StartsNoJobWhenTheNameDoesNotResolve) {
  knowHost1();
  host1().address.reset();
  install();
  EXPECT_THAT(fake.journal,
              LinesAre({"qrvGetSystemIPAddress HOST1 -> 0", kFindSystem, "qrvGetSystemIPAddress HOST1 -> 0",
                        logged(failed("Could not resolve the IP Address for the system."))}));
}

TEST_F(CliInstallTest, StartsNoJobWhenTheAgentsSettingsCannotBeEdited) {
  fake.libraries.iniEdits = false;
  install();
  EXPECT_EQ(libraryCalls().back(), "qrvCReadNWriteVhaConfigINI4Turbo");
  EXPECT_THAT(log(), LinesAre({kUnknown710}));
  EXPECT_THAT(inventory.agents(), IsEmpty());
}

TEST_F(CliInstallTest, StartsNoJobWithoutConfigurationFile) {
  for (const std::int32_t result : {0, 2, -1}) {
    host1().configurationResult = result;
    fake.files.remove(kLog);
    install();
    EXPECT_EQ(libraryCalls().back(), "qrvCCreateConfigurationFile");
    EXPECT_THAT(log(), LinesAre({failed("Could not create the configuration file on the local system.")}));
  }
}

TEST_F(CliInstallTest, TurnsAMissingThreadInto710) {
  host1().startsThreads = false;
  install();
  EXPECT_THAT(fakes::linesOf(fake.journal, "GetExitCodeThread"), IsEmpty());
  EXPECT_THAT(log(), LinesAre({kUnknown710}));
}

TEST_F(CliInstallTest, TakesTheTwoWarningsAsSuccesses) {
  const std::pair<std::uint32_t, const char*> warnings[] = {
      {1232, "Could not start the service automatically. Please try manually."},
      {1167, "Failed to configure security. Please apply security settings."},
  };
  for (const auto& [exitCode, words] : warnings) {
    host1().installExit = exitCode;
    fake.files.remove(kLog);
    install();
    EXPECT_THAT(log(), LinesAre({std::string("HOST1: Installed successfully. Warning: ") + words}));
    EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)"}));
  }
}

TEST_F(CliInstallTest, WordsEveryOtherResultAsAFailureAndRecordsNothing) {
  const std::pair<std::uint32_t, const char*> failures[] = {
      {1180, "Failed to create service. This may be due to insufficient permission or network problems."},
      {1152, "Unknown error."},
      {1290, "Unknown error."},
      {0, "Unknown error."},
      {150, "Unknown error."},
  };
  for (const auto& [exitCode, words] : failures) {
    host1().installExit = exitCode;
    fake.files.remove(kLog);
    install();
    EXPECT_THAT(log(), LinesAre({failed(words)}));
  }
  EXPECT_THAT(inventory.agents(), IsEmpty());
}

TEST_F(CliInstallTest, PreparesHighPerformanceModeForActionFourButStartsNothing) {
  program.gCliAction = 4;
  install();
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCReadNWrite"), LinesAre({kIni + "5 -> 1"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCCreate"),
              LinesAre({R"(qrvCCreateConfigurationFile C:\I\RemoteInstaller\remins HOST1 C:\A 5 -> 1)"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCInstall"), IsEmpty());
  EXPECT_THAT(log(), LinesAre({kUnknown710}));
}

TEST_F(CliInstallTest, TakesModeZeroForAnyOtherAction) {
  program.gCliAction = 3;
  install();
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCReadNWrite"), LinesAre({kIni + "1 -> 1"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCCreate"),
              LinesAre({R"(qrvCCreateConfigurationFile C:\I\RemoteInstaller\remins HOST1 C:\A 0 -> 1)"}));
}

TEST_F(CliInstallTest, UsesAnEmptyFolderWhenTheInstallPathIsUnknown) {
  program.gInstallerDir.clear();
  install();
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCInstall"),
              ElementsAre(testing::HasSubstr(R"(] \remins -> 7)")));
}

// Run-time errors: each is logged, and the next statement runs with the result 0.

TEST_F(CliInstallTest, ResumesAfterAnErrorWhileTheNameIsResolved) {
  raiseFrom("qrvGetSystemIPAddress");
  install();
  EXPECT_THAT(log(), LinesAre({erred("53 Descr: No library."), erred("53 Descr: No library."),
                               failed("Could not resolve the IP Address for the system.")}));
  EXPECT_EQ(libraryCalls().back(), "qrvGetSystemIPAddress");
}

TEST_F(CliInstallTest, TakesAnErrorWhileTheComputerIsRegisteredForNoAnswer) {
  for (const char* function : {"qrvFindSystemAndReturnDetails", "qrvUpdateSystemDetailsInDB"}) {
    fake.libraries.failures.clear();
    raiseFrom(function);
    fake.files.remove(kLog);
    install();
    EXPECT_EQ(libraryCalls().back(), function);
    EXPECT_THAT(log(), LinesAre({erred("53 Descr: No library."), kNotResponding}));
  }
}

TEST_F(CliInstallTest, TakesAnErrorInAPreparationForItsFailure) {
  const std::pair<const char*, std::string> rows[] = {
      {"qrvCReadNWriteVhaConfigINI4Turbo", kUnknown710},
      {"qrvCCreateConfigurationFile", failed("Could not create the configuration file on the local system.")},
      {"qrvCInstall", kUnknown710},
  };
  for (const auto& [function, words] : rows) {
    fake.libraries.failures.clear();
    raiseFrom(function);
    fake.files.remove(kLog);
    install();
    EXPECT_EQ(libraryCalls().back(), function);
    EXPECT_THAT(log(), LinesAre({erred("53 Descr: No library."), words}));
  }
}

TEST_F(CliInstallTest, TakesAnInventoryWithoutComputersTableForNoAnswer) {
  inventory.execute("DROP TABLE System_Table");
  install();
  EXPECT_THAT(log(), ElementsAre(StartsWith(erred("-2147")), kNotResponding));
}

TEST_F(CliInstallTest, LogsThatTheAgentCouldNotBeRecordedBehindTheSuccess) {
  inventory.execute("DROP TABLE Module_Table");
  install();
  const auto lines = log();
  ASSERT_GE(lines.size(), 3u);
  EXPECT_EQ(lines.front(), "HOST1: Installed successfully");
  EXPECT_THAT(Lines(lines.begin() + 1, lines.end()), testing::Each(StartsWith(erred("-2147"))));
  EXPECT_THAT(statements().back(), StartsWith("SQL: INSERT INTO Module_Table"));
}

TEST_F(CliInstallTest, BreaksItsStatementsAtAnApostropheAndTouchesNothing) {
  fake.libraries.computers["O'BRIEN"] = {};
  install("O'BRIEN");
  EXPECT_THAT(log(),
              ElementsAre(StartsWith("Error occurred while installing agent on O'BRIEN. ERROR : -2147"),
                          "Failed to install on O'BRIEN. System not responding."));
  EXPECT_THAT(inventory.computers(), IsEmpty());
}

TEST_F(CliInstallTest, LogsAnErrorOfTheLogAndGoesOn) {
  fake.files.refuseSome(kLog, 0, 1, platform::FileOutcome::Full);
  install();
  EXPECT_THAT(log(), ElementsAre(AllOf(StartsWith(erred("61 Descr: ")), testing::HasSubstr(kLog))));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\A|0|0)"}));
}

TEST_F(CliInstallTest, RaisesWhenItsErrorCannotBeLogged) {
  fake.files.refuse(kLog, platform::FileOutcome::Full);
  EXPECT_THROW(install(), RuntimeError);
  EXPECT_EQ(fakes::linesOf(fake.journal, "append").size(), 2u);
  EXPECT_THAT(inventory.agents(), IsEmpty());
}

TEST_F(CliInstallTest, GoesOnWithTheNextComputerAfterAnError) {
  fake.libraries.computers["O'BRIEN"] = {};
  fake.files.put(R"(C:\VARNHOLD\LIST.TXT)", "O'BRIEN\nHOST1");
  run("-I -F:LIST.TXT");
  EXPECT_EQ(log().back(), "HOST1: Installed successfully");
}

TEST_F(CliInstallTest, MakesEveryComputersJobAnew) {
  fake.libraries.computers["HOST2"] = {};
  fake.libraries.onJob = [](platform::DeploymentJob& job) {
    job.ServiceUser = "changed";
    job.InstallDirectory = "changed";
  };
  install("HOST1");
  install("HOST2");
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCInstall").back(),
              StartsWith(R"(qrvCInstall [SystemName=HOST2, InstallDirectory=C:\A, AgentMode=1] )"));
}

}  // namespace
}  // namespace varnhold::startup
