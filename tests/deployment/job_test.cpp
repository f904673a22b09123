#include "deployment/job.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/runtime_error.h"
#include "tests/deployment/agent_key.h"
#include "tests/deployment/fake_run_screen.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StartJob : public ::testing::Test {
 protected:
  StartJob() {
    program.gInstallerDir = R"(C:\V\RemoteInstaller)";
    program.gChangesRoot = R"(C:\TK)";
    job.SystemName = "HOST1";
    fake.libraries.computers["HOST1"] = {};
  }

  platform::ThreadHandle start() { return StartDeploymentJob(program, choices, job); }

  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle};
  JobChoices choices{.optClient0 = true};
  platform::DeploymentJob job;
};

using StartDeploymentJobInstall = StartJob;
using StartDeploymentJobUninstall = StartJob;
using StartDeploymentJobUpgrade = StartJob;
using StartDeploymentJobOtherwise = StartJob;

TEST_F(StartDeploymentJobInstall, TakesTheMaterialOfTheVarnholdProduct) {
  choices.Operation = kOperationInstall;
  EXPECT_EQ(start(), 7u);
  EXPECT_THAT(fake.journal, LinesAre({R"(qrvCInstall [SystemName=HOST1] C:\V\RemoteInstaller\remins -> 7)"}));
}

TEST_F(StartDeploymentJobInstall, TakesTheMaterialOfTheTessmarkProduct) {
  choices.Operation = kOperationInstall;
  choices.optClient0 = false;
  EXPECT_EQ(start(), 7u);
  EXPECT_THAT(fake.journal, LinesAre({R"(qrvCInstall [SystemName=HOST1] C:\TK\remins -> 7)"}));
}

TEST_F(StartDeploymentJobInstall, CopiesRemedialScriptsOnlyForACheckedBox) {
  choices.Operation = kOperationInstall;
  choices.chkUpgradeRemedialActionScripts = 1;
  for (const auto& [box, flag] : {std::pair{0, 0}, std::pair{1, 1}, std::pair{2, 0}}) {
    choices.chkCopyRemedialActionScripts = box;
    job.RemedialFlag = 9;
    EXPECT_NE(start(), 0u);
    EXPECT_EQ(job.RemedialFlag, flag) << box;
  }
}

TEST_F(StartDeploymentJobInstall, GivesTheJobsStringsBackAsTheLibraryLeftThem) {
  choices.Operation = kOperationInstall;
  fake.libraries.onJob = [](platform::DeploymentJob& passed) {
    passed.InstallDirectory = R"(C:\Program Files\A)";
  };
  EXPECT_NE(start(), 0u);
  EXPECT_EQ(job.InstallDirectory, R"(C:\Program Files\A)");
}

TEST_F(StartDeploymentJobUninstall, LeavesTheFlagsOfTheJobAlone) {
  choices.Operation = kOperationUninstall;
  choices.chkCopyRemedialActionScripts = choices.chkUpgradeRemedialActionScripts = 1;
  job.SystemName = R"(\\HOST1)";
  EXPECT_EQ(start(), 7u);
  EXPECT_THAT(fake.journal,
              LinesAre({R"(qrvCUninstall [SystemName=\\HOST1] C:\V\RemoteInstaller\remins -> 7)"}));
}

TEST_F(StartDeploymentJobUpgrade, GoesOverTheDomainFirst) {
  choices.Operation = kOperationUpgrade;
  choices.optWinDom = choices.optOverIP = true;
  job.ConfigFile = R"(C:\my.ini)";
  EXPECT_EQ(start(), 7u);
  EXPECT_THAT(
      fake.journal,
      LinesAre(
          {R"(qrvCUpgradeAgent [SystemName=HOST1, ConfigFile=C:\my.ini] C:\V\RemoteInstaller\remins -> 7)"}));
}

TEST_F(StartDeploymentJobUpgrade, TellsTheDefaultConfigurationByTheEmptyFileName) {
  choices.Operation = kOperationUpgrade;
  choices.optWinDom = true;
  EXPECT_NE(start(), 0u);
  EXPECT_EQ(job.UseDefaultConfig, 1);
  job.ConfigFile = "x.ini";
  EXPECT_NE(start(), 0u);
  EXPECT_EQ(job.UseDefaultConfig, 0);
}

