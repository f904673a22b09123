#include "companion/take_back.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "tests/companion/failing_computer.h"
#include "tests/companion/lab_fixture.h"

namespace varnhold::companion::test {
namespace {

bool isInstalled(std::int32_t code) {
  return code == 150 || code == 167 || code == 232;
}

/// Runs the job once for each change that it makes, with that change refused, from the same beginning every
/// time. A job that fails must leave the computer as it was. Gives the codes that came up.
std::vector<std::int32_t> refuseEachChange(JobKind kind, const JobRecord& record,
                                           const std::function<void(const LabFixture&)>& prepare) {
  std::vector<std::int32_t> codes;
  for (int change = 1;; ++change) {
    LabFixture lab;
    const auto host = lab.addHost("WKS01");
    prepare(lab);
    const auto before = snapshot(host);
    FailurePoint point{change, 0};
    const LabNetwork network = lab.network();
    const std::int32_t code = runJob(kind, FailingNetwork(network, point), {}, record, lab.material(),
                                     [](std::chrono::milliseconds) {});
    if (point.changes < change) return codes;
    codes.push_back(code);
    const bool done = kind == JobKind::Install ? isInstalled(code) : code == 152;
    if (!done) {
      EXPECT_EQ(snapshot(host), before) << "change " << change << " gave " << code;
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
