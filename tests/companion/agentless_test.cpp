// Computers that the manager's own agent polls: nothing runs on them.
#include <gmock/gmock.h>

#include "tests/companion/lab_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::companion::test {
namespace {

constexpr const char* kPolled = R"(SOFTWARE\Kelmont Works\Varnhold\Agent\Polled)";
constexpr const char* kManagerServices = "[Varnhold Agent]\npath=C:\\vhagent.exe\nstate=running\n";

/// WKS01, and the manager's own computer with its agent.
class Agentless : public testing::Test {
 protected:
  Agentless() {
    host_ = lab_.addHost("WKS01", "[host]\naddress = 10.1.1.11\nos_major = 6\n");
    manager_ = lab_.addHost("MANAGER");
    writeText(manager_ / "services.ini", kManagerServices);
  }

  static JobRecord record(const std::string& name = "WKS01") {
    JobRecord record = jobFor(name);
    record.agentless = true;
    record.agentMode = 0;
    return record;
  }
  [[nodiscard]] std::string polled(const std::string& name = "WKS01") const {
    return registryText(lab_, "MANAGER", kPolled, name);
  }

  LabFixture lab_;
  std::filesystem::path host_, manager_;
};

TEST_F(Agentless, InstallEntersTheComputerInTheManagersListAndLeavesItAlone) {
  const auto before = snapshot(host_);
  EXPECT_EQ(lab_.install(record("wks01")), 150);
  EXPECT_EQ(polled(), "10.1.1.11");
  EXPECT_EQ(snapshot(host_), before);
}

TEST_F(Agentless, InstallOfAComputerThatIsPolledAlreadyIsDone) {
  EXPECT_EQ(lab_.install(record()), 150);
  const auto before = snapshot(manager_);
  EXPECT_EQ(lab_.install(record()), 150);
  EXPECT_EQ(snapshot(manager_), before);
}

TEST_F(Agentless, UninstallTakesTheComputerFromTheListAndTheOthersStay) {
  lab_.addHost("WKS02", "[host]\naddress = 10.1.1.12\n");
  ASSERT_EQ(lab_.install(record()), 150);
  ASSERT_EQ(lab_.install(record("WKS02")), 150);
  EXPECT_EQ(lab_.uninstall(record(R"(\\WKS01)")), 152);
  EXPECT_EQ(polled(), "none");
  EXPECT_EQ(polled("WKS02"), "10.1.1.12");
  EXPECT_EQ(lab_.uninstall(record("WKS02")), 152);
  EXPECT_FALSE(lab_.network().find("MANAGER")->registry().hasKey(R"(SOFTWARE\Kelmont Works)"));
}

TEST_F(Agentless, UninstallNeedsNoAnswerOfTheComputer) {
  ASSERT_EQ(lab_.install(record()), 150);
  lab_.addHost("WKS01", "[host]\nanswers = no\n");
  EXPECT_EQ(lab_.uninstall(record()), 152);
  EXPECT_EQ(polled(), "none");
  ASSERT_EQ(lab_.uninstall(record()), 152);
  EXPECT_EQ(lab_.uninstall(record("NOBODY")), 152);
}

TEST_F(Agentless, UninstallFindsAComputerThatIsGoneByItsName) {
  ASSERT_EQ(lab_.install(record()), 150);
  std::filesystem::remove_all(host_);
  EXPECT_EQ(lab_.uninstall(record(R"(\\wks01)")), 152);
  EXPECT_EQ(polled(), "none");
}

TEST_F(Agentless, UninstallLeavesAnAgentOnTheComputerAlone) {
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  const auto before = snapshot(host_);
  EXPECT_EQ(lab_.uninstall(record()), 152);
  EXPECT_EQ(snapshot(host_), before);
}

TEST_F(Agentless, InstallNeedsASecurityLogThatCanBeRead) {
  lab_.addHost("WKS01", "[host]\naddress = 10.1.1.11\nos_major = 6\nsecurity_log = no\n");
  EXPECT_EQ(lab_.install(record()), 154);
  EXPECT_EQ(polled(), "none");
}

TEST_F(Agentless, InstallOnAComputerThatDemandsAnAccountNeedsItsShareConnected) {
  lab_.addHost("WKS01", "[host]\naddress = 10.1.1.11\n[account]\nuser = CORP\\admin\npassword = secret\n");
  JobRecord job = record();
  EXPECT_EQ(lab_.install(job), 154);
  EXPECT_EQ(polled(), "none");
  job.shareConnected = true;
  EXPECT_EQ(lab_.install(job), 150);
  EXPECT_EQ(lab_.uninstall(record()), 152);
}

TEST_F(Agentless, InstallCannotConnectToAComputerThatIsNotThereOrDoesNotAnswer) {
  lab_.addHost("WKS01", "[host]\nanswers = no\n");
  EXPECT_EQ(lab_.install(record()), 154);
  EXPECT_EQ(lab_.install(record("NOBODY")), 154);
}

TEST_F(Agentless, StartsTheManagersAgentWhenItRests) {
  writeText(manager_ / "services.ini", "[Varnhold Agent]\nstate=stopped\n");
  EXPECT_EQ(lab_.install(record()), 150);
  EXPECT_TRUE(serviceOn(lab_, "MANAGER").running);
}

TEST_F(Agentless, WarnsWith232WhenTheManagersAgentRestsAndIsRefusedItsStart) {
  lab_.addHost("WKS01", "[host]\naddress = 10.1.1.11\n[refuse]\nstart = yes\n");
  EXPECT_EQ(lab_.install(record()), 150);
  writeText(manager_ / "services.ini", "[Varnhold Agent]\nstate=stopped\n");
  EXPECT_EQ(lab_.install(record()), 232);
  EXPECT_EQ(polled(), "10.1.1.11");
}

TEST_F(Agentless, WarnsWith167WhenSecurityIsRefused) {
  lab_.addHost("WKS01", "[host]\naddress = 10.1.1.11\n[refuse]\nsecurity = yes\n");
  EXPECT_EQ(lab_.install(record()), 167);
  EXPECT_EQ(polled(), "10.1.1.11");
}

TEST_F(Agentless, FailsWith196WhereTheManagerHasNoAgent) {
  std::filesystem::remove(manager_ / "services.ini");
  EXPECT_EQ(lab_.install(record()), 196);
  EXPECT_EQ(lab_.uninstall(record()), 196);
  EXPECT_EQ(polled(), "none");
}

TEST_F(Agentless, FailsWith706WhereTheManagersRegistryCannotBeRead) {
  writeText(manager_ / "registry.reg", "this is no registry");
  EXPECT_EQ(lab_.install(record()), 706);
  EXPECT_EQ(lab_.uninstall(record()), 706);
  std::filesystem::remove_all(manager_);
  EXPECT_EQ(lab_.install(record()), 706);
  EXPECT_EQ(lab_.uninstall(record()), 706);
}

TEST_F(Agentless, JobOnTheManagersOwnComputerDoesNotWaitForItself) {
  EXPECT_EQ(lab_.install(record("MANAGER")), 150);
  EXPECT_EQ(lab_.uninstall(record("MANAGER")), 152);
}

class RefusedAgentless : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedAgentless, InstallEndsWithTheCodeOfTheStepAndLeavesNothing) {
  LabFixture lab;
  writeText(lab.addHost("MANAGER") / "services.ini", "[Varnhold Agent]\nstate=stopped\n");
  lab.addHost("WKS01", std::string("[refuse]\n") + GetParam().line + "\n");
  JobRecord record = jobFor("WKS01");
  record.agentless = true;
  const auto before = snapshot(lab.labFolder());
  EXPECT_EQ(lab.install(record), GetParam().code);
  EXPECT_EQ(snapshot(lab.labFolder()), before);
}