TEST_F(StartDeploymentJobUpgrade, PassesTheRemedialBoxAsAByte) {
  choices.Operation = kOperationUpgrade;
  choices.chkCopyRemedialActionScripts = 1;
  choices.optWinDom = true;
  for (const int box : {0, 1, 2}) {
    choices.chkUpgradeRemedialActionScripts = box;
    EXPECT_NE(start(), 0u);
    EXPECT_EQ(job.RemedialFlag, box);
  }
}

TEST_F(StartDeploymentJobUpgrade, OverIPTakesTheLibraryOfTheLocalAgent) {
  fake.registry.setText(kAgentKey, "InstallPath", R"(D:\Agent)");
  choices.Operation = kOperationUpgrade;
  choices.optOverIP = true;
  job.AgentMode = 5;
  job.OSFlag = 6;
  EXPECT_EQ(start(), 7u);
  EXPECT_THAT(
      fake.journal,
      LinesAre({R"(RegQueryValueEx SOFTWARE\Kelmont Works\Varnhold\Agent\InstallPath -> Done)",
                R"(qrvCUpgradeAgentOverIP [SystemName=HOST1, OSFlag=6, AgentMode=5, UseDefaultConfig=1] )"
                R"(D:\Agent\vhagent -> 7)"}));
}

TEST_F(StartDeploymentJobUpgrade, OverIPWithoutALocalAgentStaysBelowRemins) {
  choices.Operation = kOperationUpgrade;
  choices.optOverIP = true;
  EXPECT_EQ(start(), 7u);
  EXPECT_EQ(fake.journal.back(), R"(qrvCUpgradeAgentOverIP [SystemName=HOST1, UseDefaultConfig=1] )"
                                 R"(C:\V\RemoteInstaller\remins\vhagent -> 7)");
}

TEST_F(StartDeploymentJobUpgrade, OverIPKeepsTheFolderWhenTheValueIsNoText) {
  fake.registry.setRaw(kAgentKey, "InstallPath", platform::kRegBinary, "abc");
  choices.Operation = kOperationUpgrade;
  choices.optOverIP = true;
  EXPECT_EQ(start(), 7u);
  EXPECT_EQ(fake.journal.back(), R"(qrvCUpgradeAgentOverIP [SystemName=HOST1, UseDefaultConfig=1] )"
                                 R"(C:\V\RemoteInstaller\remins\vhagent -> 7)");
}

