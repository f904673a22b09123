#include <gmock/gmock.h>

#include "companion/ini_text.h"
#include "companion/step_codes.h"
#include "tests/companion/lab_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::companion::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Key;
using testing::Not;

class Install : public testing::Test {
 protected:
  LabFixture lab_;
};

std::string agentText(const LabFixture& lab, const std::string& computer, const std::string& name) {
  const auto found = lab.network().find(computer);
  for (const NamedValue& value : found->registry().values(R"(SOFTWARE\Kelmont Works\Varnhold\Agent)"))
    if (value.name == name) return value.value.bytes;
  return "none";
}

TEST_F(Install, PutsFilesRegistryValuesAndARunningServiceOnTheComputer) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);

  const auto folder = agentFolderOn(host);
  EXPECT_EQ(readText(folder / "vhagent.exe"), "agent program");
  EXPECT_EQ(readText(folder / "scripts" / "restart.cmd"), "rem remedial action");
  EXPECT_EQ(readText(folder / "remins" / "setup.exe"), "set-up program");
  EXPECT_THAT(readText(folder / "remins" / "vhsetup.ins"), HasSubstr("System=HOST"));
  const ServiceEntry service = serviceOn(lab_, "WKS01");
  EXPECT_EQ(service.path, R"(C:\Program Files\Kelmont Works\Varnhold\vhagent.exe)");
  EXPECT_EQ(service.account, "LocalSystem");
  EXPECT_TRUE(service.running);
  EXPECT_TRUE(service.secured);
  EXPECT_EQ(service.start, ServiceStart::Automatic);
  const std::string nul(1, '\0');
  EXPECT_EQ(agentText(lab_, "WKS01", "InstallPath"), R"(C:\Program Files\Kelmont Works\Varnhold)" + nul);
  EXPECT_EQ(agentText(lab_, "WKS01", "Version"), "7.0" + nul);
  EXPECT_EQ(agentText(lab_, "WKS01", "Manager"), "MANAGER" + nul);
  EXPECT_EQ(agentText(lab_, "WKS01", "Mode"), std::string("\1\0\0\0", 4));
}

TEST_F(Install, FindsTheComputerByOtherLettersByItsAddressAndWithBlanksAroundItsName) {
  for (const std::string name : {"wks01", "10.1.1.11", "WKS01 ", R"(\\Wks01)"}) {
    lab_.addHost("WKS01");
    EXPECT_EQ(lab_.install(jobFor(name)), 150) << name;
    EXPECT_EQ(lab_.uninstall(jobFor(name)), 152) << name;
  }
}

TEST_F(Install, ExpandsProgramFilesOfTheTargetInLettersOfEitherCase) {
  const auto host = lab_.addHost("WKS01", "[host]\nprogram_files = D:\\Programme\n");
  JobRecord record = jobFor("WKS01");
  record.installDirectory = R"(%PROGRAM FILES%\X)";
  ASSERT_EQ(lab_.install(record), 150);
  EXPECT_EQ(readText(host / "D" / "Programme" / "X" / "vhagent.exe"), "agent program");
}

TEST_F(Install, KnowsTheVariableOfEitherBoxOfTheWizard) {
  const auto host = lab_.addHost("WKS01");
  JobRecord record = jobFor("WKS01");
  record.installDirectory = R"(%ProgramFiles%\Kelmont Works\Varnhold)";
  ASSERT_EQ(lab_.install(record), 150);
  EXPECT_EQ(readText(agentFolderOn(host) / "vhagent.exe"), "agent program");
}

TEST_F(Install, UsesAFolderOnAnotherDriveAsItStands) {
  const auto host = lab_.addHost("WKS01");
  JobRecord record = jobFor("WKS01");
  record.installDirectory = R"(D:\APPS\AGENT)";
  ASSERT_EQ(lab_.install(record), 150);
  EXPECT_EQ(readText(host / "D" / "APPS" / "AGENT" / "vhagent.exe"), "agent program");
}

