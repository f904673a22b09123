#include "deployment/run_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "base/runtime_error.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using platform::FileOutcome;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kOwnLog = R"(C:\App\AILog.txt)";
constexpr const char* kInstallerLog = R"(C:\V\RemoteInstaller\AILog.txt)";

/// The run-time error of `call`, if it raises one.
template <typename Call>
std::optional<RuntimeError> errorOf(Call call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error;
  }
  return std::nullopt;
}

/// A disk that refuses to delete.
class UndeletableFiles : public fakes::FakeFiles {
 public:
  using FakeFiles::FakeFiles;
  FileOutcome remove(const std::string&) override { return FileOutcome::Refused; }
};

class RunLog : public ::testing::Test {
 protected:
  RunLog() {
    program.gAppPath = R"(C:\App)";
    program.gInstallerDir = R"(C:\V\RemoteInstaller)";
  }

  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle};
};

TEST_F(RunLog, QuotesARecord) {
  AppendDeploymentLog(program, "Skipped: HOST1 - System not responding");
  AppendDeploymentLog(program, "HOST2 - Path was not found.");
  EXPECT_EQ(fake.files.content(kInstallerLog),
            "\"Skipped: HOST1 - System not responding\"\r\n\"HOST2 - Path was not found.\"\r\n");
}

TEST_F(RunLog, WritesInnerQuotesAsTheyAre) {
  AppendDeploymentLog(program, R"(say "no")");
  EXPECT_EQ(fake.files.content(kInstallerLog), "\"say \"no\"\"\r\n");
}

TEST_F(RunLog, WritesAnEmptyRecordAsTwoQuotes) {
  AppendDeploymentLog(program, "");
  EXPECT_EQ(fake.files.content(kInstallerLog), "\"\"\r\n");
}

TEST_F(RunLog, ResetDeletesTheLogOfTheProgramsFolderOnly) {
  fake.files.put(kOwnLog, "old");
  fake.files.put(kInstallerLog, "older");
  ResetDeploymentLog(program);
  EXPECT_EQ(fake.files.content(kOwnLog), std::nullopt);
  EXPECT_EQ(fake.files.content(kInstallerLog), "older");
}

TEST_F(RunLog, ResetTakesAMissingFileAsNoFault) {
  ResetDeploymentLog(program);
  EXPECT_THAT(fake.journal, LinesAre({R"(remove C:\App\AILog.txt -> NotFound)"}));
}

TEST_F(RunLog, ResetRaisesWhatKeepsAFileFromBeingDeleted) {
  UndeletableFiles files(fake.journal);
  const auto host = fake.host();
  core::Program stuck({host.registry, host.services, host.eventLog, files, host.processes, host.threads,
                       host.clock, host.environment, host.libraries, host.ui, host.desktop, host.accounts,
                       host.security, host.secur32, host.heap},
                      core::kManagerTitle);
  stuck.gAppPath = R"(C:\App)";
  const auto error = errorOf([&] { ResetDeploymentLog(stuck); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 70);
  EXPECT_THAT(error->description(), HasSubstr(R"(Could not delete 'C:\App\AILog.txt')"));
}

TEST_F(RunLog, RaisesANumberAndWordsForEachWayAWriteFails) {
  struct Case {
    FileOutcome outcome;
    std::int32_t number;
    const char* reason;
    const char* remedy;
  };
  for (const auto& [outcome, number, reason, remedy] :
       {Case{FileOutcome::NotFound, 53, "does not exist", "Check that the folder is there"},
        Case{FileOutcome::Refused, 70, "access was denied", "Check your rights"},
        Case{FileOutcome::Exists, 75, "exists already", "Delete the file"},
        Case{FileOutcome::Full, 61, "the disk is full", "Free some space"}}) {
    fake.files.refuse(kInstallerLog, outcome);
    const auto error = errorOf([&] { AppendDeploymentLog(program, "HOST1 - a secret"); });
    ASSERT_TRUE(error) << number;
    EXPECT_EQ(error->number(), number);
    EXPECT_THAT(error->description(), HasSubstr(std::string("Could not write '") + kInstallerLog + "'"));
    EXPECT_THAT(error->description(), HasSubstr(reason));
    EXPECT_THAT(error->description(), HasSubstr(remedy));
    EXPECT_THAT(error->description(), ::testing::Not(HasSubstr("secret")));
  }
}

TEST_F(RunLog, WritesPlainLinesInOneOpening) {
  appendLogLines(fake.files, R"(C:\App)", {"one", "", "two"});
  EXPECT_THAT(fake.journal, LinesAre({R"(append C:\App\AILog.txt: one<CR><LF><CR><LF>two<CR><LF> -> Done)"}));
}

TEST_F(RunLog, PlainLinesRaiseAsRecordsDo) {
  fake.files.refuse(kOwnLog, FileOutcome::Full);
  const auto error = errorOf([&] { appendLogLines(fake.files, R"(C:\App)", {"one"}); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 61);
}

TEST_F(RunLog, StampsALine) {
  EXPECT_EQ(stampedLine({2026, 1, 31, 16, 5, 9}, "HOST1: Installed successfully"),
            "1/31/2026 4:05:09 PM :: HOST1: Installed successfully");
}

TEST(TimeStamp, HasOneForm) {
  EXPECT_EQ(formatTimeStamp({2026, 1, 31, 16, 5, 9}), "1/31/2026 4:05:09 PM");
  EXPECT_EQ(formatTimeStamp({2026, 12, 1, 0, 0, 0}), "12/1/2026 12:00:00 AM");
  EXPECT_EQ(formatTimeStamp({2026, 12, 1, 0, 59, 59}), "12/1/2026 12:59:59 AM");
  EXPECT_EQ(formatTimeStamp({2026, 12, 1, 1, 0, 0}), "12/1/2026 1:00:00 AM");
  EXPECT_EQ(formatTimeStamp({2026, 12, 1, 11, 59, 59}), "12/1/2026 11:59:59 AM");
  EXPECT_EQ(formatTimeStamp({2026, 10, 10, 12, 0, 0}), "10/10/2026 12:00:00 PM");
  EXPECT_EQ(formatTimeStamp({2026, 10, 10, 13, 10, 0}), "10/10/2026 1:10:00 PM");
  EXPECT_EQ(formatTimeStamp({2026, 10, 10, 23, 59, 59}), "10/10/2026 11:59:59 PM");
}

}  // namespace
}  // namespace varnhold::deployment