TEST_F(StartDeploymentJobUpgrade, StartsNothingWhenNoWayIsChosen) {
  choices.Operation = kOperationUpgrade;
  EXPECT_EQ(start(), 0u);
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(StartDeploymentJobOtherwise, StartsNothing) {
  for (const std::int32_t operation : {0, 4, -1}) {
    choices.Operation = operation;
    EXPECT_EQ(start(), 0u) << operation;
  }
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(StartDeploymentJobOtherwise, LetsAMissingLibraryReachTheCaller) {
  choices.Operation = kOperationInstall;
  fake.libraries.failures.emplace("qrvCInstall", RuntimeError(kFileNotFound, "no library"));
  EXPECT_THROW(static_cast<void>(start()), RuntimeError);
}

class Waiting : public ::testing::Test {
 protected:
  std::int32_t wait(platform::ThreadHandle thread, std::int32_t codeAlreadySet = 0,
                    std::int32_t target = 50) {
    auto host = fake.host();
    return WaitForJob(host, screen, thread, codeAlreadySet, target);
  }

  fakes::FakeHost fake;
  fakes::FakeRunScreen screen{fake.journal};
};

using WaitForJobTest = Waiting;
using WaitForThread = Waiting;

TEST_F(WaitForJobTest, ClosesAThreadThatHasEndedWithoutSleeping) {
  EXPECT_EQ(wait(fake.threads.start(1150)), 150);
  EXPECT_THAT(fake.journal, LinesAre({"GetExitCodeThread 7 -> 1150", "CloseHandle 7"}));
}

TEST_F(WaitForJobTest, MovesTheBarPumpsAndSleepsBetweenPolls) {
  EXPECT_EQ(wait(fake.threads.start(1232, 2)), 232);
  EXPECT_THAT(fake.journal, LinesAre({"GetExitCodeThread 7 -> 259", "progress 1", "pump events", "Sleep 200",
                                      "GetExitCodeThread 7 -> 259", "progress 2", "pump events", "Sleep 200",
                                      "GetExitCodeThread 7 -> 1232", "CloseHandle 7"}));
}

TEST_F(WaitForJobTest, LeavesTheBarAtItsTarget) {
  screen.value = 9;
  EXPECT_EQ(wait(fake.threads.start(1152, 3), 0, 10), 152);
  EXPECT_THAT(fakes::linesOf(fake.journal, "progress"), LinesAre({"progress 10"}));
  EXPECT_EQ(fakes::linesOf(fake.journal, "pump events").size(), 3u);
}

TEST_F(WaitForJobTest, WithoutAThreadPollsNothingAndGives710) {
  EXPECT_EQ(wait(0), 710);
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(WaitForJobTest, WithoutAThreadKeepsTheCodeThatWasSet) {
  EXPECT_EQ(wait(0, 800), 800);
  EXPECT_EQ(wait(0, 801), 801);
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(WaitForJobTest, DoesNotTakeAStopAsTheEndOfTheJob) {
  screen.onPump = [this] { fake.journal.push_back("stop requested"); };
  EXPECT_EQ(wait(fake.threads.start(1150, 1)), 150);
  EXPECT_EQ(fake.journal.back(), "CloseHandle 7");
}

TEST_F(WaitForJobTest, HasNoTimeOut) {
  EXPECT_EQ(wait(fake.threads.start(1150, 20000)), 150);
  EXPECT_EQ(fake.clock.sleptMs, 20000u * 200u);
}

TEST_F(WaitForThread, WorksWithoutAScreen) {
  EXPECT_EQ(waitForThread(fake.threads, fake.clock, fake.threads.start(1150, 1)), 150);
  EXPECT_THAT(fake.journal, LinesAre({"GetExitCodeThread 7 -> 259", "Sleep 200",
                                      "GetExitCodeThread 7 -> 1150", "CloseHandle 7"}));
}

TEST_F(WaitForThread, GivesMinus1000ForAThreadThatEndsWithZero) {
  EXPECT_EQ(waitForThread(fake.threads, fake.clock, fake.threads.start(0)), -1000);
  EXPECT_THAT(fake.threads.openHandles(), IsEmpty());
}

TEST_F(WaitForThread, LeavesTheHandleOpenWhenTheFirstPollFails) {
  const auto thread = fake.threads.start(1150);
  fake.threads.failsGetExitCode = true;
  EXPECT_EQ(waitForThread(fake.threads, fake.clock, thread), -1000);
  EXPECT_THAT(fake.journal, LinesAre({"GetExitCodeThread 7 -> fails"}));
  EXPECT_THAT(fake.threads.openHandles(), ElementsAre(thread));
}

TEST_F(WaitForThread, TakesTheExitValueAsItStandsWhenALaterPollFails) {
  const auto thread = fake.threads.start(1150, 5);
  fake.clock.onSleep = [this] { fake.threads.failsGetExitCode = true; };
  EXPECT_EQ(waitForThread(fake.threads, fake.clock, thread), 259 - 1000);
  EXPECT_THAT(fake.threads.openHandles(), ElementsAre(thread));
}

TEST_F(WaitForThread, TakesTheWholeRangeOfExitValues) {
  EXPECT_EQ(waitForThread(fake.threads, fake.clock, fake.threads.start(0xFFFFFFFF)), -1001);
  EXPECT_EQ(waitForThread(fake.threads, fake.clock, fake.threads.start(4000)), 3000);
}

TEST(Progress, StepIsARoundedShareOfTheBar) {
  EXPECT_EQ(progressStep(1), 100);
  EXPECT_EQ(progressStep(3), 33);
  EXPECT_EQ(progressStep(6), 17);
  EXPECT_EQ(progressStep(8), 12);
  EXPECT_EQ(progressStep(40), 2);
  EXPECT_EQ(progressStep(201), 0);
}

TEST(Progress, StepOfNoSystemsIsNoError) {
  EXPECT_EQ(progressStep(0), 0);
}

TEST(Progress, TargetStopsAt99) {
  EXPECT_EQ(progressTarget(0, 33), 33);
  EXPECT_EQ(progressTarget(66, 33), 99);
  EXPECT_EQ(progressTarget(0, 100), 99);
  EXPECT_EQ(progressTarget(99, 17), 99);
}

}  // namespace
}  // namespace varnhold::deployment
