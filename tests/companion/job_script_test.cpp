#include <gmock/gmock.h>

#include <stdexcept>
#include <thread>

#include "tests/companion/lab_fixture.h"

namespace varnhold::companion::test {
namespace {

std::int32_t run(const LabFixture& lab, JobKind kind, const JobScript& script, const Sleep& sleep = {}) {
  const LabNetwork network = lab.network();
  return runJob(kind, network, script, jobFor("WKS01"), lab.material(), sleep);
}

TEST(JobScript, GivesACodeOfFailureWithoutDoingTheWork) {
  LabFixture lab;
  const auto host = lab.addHost("WKS01", "[result]\ninstall = 225\nuninstall = 703\n");
  const auto before = snapshot(host);
  EXPECT_EQ(lab.install(jobFor("WKS01")), 225);
  EXPECT_EQ(lab.uninstall(jobFor("WKS01")), 703);
  EXPECT_EQ(snapshot(host), before);
}

TEST(JobScript, GivesACodeOfSuccessBehindTheWork) {
  LabFixture lab;
  const auto host = lab.addHost("WKS01", "[result]\ninstall = 167\n");
  EXPECT_EQ(lab.install(jobFor("WKS01")), 167);
  EXPECT_TRUE(std::filesystem::exists(agentFolderOn(host) / "vhagent.exe"));
}

TEST(JobScript, GivesItsCodeWhateverTheJobWouldHaveGiven) {
  LabFixture lab;
  lab.addHost("WKS01", "[result]\nuninstall = 152\n");
  EXPECT_EQ(lab.uninstall(jobFor("WKS01")), 152);
  lab.addHost("WKS02", "[result]\ninstall = -1000\n");
  EXPECT_EQ(lab.install(jobFor("WKS02")), -1000);
}

TEST(JobScript, WaitsBeforeTheWork) {
  LabFixture lab;
  const auto host = lab.addHost("WKS01");
  JobScript script;
  script.delay = std::chrono::milliseconds(500);
  std::vector<std::chrono::milliseconds> slept;
  const auto sleep = [&](std::chrono::milliseconds time) {
    EXPECT_FALSE(std::filesystem::exists(host / "services.ini"));
    slept.push_back(time);
  };
  EXPECT_EQ(run(lab, JobKind::Install, script, sleep), 150);
  EXPECT_THAT(slept, testing::ElementsAre(std::chrono::milliseconds(500)));
}

TEST(JobScript, OfAJobThatNeverEndsSleepsOnAndOn) {
  LabFixture lab;
  lab.addHost("WKS01");
  JobScript script;
  script.neverEnds = true;
  int sleeps = 0;
  const auto sleep = [&](std::chrono::milliseconds) {
    if (++sleeps == 1000) throw std::runtime_error("enough");
  };
  // An exception in a job's thread is its unknown failure.
  EXPECT_EQ(run(lab, JobKind::Install, script, sleep), 710);
  EXPECT_EQ(sleeps, 1000);
}

TEST(Jobs, RunOnEightComputersAtOnce) {
  LabFixture lab;
  std::vector<std::int32_t> codes(8);
  std::vector<std::thread> threads;
  for (std::size_t at = 0; at < codes.size(); ++at) {
    const std::string name = "WKS" + std::to_string(at);
    lab.addHost(name, "[host]\n");
    threads.emplace_back([&, at, name] {
      for (int round = 0; round < 3; ++round) {
        codes[at] = lab.install(jobFor(name));
        codes[at] = codes[at] == 150 ? lab.uninstall(jobFor(name)) : codes[at];
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_THAT(codes, testing::Each(152));
}

TEST(Jobs, EnterEightComputersInTheManagersListAtOnceAndTakeThemOut) {
  LabFixture lab;
  const auto manager = lab.addHost("MANAGER");
  writeText(manager / "services.ini", "[Varnhold Agent]\nstate=running\n");
  const auto onAll = [&](const std::function<std::int32_t(const JobRecord&)>& job) {
    std::vector<std::int32_t> codes(8);
    std::vector<std::thread> threads;
    for (std::size_t at = 0; at < codes.size(); ++at)
      threads.emplace_back([&, at] {
        JobRecord record = jobFor("WKS" + std::to_string(at));
        record.agentless = true;
        codes[at] = job(record);
      });
    for (std::thread& thread : threads) thread.join();
    return codes;
  };
  for (int at = 0; at < 8; ++at) lab.addHost("WKS" + std::to_string(at), "[host]\n");
  EXPECT_THAT(onAll([&](const JobRecord& record) { return lab.install(record); }), testing::Each(150));
  EXPECT_EQ(lab.network()
                .find("MANAGER")
                ->registry()
                .values(R"(SOFTWARE\Kelmont Works\Varnhold\Agent\Polled)")
                .size(),
            8U);
  EXPECT_THAT(onAll([&](const JobRecord& record) { return lab.uninstall(record); }), testing::Each(152));
  EXPECT_FALSE(lab.network().find("MANAGER")->registry().hasKey(R"(SOFTWARE\Kelmont Works)"));
}

TEST(Jobs, OnOneComputerWaitForEachOther) {
  LabFixture lab;
  lab.addHost("WKS01");
  std::vector<std::int32_t> codes(8);
  std::vector<std::thread> threads;
  for (std::size_t at = 0; at < codes.size(); ++at)
    threads.emplace_back([&, at] { codes[at] = lab.install(jobFor("WKS01")); });
  for (std::thread& thread : threads) thread.join();
  EXPECT_THAT(codes, testing::Each(150));
  EXPECT_EQ(lab.uninstall(jobFor("WKS01")), 152);
  EXPECT_EQ(lab.uninstall(jobFor("WKS01")), 196);
}

}  // namespace
}  // namespace varnhold::companion::test
