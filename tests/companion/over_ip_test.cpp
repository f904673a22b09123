// The upgrade through the running agent, and the version check behind it.
#include <gmock/gmock.h>

#include "tests/companion/lab_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::companion::test {
namespace {

using testing::HasSubstr;

const std::string kHost = "[host]\naddress = 10.1.1.11\n";

/// An agent of version 6.0 on WKS01, and the files of 7.0 at the manager.
class OverIp : public testing::Test {
 protected:
  OverIp() {
    host_ = lab_.addHost("WKS01");
    EXPECT_EQ(lab_.install(jobFor("WKS01"), "6.0"), 150);
    writeText(lab_.agentFolder() / "vhagent.exe", "newer program");
  }

  [[nodiscard]] JobRecord record() const {
    JobRecord record;
    record.systemName = "WKS01";
    record.agentMode = 1;
    record.agentLibrary = lab_.agentFolder() / "vhagent";
    return record;
  }
  [[nodiscard]] std::int32_t upgrade(const JobRecord& job, const std::string& version = "7.0") const {
    return lab_.run(JobKind::UpgradeOverIp, job, lab_.material(version));
  }
  [[nodiscard]] std::int32_t check(const JobRecord& job, const std::string& version = "7.0") const {
    return lab_.run(JobKind::CheckVersion, job, lab_.material(version));
  }