TEST_F(Install, FindsFoldersOfOtherLettersInsteadOfMakingTwins) {
  const auto host = lab_.addHost("WKS01");
  std::filesystem::create_directories(host / "c" / "PROGRAM FILES");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  EXPECT_EQ(readText(host / "c" / "PROGRAM FILES" / "Kelmont Works" / "Varnhold" / "vhagent.exe"),
            "agent program");
}

TEST_F(Install, RefusesAFolderThatIsNone) {
  const auto host = lab_.addHost("WKS01");
  const auto before = snapshot(host);
  for (const std::string folder : {"", "APPS", R"(C:\..\..\etc)", R"(C:\a\.\b)", R"(\\OTHER\C$\x)",
                                   R"(Z:\APPS)", R"(C:\a:b)", "C:\\a\nb", R"(C:\a*)"}) {
    JobRecord record = jobFor("WKS01");
    record.installDirectory = folder;
    EXPECT_EQ(lab_.install(record), 155) << folder;
    EXPECT_EQ(snapshot(host), before) << folder;
  }
}

TEST_F(Install, CannotConnectToAComputerThatIsNotThereOrDoesNotAnswer) {
  lab_.addHost("DEAD", "[host]\nanswers = no\n");
  EXPECT_EQ(lab_.install(jobFor("NOBODY")), 154);
  EXPECT_EQ(lab_.install(jobFor("DEAD")), 154);
  EXPECT_EQ(lab_.install(jobFor("../lab/DEAD")), 154);
  EXPECT_EQ(lab_.install(jobFor("")), 154);
}

TEST_F(Install, CopiesTheCustomConfiguration) {
  const auto host = lab_.addHost("WKS01");
  writeText(lab_.installPath() / "custom.ini", "custom");
  JobRecord record = jobFor("WKS01");
  record.configFile = (lab_.installPath() / "custom.ini").string();
  ASSERT_EQ(lab_.install(record), 150);
  EXPECT_EQ(readText(agentFolderOn(host) / "vhaconfig.ini"), "custom");
}

TEST_F(Install, FailsWith376WhenTheCustomConfigurationCannotBeRead) {
  const auto host = lab_.addHost("WKS01");
  const auto before = snapshot(host);
  JobRecord record = jobFor("WKS01");
  record.configFile = (lab_.installPath() / "missing.ini").string();
  EXPECT_EQ(lab_.install(record), 376);
  EXPECT_EQ(snapshot(host), before);
}

TEST_F(Install, RunsTheServiceUnderTheGivenAccount) {
  const auto host = lab_.addHost("WKS01");
  JobRecord record = jobFor("WKS01");
  record.serviceUser = R"(CORP\agent)";
  record.servicePassword = Secret("hidden word");
  ASSERT_EQ(lab_.install(record), 150);
  EXPECT_EQ(serviceOn(lab_, "WKS01").account, R"(CORP\agent)");
  for (const auto& [name, content] : snapshot(host))
    EXPECT_THAT(content, Not(HasSubstr("hidden word"))) << name;
}

TEST_F(Install, OnAComputerThatDemandsAnAccountNeedsItsShareConnectedOrCarriesTheAccount) {
  const auto host = lab_.addHost("WKS01", "[account]\nuser = CORP\\admin\npassword = secret\n");
  const auto before = snapshot(host);
  JobRecord record = jobFor("WKS01");
  EXPECT_EQ(lab_.install(record), 154);
  record.serviceUser = R"(CORP\admin)";
  record.servicePassword = Secret("wrong");
  EXPECT_EQ(lab_.install(record), 154);
  EXPECT_EQ(snapshot(host), before);
  record.servicePassword = Secret("secret");
  EXPECT_EQ(lab_.install(record), 150);
  record = jobFor("WKS01");
  EXPECT_EQ(lab_.uninstall(record), 154);
  record.shareConnected = true;
  EXPECT_EQ(lab_.uninstall(record), 152);
  EXPECT_EQ(lab_.install(record), 150);
}

