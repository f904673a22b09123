#include "startup/mdMain.h"

#include <gmock/gmock.h>

#include "base/runtime_error.h"
#include "core/mdCommon.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::startup {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class MainTest : public testing::Test {
 protected:
  int main() {
    return runProcess(program, [this](core::Program& given) {
      EXPECT_EQ(&given, &program);
      fake.journal.push_back("console");
      return 42;
    });
  }

  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle, fake.statementListener()};
};

TEST_F(MainTest, RunsTheConsoleOnAnEmptyCommandLine) {
  EXPECT_EQ(main(), 42);
  EXPECT_THAT(
      fake.journal,
      LinesAre({"PreviousInstance Varnhold - System Manager -> no",
                R"(SetCurrentDirectory C:\VARNHOLD -> yes)",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\Quorvane\DBPath -> KeyMissing)", "console"}));
  EXPECT_FALSE(program.gConn.isOpen());
}

TEST_F(MainTest, EndsWithAMessageWhenTheWorkingDirectoryCannotBeSet) {
  fake.environment.acceptsDirectory = false;
  for (const char* arguments : {"", "-I -N:HOST1"}) {
    fake.journal.clear();
    fake.environment.arguments = arguments;
    EXPECT_EQ(main(), 1);
    EXPECT_THAT(fakes::linesWithout(fake.journal, {"PreviousInstance"}),
                LinesAre({R"(SetCurrentDirectory C:\VARNHOLD -> no)",
                          "MessageBox critical system modal: Could not set the working directory. "
                          "Aborting..."}));
  }
}

TEST_F(MainTest, ClearsTheMarkOfAClosingConsole) {
  program.gClosing = true;
  main();
  EXPECT_FALSE(program.gClosing);
}

/// Another console runs.
class SecondInstanceTest : public MainTest {
 protected:
  SecondInstanceTest() { fake.desktop.otherInstances.insert("Varnhold - System Manager"); }

  static constexpr const char* kMessage =
      "MessageBox exclamation: You are already running an instance of 'Quorvane Management Console'. Please "
      "switch to it manually as error was encountered while trying to switch to the previous instance.";
};

TEST_F(SecondInstanceTest, BringsTheFirstToTheFrontMaximisedAndEndsSilently) {
  fake.desktop.windows["Varnhold - System Manager "] = {};
  EXPECT_EQ(main(), 0);
  EXPECT_THAT(fake.journal, LinesAre({"PreviousInstance Varnhold - System Manager -> yes",
                                      "FindWindow Varnhold - System Manager  -> 5",
                                      "SetForegroundWindow 5 -> yes", "ShowWindow 5 3 -> yes"}));
}

TEST_F(SecondInstanceTest, LooksForTheTitleWithItsBlank) {
  fake.desktop.windows["Varnhold - System Manager"] = {};
  EXPECT_EQ(main(), 0);
  EXPECT_THAT(fake.journal, LinesAre({"PreviousInstance Varnhold - System Manager -> yes",
                                      "FindWindow Varnhold - System Manager  -> 0", kMessage}));
}

TEST_F(SecondInstanceTest, SaysSoWhereTheFirstDoesNotComeToTheFront) {
  fake.desktop.windows["Varnhold - System Manager "] = {.visible = true, .takesForeground = false};
  EXPECT_EQ(main(), 0);
  EXPECT_THAT(fake.journal, LinesAre({"PreviousInstance Varnhold - System Manager -> yes",
                                      "FindWindow Varnhold - System Manager  -> 5",
                                      "SetForegroundWindow 5 -> no", kMessage}));
}

TEST_F(SecondInstanceTest, CountsAFirstThatWasNotVisibleAsAFailure) {
  fake.desktop.windows["Varnhold - System Manager "] = {.visible = false, .takesForeground = true};
  EXPECT_EQ(main(), 0);
  EXPECT_EQ(fake.journal.back(), kMessage);
}

TEST_F(SecondInstanceTest, IsNotAskedForACommandLineEvenABlankOne) {
  fake.environment.acceptsDirectory = false;
  for (const char* arguments : {" ", "-I -N:HOST1"}) {
    fake.environment.arguments = arguments;
    main();
  }
  EXPECT_THAT(fakes::linesOf(fake.journal, "PreviousInstance"), ElementsAre());
}

TEST_F(MainTest, TakesTheProgramsFolderForAMissingDatabaseFolder) {
  main();
  EXPECT_EQ(program.gAppPath, R"(C:\VARNHOLD)");
  EXPECT_EQ(program.gDbPath, R"(C:\VARNHOLD)");
}

TEST_F(MainTest, TakesTheDatabaseFolderAsRead) {
  fake.registry.setText(core::kQuorvaneKey, "DBPath", R"(D:\DATA)");
  main();
  EXPECT_EQ(program.gDbPath, R"(D:\DATA)");
}

TEST_F(MainTest, TakesAnEmptyDatabaseFolderAsRead) {
  fake.registry.setText(core::kQuorvaneKey, "DBPath", "");
  main();
  EXPECT_EQ(program.gDbPath, "");
}

TEST_F(MainTest, ShowsARegistryThatCannotBeUnderstoodAndEndsWithOne) {
  fake.registry.damage = RuntimeError(kPathFileAccess, "registry.reg is no registry file.");
  EXPECT_EQ(main(), 1);
  EXPECT_EQ(fake.journal.back(), "MessageBox critical: Run-time error 75: registry.reg is no registry file.");
}

TEST_F(MainTest, EndsWithOneForADatabaseFolderThatFillsTheBufferWithoutNul) {
  fake.registry.setRaw(core::kQuorvaneKey, "DBPath", platform::kRegText, std::string(1024, 'x'));
  EXPECT_EQ(main(), 1);
  EXPECT_THAT(fake.journal.back(), testing::StartsWith("MessageBox critical: Run-time error 5: "));
}

class CommandLineModeTest : public MainTest {
 protected:
  CommandLineModeTest() { fake.environment.arguments = "-I"; }

  fakes::TestInventory inventory;
};

TEST_F(CommandLineModeTest, RunsTheCommandLineInItsDocumentedOrder) {
  fake.registry.setText(core::kManagerKey, "INSTALLPATH", R"(C:\Varnhold)");
  EXPECT_EQ(main(), 0);
  EXPECT_THAT(fake.journal,
              ElementsAre(R"(SetCurrentDirectory C:\VARNHOLD -> yes)",
                          R"(RegQueryValueEx SOFTWARE\Kelmont Works\Quorvane\DBPath -> KeyMissing)",
                          R"(RegQueryValueEx SOFTWARE\Kelmont Works\Varnhold\Manager\INSTALLPATH -> Done)",
                          "GetComputerName -> MANAGER", HasSubstr("Invalid command line parameter.")));
  EXPECT_TRUE(program.gConn.isOpen());
}

TEST_F(CommandLineModeTest, CountsABlankCommandLineAsOne) {
  fake.environment.arguments = " ";
  EXPECT_EQ(main(), 0);
  EXPECT_THAT(fake.journal.back(), HasSubstr("Invalid command line parameter."));
}

TEST_F(CommandLineModeTest, SetsThePathsThatComeFromTheInstallFolder) {
  fake.registry.setText(core::kManagerKey, "INSTALLPATH", R"(C:\Program Files\Varnhold)");
  main();
  EXPECT_EQ(program.gEventsConsole, R"("C:\Program Files\Varnhold\VHConsole.exe")");
  EXPECT_EQ(program.gInstallerDir, R"(C:\Program Files\Varnhold\RemoteInstaller)");
}

TEST_F(CommandLineModeTest, LeavesThePathsEmptyWithoutInstallFolder) {
  EXPECT_EQ(main(), 0);
  EXPECT_EQ(program.gEventsConsole, "");
  EXPECT_EQ(program.gInstallerDir, "");
}

TEST_F(CommandLineModeTest, LeavesTheConsolesOwnPathsAlone) {
  fake.registry.setText(core::kManagerKey, "SWINSTALLPATH", R"(C:\Traps)");
  fake.registry.setText(core::kWindowsChangesKey, "LocalRootDir", R"(C:\Changes)");
  main();
  EXPECT_EQ(program.gTrapsConsole, "");
  EXPECT_EQ(program.gChangesConsole, "");
  EXPECT_EQ(program.gChangesRoot, "");
  EXPECT_EQ(program.gChangesName, "");
}

TEST_F(CommandLineModeTest, CutsTheLocalNameAtItsFirstNul) {
  fake.environment.computerName = std::string("MANAGER\0\0X", 10);
  main();
  EXPECT_EQ(program.gLocalName, "MANAGER");
}

TEST_F(CommandLineModeTest, CallsAComputerWithoutNameLocalHost) {
  fake.environment.computerName = std::nullopt;
  main();
  EXPECT_EQ(program.gLocalName, "LocalHost");
}

TEST_F(CommandLineModeTest, ShowsADataSourceThatCannotBeOpenedAndEndsWithOne) {
  inventory.takeAway();
  EXPECT_EQ(main(), 1);
  EXPECT_THAT(fake.journal.back(), testing::StartsWith("MessageBox critical: Run-time error -2147467259: "));
  EXPECT_THAT(fakes::linesOf(fake.journal, "append"), ElementsAre());
}

TEST_F(CommandLineModeTest, EndsWithOneWhenTheLogCannotBeWritten) {
  fake.files.refuse(R"(C:\VARNHOLD\AILog.txt)", platform::FileOutcome::Full);
  EXPECT_EQ(main(), 1);
  EXPECT_THAT(fake.journal.back(), testing::StartsWith("MessageBox critical: Run-time error 61: "));
}

}  // namespace
}  // namespace varnhold::startup
