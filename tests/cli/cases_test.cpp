// One table of command lines, held against the real program on every host: what it logs, what it asks of the
// companion library in which order, and what the inventory holds afterwards.
#include <gmock/gmock.h>

#include "base/text.h"
#include "tests/cli/process.h"
#include "tests/cli/stage.h"

namespace varnhold::cli {
namespace {

using testing::ElementsAreArray;

struct Computer {
  std::string name, hostIni;
};

struct Case {
  std::string name;
  std::vector<Computer> lab;
  std::vector<std::string> statements;  // the inventory before the run
  std::string listFile;                 // list.txt in the home, when not empty
  std::vector<std::string> arguments;
  std::vector<std::string> log, calls, computers, agents;  // expected
};

std::ostream& operator<<(std::ostream& out, const Case& c) {
  return out << c.name;
}

const std::string kHost1 = "[host]\naddress = 10.1.1.11\ntype = 7\nos_major = 5\nanswers = yes\n";
const std::string kHost2 = "[host]\naddress = 10.1.1.12\ntype = 4\nos_major = 4\nanswers = yes\n";
const std::string kSilent = "[host]\naddress = 10.1.1.13\ntype = 7\nos_major = 5\nanswers = no\n";
const std::string kNoAddress = "[host]\ntype = 7\nos_major = 5\nanswers = yes\n";
const std::string kPath = R"(%Program Files%\Kelmont Works\Varnhold)";

const std::string kIni =
    R"(qrvCReadNWriteVhaConfigINI4Turbo(<home>\RemoteInstaller\Agent\vhagent, <home>\RemoteInstaller\Agent, )"
    R"(<home>\RemoteInstaller\Agent\vhaconfig.ini, 1) = )";

std::string setup(const std::string& name, const std::string& path, const std::string& result) {
  return R"(qrvCCreateConfigurationFile(<home>\RemoteInstaller\remins, )" + name + ", " + path +
         ", 1) = " + result;
}

std::string install(const std::string& name, const std::string& path, const std::string& result) {
  return "qrvCInstall(SystemName=" + name + " InstallDirectory=" + path +
         R"( OSFlag=0 AgentKind=0 AgentMode=1 RemedialFlag=0 UseDefaultConfig=0, <home>\RemoteInstaller\remins) = )" +
         result;
}

std::string uninstall(const std::string& name, const std::string& kind, const std::string& result) {
  return R"(qrvCUninstall(SystemName=\\)" + name + " InstallDirectory= OSFlag=0 AgentKind=" + kind +
         R"( AgentMode=0 RemedialFlag=0 UseDefaultConfig=0, <home>\RemoteInstaller\remins) = )" + result;
}

std::string resolves(const std::string& name, const std::string& result) {
  return "qrvGetSystemIPAddress(" + name + ") = " + result;
}

const std::string kFound1 = "qrvFindSystemAndReturnDetails(HOST1, 1) = found";
const std::string kStored1 = "qrvUpdateSystemDetailsInDB(HOST1, 7) = done";
const std::string kResolves1 = resolves("HOST1", "HOST1 10.1.1.11");
const std::string kResolves2 = resolves("HOST2", "HOST2 10.1.1.12");
const std::string kRow1 = "HOST1|7|10.1.1.11";
const std::string kRow2 = "HOST2|4|10.1.1.12";

std::string knows(const std::string& name, int type, const std::string& address) {
  return "INSERT INTO System_Table (System_Name, System_Type, IP_Address, System_Description) VALUES ('" +
         name + "', " + std::to_string(type) + ", '" + address + "', '')";
}

std::string hasAgent(const std::string& name, int module, int agentless) {
  return "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual, Agentless) VALUES ('" +
         name + "', " + std::to_string(module) + ", 'C:\\OLD', 0, " + std::to_string(agentless) + ")";
}

const std::string kKnows1 = knows("HOST1", 7, "10.1.1.11");
const std::string kKnows2 = knows("HOST2", 4, "10.1.1.12");

const std::vector<std::string> kUsage = {
    "<time> :: Invalid command line parameter.",
    "Usage: AgentInstaller.exe -I/-U -N:<System>/-F:<FileName> [-P:<Install Path>]",
    "-I : Agent Installation(Agent based)",
    "-U : Agent Uninstallation",
    "-N : System Name or IP address",
    "-F : Filename Containing System List",
    "-P : Install path. Applicable only for agent installation.",
};

std::vector<Case> cases() {
  const auto local = toUpper(computerName());
  return {
      {"AnUnknownComputerIsRegisteredAndGetsItsAgent",
       {{"HOST1", kHost1}},
       {},
       "",
       {"-I", "-N:host1"},
       {"<time> :: HOST1: Installed successfully"},
       {kResolves1, kFound1, kStored1, kResolves1, kIni + "done", setup("HOST1", kPath, "1"),
        install("HOST1", kPath, "thread")},
       {kRow1},
       {"HOST1|1|" + kPath + "|0|0"}},

      {"AKnownComputerIsNotAskedForItsDetails",
       {{"HOST1", kHost1}},
       {kKnows1},
       "",
       {"-i", "-n:HOST1"},
       {"<time> :: HOST1: Installed successfully"},
       {kResolves1, kResolves1, kIni + "done", setup("HOST1", kPath, "1"), install("HOST1", kPath, "thread")},
       {kRow1},
       {"HOST1|1|" + kPath + "|0|0"}},

      {"TheBlankBeforeThePathGoesWithTheName",
       {{"HOST1", kHost1}},
       {kKnows1},
       "",
       {"-I", "-N:host1", R"(-P:D:\Apps\Agent)"},
       {"<time> :: HOST1: Installed successfully"},
       {resolves("HOST1 ", "HOST1 10.1.1.11"), kResolves1, kIni + "done",
        setup("HOST1", R"(D:\APPS\AGENT)", "1"), install("HOST1 ", R"(D:\APPS\AGENT)", "thread")},
       {kRow1},
       {R"(HOST1|1|D:\APPS\AGENT|0|0)"}},

      {"AnAddressIsInstalledUnderTheNameThatTheNetworkGives",
       {{"HOST1", kHost1}},
       {kKnows1},
       "",
       {"-I", "-N:10.1.1.11"},
       {"<time> :: HOST1: Installed successfully"},
       {resolves("10.1.1.11", "HOST1 10.1.1.11"), kResolves1, kIni + "done", setup("HOST1", kPath, "1"),
        install("10.1.1.11", kPath, "thread")},
       {kRow1},
       {"HOST1|1|" + kPath + "|0|0"}},

      {"AnAgentRowThatIsThereIsChangedAndNotDoubled",
       {{"HOST1", kHost1}},
       {kKnows1, hasAgent("HOST1", 1, 0)},
       "",
       {"-I", "-N:HOST1"},
       {"<time> :: HOST1: Installed successfully"},
       {kResolves1, kResolves1, kIni + "done", setup("HOST1", kPath, "1"), install("HOST1", kPath, "thread")},
       {kRow1},
       {"HOST1|1|" + kPath + "|0|0"}},

      {"AWarningIsASuccessThatSaysWhat",
       {{"HOST1", kHost1 + "[result]\ninstall = 232\n"}},
       {kKnows1},
       "",
       {"-I", "-N:HOST1"},
       {"<time> :: HOST1: Installed successfully. Warning: Could not start the service automatically. Please "
        "try manually."},
       {kResolves1, kResolves1, kIni + "done", setup("HOST1", kPath, "1"), install("HOST1", kPath, "thread")},
       {kRow1},
       {"HOST1|1|" + kPath + "|0|0"}},

      {"SecurityThatWasNotConfiguredIsAWarningToo",
       {{"HOST1", kHost1 + "[result]\ninstall = 167\n"}},
       {kKnows1},
       "",
       {"-I", "-N:HOST1"},
       {"<time> :: HOST1: Installed successfully. Warning: Failed to configure security. Please apply "
        "security settings."},
       {kResolves1, kResolves1, kIni + "done", setup("HOST1", kPath, "1"), install("HOST1", kPath, "thread")},
       {kRow1},
       {"HOST1|1|" + kPath + "|0|0"}},

      {"ARefusedServiceIsWordedAndLeavesNoAgentRow",
       {{"HOST1", kHost1 + "[result]\ninstall = 180\n"}},
       {kKnows1},
       "",
       {"-I", "-N:HOST1"},
       {"<time> :: Failed to install on HOST1. Error: Failed to create service. This may be due to "
        "insufficient permission or network problems."},
       {kResolves1, kResolves1, kIni + "done", setup("HOST1", kPath, "1"), install("HOST1", kPath, "thread")},
       {kRow1},
       {}},

      {"AMissingThreadOnInstallIsCode710",
       {{"HOST1", kHost1 + "[no_thread]\ninstall = yes\n"}},
       {kKnows1},
       "",
       {"-I", "-N:HOST1"},
       {"<time> :: Failed to install on HOST1. Error: Unknown error. This may be due to insufficient "
        "permission or network problems."},
       {kResolves1, kResolves1, kIni + "done", setup("HOST1", kPath, "1"),
        install("HOST1", kPath, "no thread")},
       {kRow1},
       {}},

      {"AMissingThreadOnUninstallStaysZero",
       {{"HOST1", kHost1 + "[no_thread]\nuninstall = yes\n"}},
       {kKnows1, hasAgent("HOST1", 1, 0)},
       "",
       {"-U", "-N:HOST1"},
       {"<time> :: Could not uninstall Varnhold Agent on HOST1. Error: Unknown error."},
       {kResolves1, uninstall("HOST1", "0", "no thread")},
       {kRow1},
       {R"(HOST1|1|C:\OLD|0|0)"}},

      {"AConfigurationFileThatCannotBeWrittenIsCode801",
       {{"HOST1", kHost1 + "[result]\nconfiguration_file = 0\n"}},
       {kKnows1},
       "",
       {"-I", "-N:HOST1"},
       {"<time> :: Failed to install on HOST1. Error: Could not create the configuration file on the local "
        "system."},
       {kResolves1, kResolves1, kIni + "done", setup("HOST1", kPath, "0")},
       {kRow1},
       {}},

      {"AComputerThatDoesNotAnswerIsNotRegistered",
       {{"HOST1", kSilent}},
       {},
       "",
       {"-I", "-N:HOST1"},
       {"<time> :: Failed to install on HOST1. System not responding."},
       {resolves("HOST1", "HOST1 10.1.1.13"), "qrvFindSystemAndReturnDetails(HOST1, 1) = not found"},
       {},
       {}},

      {"AKnownComputerWithoutAnAddressIsCode800",
       {{"HOST1", kNoAddress}},
       {kKnows1},
       "",
       {"-I", "-N:HOST1"},
       {"<time> :: Failed to install on HOST1. Error: Could not resolve the IP Address for the system."},
       {resolves("HOST1", "not resolved"), resolves("HOST1", "not resolved")},
       {kRow1},
       {}},

      {"TheManagersOwnComputerIsSkippedAndTheListGoesOn",
       {{"HOST1", kHost1}},
       {kKnows1},
       computerName() + "\r\nHOST1\r\n",
       {"-I", "-F:list.txt"},
       {"<time> :: Skipped: " + local +
            " - Manager (local computer). Varnhold Agent cannot be installed on local system. Because "
            "Manager is running on this system.",
        "<time> :: HOST1: Installed successfully"},
       {kResolves1, kResolves1, kIni + "done", setup(toUpper("host1"), kPath, "1"),
        install("HOST1", kPath, "thread")},
       {kRow1},
       {"HOST1|1|" + kPath + "|0|0"}},

      {"ANameInAListKeepsItsCaseAndIsAnotherNameToTheInventory",
       {{"HOST1", kHost1}},
       {kKnows1},
       "Host1",
       {"-I", "-F:list.txt"},
       {"<time> :: Host1: Installed successfully"},
       {resolves("Host1", "Host1 10.1.1.11"), "qrvFindSystemAndReturnDetails(Host1, 1) = found",
        "qrvUpdateSystemDetailsInDB(Host1, 7) = done", resolves("Host1", "Host1 10.1.1.11"), kIni + "done",
        setup("Host1", kPath, "1"), install("Host1", kPath, "thread")},
       {kRow1, "Host1|7|10.1.1.11"},
       {"Host1|1|" + kPath + "|0|0"}},

      {"TheManagersOwnComputerIsNotUninstalled",
       {},
       {},
       "",
       {"-U", "-N:" + computerName()},
       {"<time> :: Uninstallation skipped for " + local +
        ". Because Varnhold Manager is running on this system."},
       {},
       {},
       {}},

      {"AnUninstallTakesTheRowsOfBothModulesAway",
       {{"HOST1", kHost1 + "[result]\nuninstall = 152\n"}},
       {kKnows1, hasAgent("HOST1", 1, 0), hasAgent("HOST1", 2, 0), hasAgent("HOST1", 5, 0)},
       "",
       {"-U", "-N:HOST1"},
       {"<time> :: HOST1: Agent uninstalled successfully."},
       {kResolves1, uninstall("HOST1", "0", "thread")},
       {kRow1},
       {R"(HOST1|2|C:\OLD|0|0)"}},

      {"AnAgentlessComputerIsUninstalledAsAgentless",
       {{"HOST1", kHost1}},
       {kKnows1, hasAgent("HOST1", 1, 1)},
       "",
       {"-U", "-N:HOST1"},
       {"<time> :: HOST1: Agent uninstalled successfully."},
       {kResolves1, uninstall("HOST1", "1", "thread")},
       {kRow1},
       {}},

      {"AFailedUninstallKeepsTheRow",
       {{"HOST1", kHost1 + "[result]\nuninstall = 151\n"}},
       {kKnows1, hasAgent("HOST1", 1, 0)},
       "",
       {"-U", "-N:HOST1"},
       {"<time> :: Could not uninstall Varnhold Agent on HOST1. Error: Communication with the remote host "
        "timed out. If the install was successful before communication was lost events from the remote host "
        "will be received."},
       {kResolves1, uninstall("HOST1", "0", "thread")},
       {kRow1},
       {R"(HOST1|1|C:\OLD|0|0)"}},

      {"OneComputersFailureDoesNotStopTheNextOfTheList",
       {{"HOST1", kSilent}, {"HOST2", kHost2}},
       {kKnows2},
       "HOST1\nHOST2",
       {"-I", "-F:list.txt"},
       {"<time> :: Failed to install on HOST1. System not responding.",
        "<time> :: HOST2: Installed successfully"},
       {resolves("HOST1", "HOST1 10.1.1.13"), "qrvFindSystemAndReturnDetails(HOST1, 1) = not found",
        kResolves2, kResolves2, kIni + "done", setup("HOST2", kPath, "1"), install("HOST2", kPath, "thread")},
       {kRow2},
       {"HOST2|1|" + kPath + "|0|0"}},

      {"ALineWithACommaCountsAsTwoComputers",
       {{"HOST1", kHost1}, {"HOST2", kHost2}},
       {kKnows1, kKnows2, hasAgent("HOST1", 1, 1), hasAgent("HOST2", 1, 1)},
       "HOST1,HOST2\r\n\r\n   \r\n",
       {"-U", "-F:list.txt"},
       {"<time> :: HOST1: Agent uninstalled successfully.",
        "<time> :: HOST2: Agent uninstalled successfully."},
       {kResolves1, uninstall("HOST1", "1", "thread"), kResolves2, uninstall("HOST2", "1", "thread")},
       {kRow1, kRow2},
       {}},

      {"AnEmptyListEndsWithoutAWord", {}, {}, "\n", {"-I", "-F:list.txt"}, {}, {}, {}, {}},

      {"AMissingListIsSaid",
       {},
       {},
       "",
       {"-I", "-F:nosuch.txt"},
       {"<time> :: File not found. Unable to load system list."},
       {},
       {},
       {}},

      {"ANameThatHoldsTheInstallSwitchInstalls",
       {{"X-IB", kNoAddress}},
       {knows("X-IB", 7, "")},
       "",
       {"-U", "-N:X-IB"},
       {"<time> :: Failed to install on X-IB. Error: Could not resolve the IP Address for the system."},
       {resolves("X-IB", "not resolved"), resolves("X-IB", "not resolved")},
       {"X-IB|7|"},
       {}},

      {"WithoutAnActionTheUsageIsLogged", {}, {}, "", {"-N:HOST1"}, kUsage, {}, {}, {}},
      {"WithoutATargetTheUsageIsLogged", {}, {}, "", {"-I"}, kUsage, {}, {}, {}},
      {"AnEmptyNameIsSaid", {}, {}, "", {"-I", "-N:"}, {"<time> :: No system name specified."}, {}, {}, {}},
      {"AnEmptyFileNameIsSaid", {}, {}, "", {"-U", "-F:"}, {"<time> :: No file name specified."}, {}, {}, {}},

      {"APathBeforeTheTargetIsAnError",
       {{"HOST1", kHost1}},
       {kKnows1},
       "",
       {"-I", R"(-P:D:\APPS)", "-N:HOST1"},
       {"<time> :: Error : [5] : Invalid procedure call or argument"},
       {},
       {kRow1},
       {}},
  };
}

class CommandLine : public testing::TestWithParam<Case> {};

TEST_P(CommandLine, LogsCallsAndRecordsAsDocumented) {
  const auto& expected = GetParam();
  Stage stage;
  for (const auto& computer : expected.lab) stage.addComputer(computer.name, computer.hostIni);
  for (const auto& statement : expected.statements) Stage::execute(statement);
  if (!expected.listFile.empty()) stage.writeFile("list.txt", expected.listFile);

  const auto outcome = stage.run(expected.arguments);

  EXPECT_EQ(outcome.exitStatus, 0);
  EXPECT_EQ(outcome.standardError, "");
  EXPECT_THAT(outcome.log, ElementsAreArray(expected.log));
  EXPECT_THAT(outcome.calls, ElementsAreArray(expected.calls));
  EXPECT_THAT(Stage::computers(), ElementsAreArray(expected.computers));
  EXPECT_THAT(Stage::agents(), ElementsAreArray(expected.agents));
}

INSTANTIATE_TEST_SUITE_P(OnThisHost, CommandLine, testing::ValuesIn(cases()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace varnhold::cli