TEST_F(Install, BringsTheFilesAsTheyWereWhenTheJobWasAskedFor) {
  const auto host = lab_.addHost("WKS01");
  const AgentMaterial material = lab_.material();
  writeText(lab_.libraryFolder() / "vhsetup.ins", "of the next computer");
  const LabNetwork network = lab_.network();
  ASSERT_EQ(runJob(JobKind::Install, network, {}, jobFor("WKS01"), material, {}), 150);
  EXPECT_EQ(readText(agentFolderOn(host) / "remins" / "vhsetup.ins"), "[Setup]\r\nSystem=HOST\r\n");
}

TEST_F(Install, FailsWith351WithoutTheMaterial) {
  const auto host = lab_.addHost("WKS01");
  const auto before = snapshot(host);
  std::filesystem::remove_all(lab_.agentFolder());
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 351);
  EXPECT_EQ(snapshot(host), before);
}

TEST_F(Install, FailsWith351WhenAFileCannotBeWrittenHalfWayAndTakesTheOthersBack) {
  const auto host = lab_.addHost("WKS01");
  std::filesystem::create_directories(agentFolderOn(host) / "vhagent.exe" / "in the way");
  const auto before = snapshot(host);
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 351);
  EXPECT_EQ(snapshot(host), before);
}

TEST_F(Install, ReplacesAnAgentOfTheSameOrALowerVersion) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01"), "6.9"), 150);
  writeText(lab_.agentFolder() / "vhagent.exe", "newer program");
  EXPECT_EQ(lab_.install(jobFor("WKS01"), "7.0"), 150);
  EXPECT_EQ(lab_.install(jobFor("WKS01"), "7.0"), 150);
  EXPECT_EQ(readText(agentFolderOn(host) / "vhagent.exe"), "newer program");
  EXPECT_EQ(agentText(lab_, "WKS01", "Version"), std::string("7.0\0", 4));
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
}

TEST_F(Install, MovesAnAgentThatIsInstalledElsewhere) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  JobRecord record = jobFor("WKS01");
  record.installDirectory = R"(D:\AGENT)";
  ASSERT_EQ(lab_.install(record), 150);
  EXPECT_THAT(snapshot(host), Not(Contains(Key("C/Program Files/"))));
  EXPECT_EQ(serviceOn(lab_, "WKS01").path, R"(D:\AGENT\vhagent.exe)");
}

TEST_F(Install, FailsWith253UnderAHigherVersion) {
  for (const std::string version : {"7.0.1", "7.1", "8", "10.0"}) {
    const auto host = lab_.addHost("WKS01");
    ASSERT_EQ(lab_.install(jobFor("WKS01"), version), 150);
    const auto before = snapshot(host);
    EXPECT_EQ(lab_.install(jobFor("WKS01"), "7.0"), 253) << version;
    EXPECT_EQ(snapshot(host), before);
    ASSERT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  }
}

TEST_F(Install, FailsWith258OverTheFirstVersion) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01"), "1.4"), 150);
  const auto before = snapshot(host);
  EXPECT_EQ(lab_.install(jobFor("WKS01"), "7.0"), 258);
  EXPECT_EQ(snapshot(host), before);
}

TEST_F(Install, FailsWith187WhenTheServiceIsThereWithoutAnAgent) {
  const auto host = lab_.addHost("WKS01");
  writeText(host / "services.ini", "[VARNHOLD AGENT]\npath=C:\\other.exe\nstate=running\n");
  const auto before = snapshot(host);
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 187);
  EXPECT_EQ(snapshot(host), before);
}

TEST_F(Install, StartsAgainAnAgentThatAKilledJobLeftWithoutAService) {
  lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  ASSERT_EQ(lab_.network().find("WKS01")->services().remove("Varnhold Agent"), kDone);
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 150);
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
}

TEST_F(Install, FailsWith159OnADamagedRegistry) {
  const auto host = lab_.addHost("WKS01");
  writeText(host / "registry.reg", "this is no registry");
  const auto before = snapshot(host);
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 159);
  EXPECT_EQ(snapshot(host), before);
  EXPECT_EQ(readText(host / "registry.reg"), "this is no registry");
}

