#include "base/runtime_error.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

#include <vector>

namespace varnhold {
namespace {

TEST(ResumeNext, TellsTheErrorAndGoesOnWithTheNextStatement) {
  std::vector<std::string> seen;
  const ResumeNext policy([&](const RuntimeError& error) { seen.push_back(error.description()); });

  EXPECT_FALSE(policy.step([] { throw RuntimeError(kInvalidUseOfNull, "Invalid use of Null"); }));
  EXPECT_TRUE(policy.step([&] { seen.emplace_back("next"); }));

  EXPECT_THAT(seen, LinesAre({"Invalid use of Null", "next"}));
}

TEST(ResumeNext, WithoutAHandlerSwallowsTheError) {
  EXPECT_FALSE(ResumeNext().step([] { throw RuntimeError(kDiskFull, "Disk full"); }));
}

TEST(ResumeNext, LetsAnErrorOfItsHandlerReachTheCaller) {
  const ResumeNext policy([](const RuntimeError&) { throw RuntimeError(kPathFileAccess, "no log"); });
  try {
    policy.step([] { throw RuntimeError(kInvalidUseOfNull, "Invalid use of Null"); });
    FAIL() << "the handler's error was swallowed";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), kPathFileAccess);
  }
}

TEST(RuntimeError, KeepsTheSignOfADatabaseNumber) {
  EXPECT_EQ(static_cast<std::uint32_t>(kStatementRefused), 0x80040E14u);
  EXPECT_EQ(static_cast<std::uint32_t>(kDatabaseFailed), 0x80004005u);
}

}  // namespace
}  // namespace varnhold