  LabFixture lab_;
  std::filesystem::path host_;
};

TEST_F(OverIp, ReplacesTheFilesAndTheVersionAndTheAgentRunsAgain) {
  EXPECT_EQ(upgrade(record()), 3000);
  EXPECT_EQ(readText(agentFolderOn(host_) / "vhagent.exe"), "newer program");
  EXPECT_EQ(registryText(lab_, "WKS01", kAgentKey, "Version"), "7.0");
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
}

TEST_F(OverIp, BringsTheSetupInformationThatWasWrittenForTheRun) {
  writeText(lab_.libraryFolder() / "vhsetup.ins", "for this run");
  EXPECT_EQ(upgrade(record()), 3000);
  EXPECT_EQ(readText(agentFolderOn(host_) / "remins" / "vhsetup.ins"), "for this run");
}

TEST_F(OverIp, SetsTheModeOfTheRecordInTheKeptConfiguration) {
  writeText(agentFolderOn(host_) / "vhaconfig.ini", "[Own]\r\nA=b\r\n");
  JobRecord job = record();
  job.agentMode = 5;
  EXPECT_EQ(upgrade(job), 3000);
  EXPECT_EQ(readText(agentFolderOn(host_) / "vhaconfig.ini"),
            "[Own]\r\nA=b\r\n[Performance]\r\nHighPerformance=1\r\n");
}

TEST_F(OverIp, TakesNoModeFromTheManagersFile) {
  writeText(lab_.agentFolder() / "vhaconfig.ini", "[Performance]\r\nHighPerformance=1\r\n");
  EXPECT_EQ(upgrade(record()), 3000);
  EXPECT_THAT(readText(agentFolderOn(host_) / "vhaconfig.ini"), HasSubstr("HighPerformance=0"));
}

TEST_F(OverIp, PutsAGivenConfigurationInThePlaceOfTheAgents) {
  writeText(lab_.installPath() / "custom.ini", "custom");
  JobRecord job = record();
  job.configFile = (lab_.installPath() / "custom.ini").string();
  EXPECT_EQ(upgrade(job), 3000);
  EXPECT_EQ(readText(agentFolderOn(host_) / "vhaconfig.ini"), "custom");
  job.configFile = (lab_.installPath() / "missing.ini").string();
  EXPECT_EQ(upgrade(job), 3023);
}

TEST_F(OverIp, NeedsNoShareAndNoAccount) {
  lab_.addHost("WKS01", kHost + "[account]\nuser = CORP\\admin\npassword = secret\n[refuse]\nshare = yes\n");
  EXPECT_EQ(upgrade(record()), 3000);
}

TEST_F(OverIp, GoesThroughAgainForTheSameVersion) {
  EXPECT_EQ(upgrade(record()), 3000);
  EXPECT_EQ(upgrade(record()), 3000);
}

TEST_F(OverIp, FailsWith3020WithoutAnAgentThatRuns) {
  ASSERT_EQ(lab_.network().find("WKS01")->services().stop("Varnhold Agent"), kDone);
  const auto before = snapshot(host_);
  EXPECT_EQ(upgrade(record()), 3020);
  EXPECT_EQ(check(record()), 3020);
  EXPECT_EQ(snapshot(host_), before);
  lab_.addHost("WKS01", kHost + "answers = no\n");
  EXPECT_EQ(upgrade(record()), 3020);
}

TEST_F(OverIp, IsNotListenedToByAnAgentOfAnotherManager) {
  const std::string other = "OTHER" + std::string(1, '\0');
  ASSERT_EQ(lab_.network().find("WKS01")->registry().set(kAgentKey, {"Manager", {platform::kRegText, other}}),
            kDone);
  EXPECT_EQ(upgrade(record()), 3020);
}

TEST_F(OverIp, FailsWith3017WithoutAnAddress) {
  lab_.addHost("WKS01", "[host]\n");
  EXPECT_EQ(upgrade(record()), 3017);
  EXPECT_EQ(check(record()), 3017);
  JobRecord job = record();
  job.systemName = "NOBODY";
  EXPECT_EQ(upgrade(job), 3017);
  EXPECT_EQ(check(job), 3017);
}

TEST_F(OverIp, FailsWith3023WithoutTheAgentLibraryOfTheManager) {
  JobRecord job = record();
  job.agentLibrary = lab_.libraryFolder() / "vhagent";
  EXPECT_EQ(upgrade(job), 3023);
  EXPECT_EQ(check(job), 3023);
}

TEST_F(OverIp, FailsWith3013WhenTheManagerDoesNotKnowItsOwnVersion) {
  EXPECT_EQ(upgrade(record(), ""), 3013);
  EXPECT_EQ(check(record(), ""), 3013);
}

TEST_F(OverIp, FailsWith3027UnderAHigherVersionAndOverTheFirst) {
  EXPECT_EQ(upgrade(record(), "5.9"), 3027);
  ASSERT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  ASSERT_EQ(lab_.install(jobFor("WKS01"), "1.4"), 150);
  EXPECT_EQ(upgrade(record()), 3027);
}

TEST_F(OverIp, GoesByItsScript) {
  lab_.addHost("WKS01", kHost + "[result]\nupgrade = 3025\n");
  const auto before = snapshot(host_);
  EXPECT_EQ(upgrade(record()), 3025);
  EXPECT_EQ(snapshot(host_), before);
  lab_.addHost("WKS01", kHost + "[result]\nupgrade = 3000\nversion_check = 3026\n");
  EXPECT_EQ(upgrade(record()), 3000);
  EXPECT_EQ(registryText(lab_, "WKS01", kAgentKey, "Version"), "7.0");
  EXPECT_EQ(check(record()), 3026);
}

TEST_F(OverIp, EndsWith3001WhenSomethingElseGoesWrong) {
  JobScript script;
  script.delay = std::chrono::milliseconds(1);
  const auto sleep = [](std::chrono::milliseconds) { throw std::runtime_error("gone"); };
  const LabNetwork network = lab_.network();
  EXPECT_EQ(runJob(JobKind::UpgradeOverIp, network, script, record(), lab_.material(), sleep), 3001);
  EXPECT_EQ(runJob(JobKind::CheckVersion, network, script, record(), lab_.material(), sleep), 3001);
}

TEST_F(OverIp, VersionCheckIs3000OnceTheAgentHasTheManagersVersionAnd3027Before) {
  EXPECT_EQ(check(record()), 3027);
  ASSERT_EQ(upgrade(record()), 3000);
  EXPECT_EQ(check(record()), 3000);
  EXPECT_EQ(check(record(), "7.0.0"), 3000);
  EXPECT_EQ(check(record(), "7.1"), 3027);
}

TEST_F(OverIp, VersionCheckChangesNothing) {
  const auto before = snapshot(host_);
  EXPECT_EQ(check(record()), 3027);
  EXPECT_EQ(snapshot(host_), before);
}

TEST_F(OverIp, VersionCheckFailsWith3026WhereNoVersionCanBeRead) {
  ASSERT_EQ(lab_.network().find("WKS01")->registry().removeValue(kAgentKey, "Version"), kDone);
  EXPECT_EQ(check(record()), 3026);
  writeText(host_ / "registry.reg", "this is no registry");
  EXPECT_EQ(check(record()), 3026);
}

class RefusedOverIp : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedOverIp, EndsWithTheCodeOfTheStepAndPutsEverythingBack) {
  LabFixture lab;
  lab.addHost("WKS01");
  ASSERT_EQ(lab.install(jobFor("WKS01"), "6.0"), 150);
  writeText(lab.agentFolder() / "vhagent.exe", "newer program");
  writeText(lab.installPath() / "custom.ini", "custom");
  const std::string line = GetParam().line;
  const auto host = lab.addHost("WKS01", kHost + "[refuse]\n" + line + "\n");
  JobRecord record = jobFor("WKS01");
  record.agentLibrary = lab.agentFolder() / "vhagent";
  if (line.starts_with("config_file")) record.configFile = (lab.installPath() / "custom.ini").string();
  const auto before = snapshot(host);
  EXPECT_EQ(lab.run(JobKind::UpgradeOverIp, record, lab.material()), GetParam().code);
  EXPECT_EQ(snapshot(host), before);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, RefusedOverIp,
    testing::Values(Refusal{"local_registry=yes", 3013}, Refusal{"agent_library=yes", 3023},
                    Refusal{"resolve=yes", 3017}, Refusal{"agent=yes", 3020}, Refusal{"agent=122", 3002},
                    Refusal{"agent=8", 3007}, Refusal{"agent=10038", 3018}, Refusal{"agent=10042", 3019},
                    Refusal{"agent=10054", 3022}, Refusal{"version=yes", 3026}, Refusal{"version=1638", 3027},
                    Refusal{"version=1150", 3027}, Refusal{"service_manager=yes", 3011},
                    Refusal{"stop=yes", 3012}, Refusal{"copy=yes", 3023}, Refusal{"copy=10053", 3022},
                    Refusal{"config_file=yes", 3023}, Refusal{"mode=yes", 3023},
                    Refusal{"registry=yes", 3013}, Refusal{"start=yes", 3012}, Refusal{"confirm=yes", 3025}));

TEST(OverIpSteps, StandInTheirOrder) {
  std::vector<std::string> upgrade, check;
  for (const Step& step : overIpUpgradeSteps()) upgrade.emplace_back(step.name);
  for (const Step& step : versionCheckSteps()) check.emplace_back(step.name);
  EXPECT_THAT(upgrade,
              LinesAre({"local_registry", "agent_library", "resolve", "agent", "version", "service_manager",
                        "stop", "copy", "config_file", "mode", "registry", "start", "confirm"}));
  EXPECT_THAT(check, LinesAre({"local_registry", "agent_library", "resolve", "agent", "version"}));
}

}  // namespace
}  // namespace varnhold::companion::test
