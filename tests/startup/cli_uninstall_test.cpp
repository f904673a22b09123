// One computer's uninstall: what is asked of the library and the inventory, in order, and what the log says.
#include "base/runtime_error.h"
#include "tests/fakes/lines_are.h"
#include "tests/startup/installer_fixture.h"

namespace varnhold::startup {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class CliUninstallTest : public InstallerTest {
 protected:
  CliUninstallTest() {
    program.gCliAction = 2;
    knowHost1();
  }
  void uninstall(const std::string& name = "HOST1") { CliUninstall(program, name); }
  static std::string failed(const std::string& words) {
    return "Could not uninstall Varnhold Agent on HOST1. Error: " + words;
  }
};

TEST_F(CliUninstallTest, UninstallsStepByStep) {
  inventory.addAgent("HOST1", 1);
  uninstall();
  EXPECT_THAT(
      fake.journal,
      LinesAre(
          {"qrvGetSystemIPAddress HOST1 -> 1",
           "SQL: SELECT * FROM Module_Table WHERE (System_Name = 'HOST1' AND Module_ID = 1)",
           R"(qrvCUninstall [SystemName=\\HOST1] C:\I\RemoteInstaller\remins -> 7)",
           "GetExitCodeThread 7 -> 1152", "CloseHandle 7",
           "SQL: DELETE FROM Module_Table WHERE System_Name = 'HOST1' AND (Module_ID = 1 OR Module_ID = 5)",
           logged("HOST1: Agent uninstalled successfully.")}));
  EXPECT_THAT(inventory.agents(), IsEmpty());
}

TEST_F(CliUninstallTest, ForgetsBothModesAndNoOtherAgentOrComputer) {
  for (const int module : {1, 2, 5}) inventory.addAgent("HOST1", module);
  inventory.addAgent("HOST2", 1);
  uninstall();
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|2|C:\OLD|0|0)", R"(HOST2|1|C:\OLD|0|0)"}));
  EXPECT_THAT(inventory.computers(), LinesAre({"HOST1|7"}));
}

TEST_F(CliUninstallTest, TellsTheLibraryThatTheAgentIsAgentless) {
  inventory.addAgent("HOST1", 1, 1);
  uninstall();
  EXPECT_THAT(
      fakes::linesOf(fake.journal, "qrvCUninstall"),
      LinesAre({R"(qrvCUninstall [SystemName=\\HOST1, AgentKind=1] C:\I\RemoteInstaller\remins -> 7)"}));
}

TEST_F(CliUninstallTest, PollsTheJobEvery200Milliseconds) {
  host1().polls = 1;
  uninstall();
  EXPECT_THAT(
      fakes::linesWithout(fake.journal, {"qrv", "SQL", "append"}),
      LinesAre({"GetExitCodeThread 7 -> 259", "Sleep 200", "GetExitCodeThread 7 -> 1152", "CloseHandle 7"}));
}

TEST_F(CliUninstallTest, SkipsTheManagersOwnComputerInAnyCase) {
  uninstall("manager");
  EXPECT_THAT(fake.journal,
              LinesAre({logged("Uninstallation skipped for manager. Because Varnhold Manager is "
                               "running on this system.")}));
}

TEST_F(CliUninstallTest, GoesOnUnderTheNameThatTheLibraryWritesBack) {
  inventory.addAgent("HOST1", 1);
  fake.libraries.computers["10.1.1.1"].nameWrittenBack = std::string("HOST1\0\0", 7);
  uninstall("10.1.1.1");
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCUninstall"),
              ElementsAre(StartsWith(R"(qrvCUninstall [SystemName=\\HOST1])")));
  EXPECT_THAT(inventory.agents(), IsEmpty());
}

TEST_F(CliUninstallTest, GoesOnWithTheNameAsItIsWhenItDoesNotResolve) {
  host1().address.reset();
  uninstall(std::string("HOST1\0X", 7));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCUninstall"),
              LinesAre({R"(qrvCUninstall [SystemName=\\HOST1<NUL>X] C:\I\RemoteInstaller\remins -> 7)"}));
}

TEST_F(CliUninstallTest, LeavesTheResultOfAMissingThreadAtZero) {
  inventory.addAgent("HOST1", 1);
  host1().startsThreads = false;
  uninstall();
  EXPECT_THAT(fakes::linesOf(fake.journal, "GetExitCodeThread"), IsEmpty());
  EXPECT_THAT(log(), LinesAre({failed("Unknown error.")}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\OLD|0|0)"}));
}

TEST_F(CliUninstallTest, WordsEveryOtherResultAsAFailureAndKeepsTheRow) {
  inventory.addAgent("HOST1", 1);
  const std::pair<std::uint32_t, const char*> failures[] = {
      {1181, "Failed to create service because of a circular dependency."},
      {1150, "Unknown error."},
      {0, "Unknown error."},
  };
  for (const auto& [exitCode, words] : failures) {
    host1().uninstallExit = exitCode;
    fake.files.remove(kLog);
    uninstall();
    EXPECT_THAT(log(), LinesAre({failed(words)}));
  }
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|C:\OLD|0|0)"}));
}

TEST_F(CliUninstallTest, LeavesTheHandleOpenWhenThePollFails) {
  fake.threads.failsGetExitCode = true;
  uninstall();
  EXPECT_THAT(log(), LinesAre({failed("Unknown error.")}));
  EXPECT_EQ(fake.threads.openHandles().size(), 1u);
}

// Run-time errors: the computer is given up, and the line says "installing" too.

TEST_F(CliUninstallTest, GivesTheComputerUpAfterAnError) {
  for (const char* function : {"qrvGetSystemIPAddress", "qrvCUninstall"}) {
    fake.libraries.failures.clear();
    raiseFrom(function);
    fake.files.remove(kLog);
    uninstall();
    EXPECT_EQ(libraryCalls().back(), function);
    EXPECT_THAT(log(), LinesAre({"Error occurred while installing agent on HOST1. Error:No library."}));
  }
}

TEST_F(CliUninstallTest, SaysNothingOfASuccessThatItCouldNotRecord) {
  inventory.execute("DROP TABLE Module_Table");
  uninstall();
  EXPECT_THAT(log(), ElementsAre(StartsWith("Error occurred while installing agent on HOST1. Error:")));
}

TEST_F(CliUninstallTest, BreaksItsStatementAtAnApostrophe) {
  fake.libraries.computers["O'BRIEN"] = {};
  uninstall("O'BRIEN");
  EXPECT_EQ(libraryCalls().back(), "qrvCUninstall");
  EXPECT_THAT(log(), ElementsAre(StartsWith("Error occurred while installing agent on O'BRIEN. Error:")));
}

TEST_F(CliUninstallTest, RaisesWhenItsErrorCannotBeLogged) {
  fake.files.refuse(kLog, platform::FileOutcome::Full);
  EXPECT_THROW(uninstall(), RuntimeError);
  EXPECT_EQ(fakes::linesOf(fake.journal, "append").size(), 2u);
}

TEST_F(CliUninstallTest, GoesOnWithTheNextComputerAfterAnError) {
  fake.files.put(R"(C:\VARNHOLD\LIST.TXT)", "O'BRIEN\nHOST1");
  fake.libraries.computers["O'BRIEN"] = {};
  run("-U -F:LIST.TXT");
  EXPECT_EQ(log().back(), "HOST1: Agent uninstalled successfully.");
}

}  // namespace
}  // namespace varnhold::startup
