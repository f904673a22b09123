#include <gmock/gmock.h>

#include "tests/companion/lab_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::companion::test {
namespace {

using testing::HasSubstr;

/// An agent of version 6.0 on WKS01, and the files of 7.0 at the manager.
class Upgrade : public testing::Test {
 protected:
  Upgrade() {
    host_ = lab_.addHost("WKS01");
    EXPECT_EQ(lab_.install(jobFor("WKS01"), "6.0"), 150);
    writeText(lab_.agentFolder() / "vhagent.exe", "newer program");
    writeText(lab_.agentFolder() / "added.dll", "new in this version");
    writeText(lab_.agentFolder() / "scripts" / "restart.cmd", "newer script");
  }

  /// As the console prepares it: with the computer's name behind two backslashes and without a folder.
  static JobRecord record() {
    JobRecord record;
    record.systemName = R"(\\WKS01)";
    record.agentMode = 1;
    return record;
  }
  [[nodiscard]] std::string value(const std::string& name) const {
    return registryText(lab_, "WKS01", kAgentKey, name);
  }
  void setManagersMode(const std::string& mode) const {
    writeText(lab_.agentFolder() / "vhaconfig.ini", "[Performance]\r\nHighPerformance=" + mode + "\r\n");
  }

  LabFixture lab_;
  std::filesystem::path host_;
};

TEST_F(Upgrade, ReplacesTheFilesAndTheVersionWhereTheAgentIsAndStartsItAgain) {
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_EQ(readText(agentFolderOn(host_) / "vhagent.exe"), "newer program");
  EXPECT_EQ(readText(agentFolderOn(host_) / "added.dll"), "new in this version");
  EXPECT_EQ(value("Version"), "7.0");
  EXPECT_EQ(value("Manager"), "MANAGER");
  EXPECT_EQ(value("InstallPath"), R"(C:\Program Files\Kelmont Works\Varnhold)");
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
}

TEST_F(Upgrade, LeavesNothingBehindWhenTheAgentIsUninstalledLater) {
  ASSERT_EQ(lab_.upgrade(record()), 700);
  ASSERT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  EXPECT_FALSE(std::filesystem::exists(agentFolderOn(host_)));
}

TEST_F(Upgrade, OfAnAgentInAnotherFolderStaysThere) {
  JobRecord moved = jobFor("WKS01");
  moved.installDirectory = R"(D:\APPS\AGENT)";
  ASSERT_EQ(lab_.install(moved, "6.0"), 150);
  writeText(lab_.agentFolder() / "vhagent.exe", "still newer program");
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_EQ(readText(host_ / "D" / "APPS" / "AGENT" / "vhagent.exe"), "still newer program");
}

TEST_F(Upgrade, KeepsTheCustomConfigurationButForTheMode) {
  writeText(agentFolderOn(host_) / "vhaconfig.ini", "[Own]\r\nA=b\r\n[Performance]\r\nHighPerformance=1\r\n");
  setManagersMode("0");
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_EQ(readText(agentFolderOn(host_) / "vhaconfig.ini"),
            "[Own]\r\nA=b\r\n[Performance]\r\nHighPerformance=0\r\n");
}

TEST_F(Upgrade, TakesHighPerformanceFromTheManagersFileSinceTheRecordSaysOneForEitherMode) {
  setManagersMode("1");
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_THAT(readText(agentFolderOn(host_) / "vhaconfig.ini"), HasSubstr("HighPerformance=1"));
}

TEST_F(Upgrade, BringsTheDefaultConfigurationWhereTheAgentHasNone) {
  std::filesystem::remove(agentFolderOn(host_) / "vhaconfig.ini");
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_EQ(readText(agentFolderOn(host_) / "vhaconfig.ini"), "[Performance]\r\nHighPerformance=0\r\n");
}

TEST_F(Upgrade, PutsAGivenConfigurationInThePlaceOfTheAgents) {
  writeText(lab_.installPath() / "custom.ini", "custom");
  JobRecord job = record();
  job.configFile = (lab_.installPath() / "custom.ini").string();
  EXPECT_EQ(lab_.upgrade(job), 700);
  EXPECT_EQ(readText(agentFolderOn(host_) / "vhaconfig.ini"), "custom");
}

TEST_F(Upgrade, ReplacesTheRemedialActionScriptsOnlyWhenAskedTo) {
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_EQ(readText(agentFolderOn(host_) / "scripts" / "restart.cmd"), "rem remedial action");
  JobRecord job = record();
  job.remedialActions = true;
  EXPECT_EQ(lab_.upgrade(job), 700);
  EXPECT_EQ(readText(agentFolderOn(host_) / "scripts" / "restart.cmd"), "newer script");
}

TEST_F(Upgrade, DoesNotBringTheSetupInformationOfTheLastInstall) {
  writeText(lab_.libraryFolder() / "vhsetup.ins", "of another computer");
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_EQ(readText(agentFolderOn(host_) / "remins" / "vhsetup.ins"), "[Setup]\r\nSystem=HOST\r\n");
}

TEST_F(Upgrade, WritesTheModeOfTheRecord) {
  JobRecord job = record();
  job.agentMode = 5;
  EXPECT_EQ(lab_.upgrade(job), 700);
  const auto computer = lab_.network().find("WKS01");
  for (const NamedValue& found : computer->registry().values(kAgentKey)) {
    if (found.name == "Mode") {
      EXPECT_EQ(found.value.bytes, std::string("\5\0\0\0", 4));
    }
  }
}

TEST_F(Upgrade, StartsAnAgentThatRested) {
  ASSERT_EQ(lab_.network().find("WKS01")->services().stop("Varnhold Agent"), kDone);
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
}

TEST_F(Upgrade, LetsTheServiceInteractWithTheDesktopBeforeVersion6) {
  JobRecord job = record();
  job.isVistaTarget = true;
  EXPECT_EQ(lab_.upgrade(job), 700);
  EXPECT_FALSE(serviceOn(lab_, "WKS01").interacts);
  EXPECT_EQ(lab_.upgrade(record(), "7.1"), 700);
  EXPECT_TRUE(serviceOn(lab_, "WKS01").interacts);
}

TEST_F(Upgrade, LeavesAServiceOfANamedAccountOffTheDesktop) {
  JobRecord named = jobFor("WKS01");
  named.serviceUser = R"(CORP\agent)";
  ASSERT_EQ(lab_.install(named, "6.0"), 150);
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_FALSE(serviceOn(lab_, "WKS01").interacts);
  EXPECT_EQ(serviceOn(lab_, "WKS01").account, R"(CORP\agent)");
}

TEST_F(Upgrade, FailsWith701OverTheFirstVersion) {
  ASSERT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  ASSERT_EQ(lab_.install(jobFor("WKS01"), "1.4"), 150);
  EXPECT_EQ(lab_.upgrade(record()), 701);
}

TEST_F(Upgrade, FailsWith702UnderAHigherVersion) {
  ASSERT_EQ(lab_.upgrade(record(), "7.0.1"), 700);
  const auto before = snapshot(host_);
  EXPECT_EQ(lab_.upgrade(record(), "7.0"), 702);
  EXPECT_EQ(snapshot(host_), before);
}

TEST_F(Upgrade, FailsWith711WhenTheAgentHasTheManagersVersionAndNothingElseIsAskedFor) {
  ASSERT_EQ(lab_.upgrade(record()), 700);
  const auto before = snapshot(host_);
  EXPECT_EQ(lab_.upgrade(record()), 711);
  EXPECT_EQ(snapshot(host_), before);
}

TEST_F(Upgrade, OfTheSameVersionGoesThroughForAnotherModeOrConfiguration) {
  ASSERT_EQ(lab_.upgrade(record()), 700);
  setManagersMode("1");
  EXPECT_EQ(lab_.upgrade(record()), 700);
  EXPECT_EQ(lab_.upgrade(record()), 711);
  JobRecord job = record();
  job.configFile = (lab_.agentFolder() / "vhaconfig.ini").string();
  EXPECT_EQ(lab_.upgrade(job), 700);
  job = record();
  job.agentMode = 5;
  EXPECT_EQ(lab_.upgrade(job), 700);
}

TEST_F(Upgrade, FailsWith705WhenTheAgentBelongsToAnotherManager) {
  const std::string other = "OTHER" + std::string(1, '\0');
  ASSERT_EQ(lab_.network().find("WKS01")->registry().set(kAgentKey, {"Manager", {platform::kRegText, other}}),
            kDone);
  const auto before = snapshot(host_);
  EXPECT_EQ(lab_.upgrade(record()), 705);
  EXPECT_EQ(snapshot(host_), before);
}

TEST_F(Upgrade, FailsWith706WhenTheManagerDoesNotKnowItsOwnVersion) {
  EXPECT_EQ(lab_.upgrade(record(), ""), 706);
}

TEST_F(Upgrade, FailsWith707OnADamagedRegistry) {
  writeText(host_ / "registry.reg", "this is no registry");
  EXPECT_EQ(lab_.upgrade(record()), 707);
}

TEST_F(Upgrade, FailsWith708WhenAFileCannotBeWritten) {
  std::filesystem::create_directories(agentFolderOn(host_) / "added.dll" / "in the way");
  const auto before = snapshot(host_);
  EXPECT_EQ(lab_.upgrade(record()), 708);
  EXPECT_EQ(snapshot(host_), before);
}

TEST_F(Upgrade, FailsWith196WhereNoAgentIs) {
  lab_.addHost("WKS02");
  JobRecord job = record();
  job.systemName = R"(\\WKS02)";
  EXPECT_EQ(lab_.upgrade(job), 196);
}

TEST_F(Upgrade, CannotConnectToAComputerThatIsNotThereOrDoesNotAnswer) {
  lab_.addHost("WKS01", "[host]\nanswers = no\n");
  EXPECT_EQ(lab_.upgrade(record()), 154);
  JobRecord job = record();
  job.systemName = R"(\\NOBODY)";
  EXPECT_EQ(lab_.upgrade(job), 154);
}

TEST_F(Upgrade, OnAComputerThatDemandsAnAccountNeedsItsShareConnected) {
  lab_.addHost("WKS01", "[account]\nuser = CORP\\admin\npassword = secret\n");
  JobRecord job = record();
  EXPECT_EQ(lab_.upgrade(job), 154);
  job.shareConnected = true;
  EXPECT_EQ(lab_.upgrade(job), 700);
}

TEST_F(Upgrade, EndsWith704WhenItIsDoneButTheServiceCannotBeStarted) {
  lab_.addHost("WKS01", "[refuse]\nstart = yes\n");
  EXPECT_EQ(lab_.upgrade(record()), 704);
  EXPECT_EQ(value("Version"), "7.0");
  EXPECT_EQ(readText(agentFolderOn(host_) / "vhagent.exe"), "newer program");
  EXPECT_FALSE(serviceOn(lab_, "WKS01").running);
}

TEST_F(Upgrade, GoesByItsScript) {
  lab_.addHost("WKS01", "[result]\nupgrade = 701\n");
  const auto before = snapshot(host_);
  EXPECT_EQ(lab_.upgrade(record()), 701);
  EXPECT_EQ(snapshot(host_), before);
  lab_.addHost("WKS01", "[result]\nupgrade = 704\n");
  EXPECT_EQ(lab_.upgrade(record()), 704);
  EXPECT_EQ(value("Version"), "7.0");
}

class RefusedUpgrade : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedUpgrade, EndsWithTheCodeOfTheStepAndPutsEverythingBack) {
  LabFixture lab;
  lab.addHost("WKS01");
  ASSERT_EQ(lab.install(jobFor("WKS01"), "6.0"), 150);
  writeText(lab.agentFolder() / "vhagent.exe", "newer program");
  writeText(lab.installPath() / "custom.ini", "custom");
  const std::string line = GetParam().line;
  const auto host = lab.addHost("WKS01", "[refuse]\n" + line + "\n");
  JobRecord record = jobFor(R"(\\WKS01)");
  if (line.starts_with("config_file")) record.configFile = (lab.installPath() / "custom.ini").string();
  const auto before = snapshot(host);
  EXPECT_EQ(lab.upgrade(record), GetParam().code);
  EXPECT_EQ(snapshot(host), before);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, RefusedUpgrade,
    testing::Values(Refusal{"local_registry=yes", 706}, Refusal{"connect=yes", 154},
                    Refusal{"connect=121", 153}, Refusal{"share=67", 160},
                    Refusal{"remote_registry=yes", 707}, Refusal{"service_manager=yes", 190},
                    Refusal{"service_manager=1065", 191}, Refusal{"service_manager=1722", 194},
                    Refusal{"find=yes", 200}, Refusal{"find=1060", 196}, Refusal{"owner=yes", 705},
                    Refusal{"version=1150", 701}, Refusal{"version=1638", 702}, Refusal{"version=183", 711},
                    Refusal{"version=yes", 707}, Refusal{"stop=yes", 703}, Refusal{"stop=1053", 703},
                    Refusal{"copy=yes", 708}, Refusal{"config_file=yes", 376}, Refusal{"mode=yes", 708},
                    Refusal{"registry=yes", 709}, Refusal{"desktop=yes", 712}));

TEST(UpgradeSteps, StandInTheirOrder) {
  std::vector<std::string> names;
  for (const Step& step : upgradeSteps()) names.emplace_back(step.name);
  EXPECT_THAT(names,
              LinesAre({"local_registry", "connect", "remote_registry", "service_manager", "find", "owner",
                        "version", "stop", "copy", "config_file", "mode", "registry", "desktop", "start"}));
}

}  // namespace
}  // namespace varnhold::companion::test
