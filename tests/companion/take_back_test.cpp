#include "companion/take_back.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "tests/companion/failing_computer.h"
#include "tests/companion/lab_fixture.h"

namespace varnhold::companion::test {
namespace {

bool isDone(JobKind kind, std::int32_t code) {
  if (kind == JobKind::Install) return code == 150 || code == 167 || code == 232 || code == 290;
  if (kind == JobKind::Upgrade) return code == 700 || code == 704;
  return code == 152 || code == 3000;
}

using Prepare = std::function<void(const LabFixture&)>;
using Material = std::function<AgentMaterial(const LabFixture&)>;

AgentMaterial varnholdMaterial(const LabFixture& lab) {
  return lab.material();
}

/// Runs the job once for each change that it makes, with that change refused, from the same beginning every
/// time. A job that fails must leave all computers as they were. Gives the codes that came up.
std::vector<std::int32_t> refuseEachChange(JobKind kind, JobRecord record, const Prepare& prepare,
                                           const Material& material = varnholdMaterial) {
  std::vector<std::int32_t> codes;
  for (int change = 1;; ++change) {
    LabFixture lab;
    lab.addHost("WKS01");
    prepare(lab);
    record.agentLibrary = lab.agentFolder() / "vhagent";
    const auto before = snapshot(lab.labFolder());
    FailurePoint point{change, 0};
    const LabNetwork network = lab.network();
    const std::int32_t code = runJob(kind, FailingNetwork(network, point), {}, record, material(lab),
                                     [](std::chrono::milliseconds) {});
    if (point.changes < change) return codes;
    codes.push_back(code);
    if (!isDone(kind, code)) {
      EXPECT_EQ(snapshot(lab.labFolder()), before) << "change " << change << " gave " << code;
    }
  }
}

void nothing(const LabFixture&) {}

void installBefore(const LabFixture& lab) {
  ASSERT_EQ(lab.install(jobFor("WKS01"), "6.0"), 150);
  writeText(lab.agentFolder() / "vhagent.exe", "newer program");
  writeText(lab.agentFolder() / "added.dll", "new in this version");
}

TEST(TakeBack, LeavesNothingOfAnInstallThatFailsAtAnyChange) {
  const auto codes = refuseEachChange(JobKind::Install, jobFor("WKS01"), nothing);
  EXPECT_THAT(codes, testing::IsSupersetOf({155, 351, 158, 180, 232, 167}));
}

TEST(TakeBack, RestoresTheEarlierAgentWhenItsReplacementFailsAtAnyChange) {
  JobRecord record = jobFor("WKS01");
  record.serviceUser = R"(CORP\agent)";
  const auto codes = refuseEachChange(JobKind::Install, record, installBefore);
  EXPECT_THAT(codes, testing::IsSupersetOf({210, 351, 158, 180, 377, 232, 167}));
}

TEST(TakeBack, RestoresTheEarlierAgentWhenItsMoveFailsAtAnyChange) {
  JobRecord record = jobFor("WKS01");
  record.installDirectory = R"(D:\AGENT\NEW)";
  const auto codes = refuseEachChange(JobKind::Install, record, installBefore);
  EXPECT_THAT(codes, testing::IsSupersetOf({155, 351, 158, 180, 232, 167, 150}));
}

TEST(TakeBack, PutsTheAgentBackWhenAnUninstallFailsAtAnyChange) {
  const auto codes = refuseEachChange(JobKind::Uninstall, jobFor("WKS01"), installBefore);
  EXPECT_THAT(codes, testing::IsSupersetOf({210, 220, 149, 158}));
}

TEST(TakeBack, RestoresTheAgentWhenItsUpgradeFailsAtAnyChange) {
  JobRecord record = jobFor("WKS01");
  record.remedialActions = true;
  const auto codes = refuseEachChange(JobKind::Upgrade, record, installBefore);
  EXPECT_THAT(codes, testing::IsSupersetOf({703, 708, 709, 712, 704}));
}

TEST(TakeBack, RestoresTheAgentAndItsConfigurationWhenItsUpgradeFailsAtAnyChange) {
  const auto prepare = [](const LabFixture& lab) {
    installBefore(lab);
    writeText(agentFolderOn(lab.labFolder() / "WKS01") / "vhaconfig.ini", "[Own]\r\nA=b\r\n");
  };
  const auto codes = refuseEachChange(JobKind::Upgrade, jobFor("WKS01"), prepare);
  EXPECT_THAT(codes, testing::IsSupersetOf({703, 708, 709, 712, 704}));
}

TEST(TakeBack, RestoresTheAgentWhenItsUpgradeOverIpFailsAtAnyChange) {
  JobRecord record = jobFor("WKS01");
  record.agentMode = 5;
  const auto codes = refuseEachChange(JobKind::UpgradeOverIp, record, installBefore);
  EXPECT_THAT(codes, testing::IsSupersetOf({3012, 3023, 3013}));
  EXPECT_THAT(codes, testing::Not(testing::Contains(3000)));
}

void managerBefore(const LabFixture& lab) {
  writeText(lab.labFolder() / "MANAGER" / "host.ini", "[host]\n");
  writeText(lab.labFolder() / "MANAGER" / "services.ini", "[Varnhold Agent]\nstate=stopped\n");
}

TEST(TakeBack, LeavesTheManagersListWhenAnAgentlessInstallFailsAtAnyChange) {
  JobRecord record = jobFor("WKS01");
  record.agentless = true;
  const auto codes = refuseEachChange(JobKind::Install, record, managerBefore);
  EXPECT_THAT(codes, testing::IsSupersetOf({158, 232, 167}));
}

TEST(TakeBack, LeavesTheManagersListWhenAnAgentlessUninstallFailsAtAnyChange) {
  JobRecord record = jobFor("WKS01");
  record.agentless = true;
  const auto prepare = [&](const LabFixture& lab) {
    managerBefore(lab);
    ASSERT_EQ(lab.install(record), 150);
  };
  EXPECT_THAT(refuseEachChange(JobKind::Uninstall, record, prepare), testing::Contains(158));
}

AgentMaterial changesMaterial(const LabFixture& lab) {
  return lab.changesMaterial();
}

void installTessmarkBefore(const LabFixture& lab) {
  ASSERT_EQ(lab.run(JobKind::Install, jobFor("WKS01"), lab.changesMaterial()), 150);
}

TEST(TakeBack, LeavesNothingOfATessmarkInstallThatFailsAtAnyChange) {
  const auto codes = refuseEachChange(JobKind::Install, jobFor("WKS01"), nothing, changesMaterial);
  EXPECT_THAT(codes, testing::IsSupersetOf({155, 351, 158, 180, 232}));
}

TEST(TakeBack, PutsTheTessmarkAgentAndItsSnapshotsBackWhenItsUninstallFailsAtAnyChange) {
  const auto codes =
      refuseEachChange(JobKind::Uninstall, jobFor("WKS01"), installTessmarkBefore, changesMaterial);
  EXPECT_THAT(codes, testing::IsSupersetOf({210, 220, 282, 158}));
}

TEST(TakeBack, UndoesTheLastChangeFirst) {
  std::string order;
  {
    TakeBack takeBack;
    takeBack.add([&] { order += "first"; });
    takeBack.add([&] { order += "second "; });
  }
  EXPECT_EQ(order, "second first");
}

TEST(TakeBack, UndoesNothingThatIsKept) {
  bool undone = false;
  {
    TakeBack takeBack;
    takeBack.add([&] { undone = true; });
    takeBack.keep();
  }
  EXPECT_FALSE(undone);
}

TEST(TakeBack, GoesOnBehindAnErrorOfOneUndo) {
  bool undone = false;
  {
    TakeBack takeBack;
    takeBack.add([&] { undone = true; });
    takeBack.add([] { throw std::runtime_error("disk gone"); });
  }
  EXPECT_TRUE(undone);
}

}  // namespace
}  // namespace varnhold::companion::test
