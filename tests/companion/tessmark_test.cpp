// The change-tracking agent, whose snapshots may outlive it.
#include <gmock/gmock.h>

#include "tests/companion/lab_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::companion::test {
namespace {

constexpr const char* kTessmarkKey = R"(SOFTWARE\Kelmont Works\Tessmark\Agent)";

class Tessmark : public testing::Test {
 protected:
  Tessmark() { host_ = lab_.addHost("WKS01"); }

  static JobRecord record() {
    JobRecord record = jobFor("WKS01");
    record.installDirectory = R"(%Program Files%\Kelmont Works\Tessmark)";
    record.agentMode = 0;
    return record;
  }
  static JobRecord uninstallRecord(bool keepsSnapshots) {
    JobRecord record = jobFor(R"(\\WKS01)");
    record.keepsSnapshots = keepsSnapshots;
    return record;
  }
  [[nodiscard]] std::int32_t install(const std::string& version = "5.0") const {
    return lab_.run(JobKind::Install, record(), lab_.changesMaterial(version));
  }
  [[nodiscard]] std::int32_t uninstall(bool keepsSnapshots = false) const {
    return lab_.run(JobKind::Uninstall, uninstallRecord(keepsSnapshots), lab_.changesMaterial());
  }
  [[nodiscard]] std::filesystem::path folder() const {
    return host_ / "C" / "Program Files" / "Kelmont Works" / "Tessmark";
  }

  LabFixture lab_;
  std::filesystem::path host_;
};

TEST_F(Tessmark, InstallPutsItsFilesItsKeyAndItsRunningServiceOnTheComputer) {
  EXPECT_EQ(install(), 150);
  EXPECT_EQ(readText(folder() / "TkwService.exe"), "change tracker");
  EXPECT_EQ(readText(folder() / "remins" / "vhsetup.ins"), "[Setup]\r\nSystem=TRACKED\r\n");
  EXPECT_EQ(registryText(lab_, "WKS01", kTessmarkKey, "Version"), "5.0");
  const ServiceEntry service = serviceOn(lab_, "WKS01", "TkwService");
  EXPECT_TRUE(service.running);
  EXPECT_EQ(service.path, R"(C:\Program Files\Kelmont Works\Tessmark\TkwService.exe)");
  EXPECT_EQ(serviceOn(lab_, "WKS01").name, "none");
}

TEST_F(Tessmark, InstallMakesTheFirstSnapshot) {
  EXPECT_EQ(install(), 150);
  EXPECT_TRUE(std::filesystem::exists(folder() / "Snapshots" / "first.tks"));
}

TEST_F(Tessmark, UninstallTakesAwayAllThatTheInstallPutThereAndTheSnapshots) {
  const auto before = snapshot(host_);
  ASSERT_EQ(install(), 150);
  writeText(folder() / "Snapshots" / "2026" / "second.tks", "second");
  EXPECT_EQ(uninstall(), 152);
  auto after = snapshot(host_);
  // The hive's root key and the drive may stay; no agent needs them gone.
  after.erase("registry.reg");
  after.erase("C/");
  EXPECT_EQ(after, before);
}

TEST_F(Tessmark, UninstallKeepsTheSnapshotsWhenToldTo) {
  ASSERT_EQ(install(), 150);
  EXPECT_EQ(uninstall(true), 152);
  EXPECT_TRUE(std::filesystem::exists(folder() / "Snapshots" / "first.tks"));
  EXPECT_FALSE(std::filesystem::exists(folder() / "TkwService.exe"));
  EXPECT_EQ(serviceOn(lab_, "WKS01", "TkwService").name, "none");
}

TEST_F(Tessmark, InstallOverKeptSnapshotsRetainsThemAndSaysSoWith290) {
  ASSERT_EQ(install(), 150);
  writeText(folder() / "Snapshots" / "second.tks", "second");
  ASSERT_EQ(uninstall(true), 152);
  EXPECT_EQ(install(), 290);
  EXPECT_EQ(readText(folder() / "Snapshots" / "second.tks"), "second");
  EXPECT_TRUE(serviceOn(lab_, "WKS01", "TkwService").running);
}

TEST_F(Tessmark, UninstallWithoutKeepingClearsTheFolderThatAnEarlierOneLeft) {
  ASSERT_EQ(install(), 150);
  ASSERT_EQ(uninstall(true), 152);
  ASSERT_EQ(install(), 290);
  EXPECT_EQ(uninstall(), 152);
  EXPECT_FALSE(std::filesystem::exists(folder()));
}

TEST_F(Tessmark, GivesTheWarningAboutTheServiceBeforeTheOneAboutSnapshots) {
  ASSERT_EQ(install(), 150);
  ASSERT_EQ(uninstall(true), 152);
  lab_.addHost("WKS01", "[refuse]\nstart = yes\n");
  EXPECT_EQ(install(), 232);
}

TEST_F(Tessmark, KnowsNoWarningAboutSecurity) {
  lab_.addHost("WKS01", "[refuse]\nsecurity = yes\n");
  EXPECT_EQ(install(), 150);
}

TEST_F(Tessmark, StandsBesideTheVarnholdAgent) {
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  const auto before = snapshot(agentFolderOn(host_));
  EXPECT_EQ(install(), 150);
  EXPECT_EQ(uninstall(), 152);
  EXPECT_EQ(snapshot(agentFolderOn(host_)), before);
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
}

TEST_F(Tessmark, UninstallFailsWith196WhereNoneIs) {
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  EXPECT_EQ(uninstall(), 196);
}

TEST_F(Tessmark, InstallFailsWith253UnderAHigherVersion) {
  ASSERT_EQ(install("5.1"), 150);
  EXPECT_EQ(install("5.0"), 253);
}

TEST_F(Tessmark, IsUpgradedAlsoToTheVersionThatItHas) {
  ASSERT_EQ(install(), 150);
  JobRecord job;
  job.systemName = R"(\\WKS01)";
  job.agentMode = 1;
  EXPECT_EQ(lab_.run(JobKind::Upgrade, job, lab_.changesMaterial("5.1")), 700);
  EXPECT_EQ(registryText(lab_, "WKS01", kTessmarkKey, "Version"), "5.1");
  EXPECT_EQ(lab_.run(JobKind::Upgrade, job, lab_.changesMaterial("5.1")), 700);
  EXPECT_FALSE(serviceOn(lab_, "WKS01", "TkwService").interacts);
}

class RefusedTessmark : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedTessmark, InstallEndsWithTheCodeOfTheStepAndLeavesNothing) {
  LabFixture lab;
  const auto host = lab.addHost("WKS01", std::string("[refuse]\n") + GetParam().line + "\n");
  const auto before = snapshot(host);
  EXPECT_EQ(lab.run(JobKind::Install, jobFor("WKS01"), lab.changesMaterial()), GetParam().code);
  EXPECT_EQ(snapshot(host), before);
}

