// What a command line makes of computers, and what the log says where it makes nothing of it.
#include "base/runtime_error.h"
#include "tests/fakes/lines_are.h"
#include "tests/startup/installer_fixture.h"

namespace varnhold::startup {
namespace {

using platform::FileOutcome;
using testing::ElementsAre;
using testing::HasSubstr;

class RunCommandLineTest : public InstallerTest {
 protected:
  void runOnList(const std::string& content, const std::string& arguments = "-U -F:LIST.TXT") {
    fake.files.put(R"(C:\VARNHOLD\LIST.TXT)", content);
    run(arguments);
  }
  /// The names that came to an uninstall.
  Lines uninstalled() const {
    Lines names;
    constexpr std::string_view kCall = "qrvGetSystemIPAddress ";
    for (const auto& line : fakes::linesOf(fake.journal, kCall)) {
      names.push_back(line.substr(kCall.size(), line.rfind(" -> ") - kCall.size()));
    }
    return names;
  }
};

TEST_F(RunCommandLineTest, WritesTheUsageBlockInOneOpening) {
  run("--help");
  EXPECT_EQ(fake.files.content(kLog),
            "1/31/2026 4:05:09 PM :: Invalid command line parameter.\r\n"
            "Usage: AgentInstaller.exe -I/-U -N:<System>/-F:<FileName> [-P:<Install Path>]\r\n"
            "-I : Agent Installation(Agent based)\r\n"
            "-U : Agent Uninstallation\r\n"
            "-N : System Name or IP address\r\n"
            "-F : Filename Containing System List\r\n"
            "-P : Install path. Applicable only for agent installation.\r\n");
  EXPECT_EQ(fake.journal.size(), 1u);
}

TEST_F(RunCommandLineTest, WritesTheUsageBlockWithoutTarget) {
  run("-I");
  EXPECT_THAT(fake.journal, ElementsAre(HasSubstr("Invalid command line parameter.")));
}

TEST_F(RunCommandLineTest, TellsThatNoSystemIsNamed) {
  run("-I -N:  -P:C:\\X");
  EXPECT_THAT(fake.journal, LinesAre({logged("No system name specified.")}));
}

TEST_F(RunCommandLineTest, TellsThatNoFileIsNamed) {
  run("-U -F: ");
  EXPECT_THAT(fake.journal, LinesAre({logged("No file name specified.")}));
}

TEST_F(RunCommandLineTest, TellsThatTheFileIsMissing) {
  run("-U -F:list.txt");
  EXPECT_THAT(fake.journal, LinesAre({R"(exists C:\VARNHOLD\LIST.TXT -> no)",
                                      logged("File not found. Unable to load system list.")}));
}

TEST_F(RunCommandLineTest, LogsAPathInFrontOfTheTargetAsAnError) {
  run("-I -P:C:\\X -N:HOST1");
  EXPECT_THAT(fake.journal, LinesAre({logged("Error : [5] : Invalid procedure call or argument")}));
}

TEST_F(RunCommandLineTest, LogsAListThatCannotBeReadAsAnError) {
  fake.files.makeUnreadable(R"(C:\VARNHOLD\LIST.TXT)");
  runOnList("HOST1");
  EXPECT_THAT(log(), ElementsAre(testing::AllOf(testing::StartsWith("Error : [70] : "),
                                                HasSubstr(R"(C:\VARNHOLD\LIST.TXT)"))));
}

TEST_F(RunCommandLineTest, AddsToTheLogOfEarlierRuns) {
  fake.files.put(kLog, "before\r\n");
  run("-I -N:");
  EXPECT_EQ(fake.files.content(kLog), "before\r\n" + kStamp + "No system name specified.\r\n");
}

TEST_F(RunCommandLineTest, RaisesWhenTheLogCannotBeWrittenInItsHandler) {
  fake.files.refuse(kLog, FileOutcome::Refused);
  try {
    run("-I -N:");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), kPermissionDenied);
    EXPECT_THAT(error.description(), HasSubstr(kLog));
  }
  EXPECT_EQ(fakes::linesOf(fake.journal, "append").size(), 2u);
}

TEST_F(RunCommandLineTest, LogsAWriteThatFailedOnceAsAnError) {
  fake.files.refuseSome(kLog, 0, 1, FileOutcome::Full);
  run("-I -N:");
  EXPECT_THAT(log(), ElementsAre(testing::StartsWith("Error : [61] : ")));
}