INSTANTIATE_TEST_SUITE_P(Install, RefusedAgentless,
                         testing::Values(Refusal{"connect=yes", 154}, Refusal{"connect=121", 153},
                                         Refusal{"share=67", 160}, Refusal{"security_log=yes", 154},
                                         Refusal{"local_registry=yes", 706}, Refusal{"find=yes", 200},
                                         Refusal{"find=1060", 196}, Refusal{"poll=yes", 158},
                                         Refusal{"start=1058", 227}, Refusal{"start=1069", 228}));

class RefusedAgentlessUninstall : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedAgentlessUninstall, EndsWithTheCodeOfTheStepAndPutsEverythingBack) {
  LabFixture lab;
  writeText(lab.addHost("MANAGER") / "services.ini", kManagerServices);
  lab.addHost("WKS01");
  JobRecord record = jobFor("WKS01");
  record.agentless = true;
  ASSERT_EQ(lab.install(record), 150);
  lab.addHost("WKS01", std::string("[refuse]\n") + GetParam().line + "\n");
  const auto before = snapshot(lab.labFolder());
  EXPECT_EQ(lab.uninstall(record), GetParam().code);
  EXPECT_EQ(snapshot(lab.labFolder()), before);
}

INSTANTIATE_TEST_SUITE_P(Steps, RefusedAgentlessUninstall,
                         testing::Values(Refusal{"local_registry=yes", 706}, Refusal{"find=yes", 200},
                                         Refusal{"find=1060", 196}, Refusal{"unpoll=yes", 158}));

TEST(AgentlessSteps, StandInTheirOrder) {
  std::vector<std::string> install, uninstall;
  for (const Step& step : agentlessInstallSteps()) install.emplace_back(step.name);
  for (const Step& step : agentlessUninstallSteps()) uninstall.emplace_back(step.name);
  EXPECT_THAT(install,
              LinesAre({"connect", "security_log", "local_registry", "find", "poll", "start", "security"}));
  EXPECT_THAT(uninstall, LinesAre({"local_registry", "find", "unpoll"}));
}

}  // namespace
}  // namespace varnhold::companion::test