INSTANTIATE_TEST_SUITE_P(Install, RefusedTessmark,
                         testing::Values(Refusal{"connect=yes", 154}, Refusal{"connect=1314", 281},
                                         Refusal{"connect=1326", 282}, Refusal{"connect=67", 160},
                                         Refusal{"version=1150", 258}, Refusal{"directory=yes", 155},
                                         Refusal{"copy=yes", 351}, Refusal{"remote_registry=yes", 159},
                                         Refusal{"registry=yes", 158}, Refusal{"service_manager=yes", 170},
                                         Refusal{"service_manager=1722", 275}, Refusal{"service=1073", 187},
                                         Refusal{"start=1058", 227}, Refusal{"snapshots=yes", 351}));

class RefusedTessmarkUninstall : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedTessmarkUninstall, EndsWithTheCodeOfTheStepAndPutsEverythingBack) {
  LabFixture lab;
  lab.addHost("WKS01");
  ASSERT_EQ(lab.run(JobKind::Install, jobFor("WKS01"), lab.changesMaterial()), 150);
  const auto host = lab.addHost("WKS01", std::string("[refuse]\n") + GetParam().line + "\n");
  const auto before = snapshot(host);
  EXPECT_EQ(lab.run(JobKind::Uninstall, jobFor("WKS01"), lab.changesMaterial()), GetParam().code);
  EXPECT_EQ(snapshot(host), before);
}

INSTANTIATE_TEST_SUITE_P(Steps, RefusedTessmarkUninstall,
                         testing::Values(Refusal{"connect=1326", 282}, Refusal{"remote_registry=yes", 159},
                                         Refusal{"service_manager=yes", 190}, Refusal{"find=yes", 200},
                                         Refusal{"stop=yes", 210}, Refusal{"delete=yes", 220},
                                         Refusal{"remove_files=yes", 282},
                                         Refusal{"remove_snapshots=yes", 282},
                                         Refusal{"remove_registry=yes", 158}));

TEST(TessmarkSteps, StandInTheirOrder) {
  std::vector<std::string> install, uninstall;
  for (const Step& step : tessmarkInstallSteps()) install.emplace_back(step.name);
  for (const Step& step : tessmarkUninstallSteps()) uninstall.emplace_back(step.name);
  EXPECT_THAT(install,
              LinesAre({"connect", "version", "stop", "directory", "copy", "remote_registry", "registry",
                        "service_manager", "service", "start", "snapshots", "earlier_folder"}));
  EXPECT_THAT(uninstall, LinesAre({"connect", "remote_registry", "service_manager", "find", "stop", "delete",
                                   "remove_snapshots", "remove_files", "remove_registry"}));
}

}  // namespace
}  // namespace varnhold::companion::test