TEST_F(RunCommandLineTest, InstallsAComputerWhoseNameHoldsTheInstallSwitch) {
  fake.libraries.computers["X-IB"] = {};
  run("-U -N:X-IB");
  EXPECT_EQ(program.gCliAction, 1);
  EXPECT_THAT(log(), LinesAre({"X-IB: Installed successfully"}));
}

TEST_F(RunCommandLineTest, HandsTheUntrimmedNameOn) {
  run("-i -n:host1 -p:D:\\APPS\\AGENT");
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvCInstall"),
              LinesAre({R"(qrvCInstall [SystemName=HOST1 , InstallDirectory=D:\APPS\AGENT, AgentMode=1] )"
                        R"(C:\I\RemoteInstaller\remins -> 7)"}));
  EXPECT_THAT(log(), LinesAre({"HOST1 : Installed successfully"}));
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1 |1|D:\APPS\AGENT|0|0)"}));
}

TEST_F(RunCommandLineTest, LooksForTheListInTheProgramsFolderOnly) {
  fake.files.put(R"(C:\LIST.TXT)", "HOST1");
  run(R"(-U -F: C:\LIST.TXT )");
  EXPECT_THAT(fake.journal, LinesAre({R"(exists C:\VARNHOLD\C:\LIST.TXT -> no)",
                                      logged("File not found. Unable to load system list.")}));
}

TEST_F(RunCommandLineTest, HandlesAListInOrderAndGoesOnAfterAFailure) {
  fake.libraries.computers["A"].uninstallExit = 1180;
  fake.libraries.computers["C"] = {};
  runOnList("a\r\n\r\nb\r\nc");
  EXPECT_THAT(log(),
              LinesAre({"Could not uninstall Varnhold Agent on a. Error: Failed to create service. This may "
                        "be due to insufficient permission or network problems.",
                        "Could not uninstall Varnhold Agent on b. Error: Unknown error.",
                        "c: Agent uninstalled successfully."}));
}

TEST_F(RunCommandLineTest, SkipsTheLocalComputerInAListAndHandlesTheRest) {
  runOnList("manager\nHOST1\n", "-I -F:LIST.TXT");
  EXPECT_THAT(
      log(),
      LinesAre({"Skipped: manager - Manager (local computer). Varnhold Agent cannot be installed on local "
                "system. Because Manager is running on this system.",
                "HOST1: Installed successfully"}));
}

TEST_F(RunCommandLineTest, GivesEveryComputerOfAListTheSamePath) {
  fake.libraries.computers["HOST2"] = {};
  runOnList("HOST1\nHOST2\n", "-I -F:LIST.TXT -P:D:\\A");
  EXPECT_THAT(inventory.agents(), LinesAre({R"(HOST1|1|D:\A|0|0)", R"(HOST2|1|D:\A|0|0)"}));
}

TEST_F(RunCommandLineTest, SaysNothingAboutAnEmptyList) {
  for (const char* content : {"", "\r\n", " \n , ,\n", "\xEF\xBB\xBF"}) {
    runOnList(content);
    EXPECT_EQ(fake.files.content(kLog), std::nullopt) << content;
  }
}

TEST_F(RunCommandLineTest, CountsALineWithCommasAsSeveralComputersWithTheirBlanks) {
  runOnList("a, b ,c\n");
  EXPECT_THAT(uninstalled(), LinesAre({"a", " b ", "c"}));
}

TEST_F(RunCommandLineTest, KeepsTheLettersOfAList) {
  runOnList("\xEF\xBB\xBFHost-ä\r\nhost,x");
  EXPECT_THAT(uninstalled(), LinesAre({"Host-ä", "host", "x"}));
}

TEST_F(RunCommandLineTest, GivesANameOfAThousandCharactersOn) {
  const std::string name(1000, 'n');
  runOnList(name);
  EXPECT_THAT(log(), LinesAre({"Could not uninstall Varnhold Agent on " + name + ". Error: Unknown error."}));
}

TEST_F(RunCommandLineTest, GivesANameWithANulOn) {
  runOnList(std::string("HOST1\0X", 7), "-I -F:LIST.TXT");
  EXPECT_THAT(log(), LinesAre({"HOST1: Installed successfully"}));
  EXPECT_THAT(inventory.agents(), LinesAre({"HOST1|1|" + kPath + "|0|0"}));
}

TEST_F(RunCommandLineTest, ReadsAListOfTenMegabytes) {
  std::string content(10'000'000, ' ');
  content += "\r\nHOST1\r\n";
  runOnList(content);
  EXPECT_THAT(log(), LinesAre({"HOST1: Agent uninstalled successfully."}));
}

}  // namespace
}  // namespace varnhold::startup