TEST_F(Install, FailsWith171OnADamagedServiceDatabase) {
  const auto host = lab_.addHost("WKS01");
  writeText(host / "services.ini", std::string("[a]\0", 4));
  const auto before = snapshot(host);
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 171);
  EXPECT_EQ(snapshot(host), before);
}

class RefusedInstall : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedInstall, EndsWithTheCodeOfTheStepAndLeavesNothing) {
  LabFixture lab;
  const auto host = lab.addHost("WKS01", std::string("[refuse]\n") + GetParam().line + "\n");
  writeText(lab.installPath() / "custom.ini", "custom");
  JobRecord record = jobFor("WKS01");
  record.configFile = (lab.installPath() / "custom.ini").string();
  record.serviceUser = R"(CORP\agent)";
  const auto before = snapshot(host);
  EXPECT_EQ(lab.install(record), GetParam().code);
  EXPECT_EQ(snapshot(host), before);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, RefusedInstall,
    testing::Values(Refusal{"connect=yes", 154}, Refusal{"connect=121", 153}, Refusal{"connect=1460", 153},
                    Refusal{"connect=55", 160}, Refusal{"connect=67", 160}, Refusal{"share=yes", 154},
                    Refusal{"version=1638", 253}, Refusal{"version=1150", 258}, Refusal{"directory=yes", 155},
                    Refusal{"copy=yes", 351}, Refusal{"config_file=yes", 376},
                    Refusal{"remote_registry=yes", 159}, Refusal{"registry=yes", 158},
                    Refusal{"service_manager=yes", 170}, Refusal{"service_manager=1065", 171},
                    Refusal{"service_manager=87", 172}, Refusal{"service=yes", 180},
                    Refusal{"service=1059", 181}, Refusal{"service=87", 182}, Refusal{"service=1078", 183},
                    Refusal{"service=6", 184}, Refusal{"service=123", 185}, Refusal{"service=1057", 186},
                    Refusal{"service=1073", 187}, Refusal{"service=1072", 229}, Refusal{"account=yes", 377},
                    Refusal{"start=3", 222}, Refusal{"start=2", 222}, Refusal{"start=1055", 224},
                    Refusal{"start=1075", 225}, Refusal{"start=1068", 226}, Refusal{"start=1058", 227},
                    Refusal{"start=1069", 228}, Refusal{"start=1072", 229}, Refusal{"start=1054", 230},
                    Refusal{"start=1053", 231}, Refusal{"start=1063", 163}, Refusal{"start=1722", 163}));

TEST_F(Install, WarnsWith232WhenTheServiceIsRefusedItsStart) {
  lab_.addHost("WKS01", "[refuse]\nstart = yes\n");
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 232);
  EXPECT_FALSE(serviceOn(lab_, "WKS01").running);
  EXPECT_EQ(agentText(lab_, "WKS01", "Version"), std::string("7.0\0", 4));
}

TEST_F(Install, WarnsWith167WhenSecurityIsRefused) {
  lab_.addHost("WKS01", "[refuse]\nsecurity = yes\n");
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 167);
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
}

TEST_F(Install, GivesTheFirstOfTwoWarnings) {
  lab_.addHost("WKS01", "[refuse]\nstart = yes\nsecurity = yes\n");
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 232);
}

TEST_F(Install, RefusesTheStopOfAnAgentThatRuns) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  lab_.addHost("WKS01", "[refuse]\nstop = 1053\n");
  const auto before = snapshot(host);
  EXPECT_EQ(lab_.install(jobFor("WKS01")), 207);
  EXPECT_EQ(snapshot(host), before);
}

TEST_F(Install, HasItsStepsInTheirOrder) {
  std::vector<std::string> names;
  for (const Step& step : installSteps()) names.emplace_back(step.name);
  EXPECT_THAT(names, LinesAre({"connect", "version", "stop", "directory", "copy", "config_file",
                               "remote_registry", "registry", "service_manager", "service", "account",
                               "start", "security", "earlier_folder"}));
}

}  // namespace
}  // namespace varnhold::companion::test
