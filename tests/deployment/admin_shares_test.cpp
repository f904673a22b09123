#include "deployment/admin_shares.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "base/runtime_error.h"
#include "tests/deployment/fake_run_screen.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kBatch = R"(C:\App\RmTempLog.bat)";

class AdminShares : public ::testing::Test {
 protected:
  AdminShares() {
    program.gAppPath = R"(C:\App)";
    program.gLoginDomain = "CORP";
    program.gLoginUser = "admin";
    program.gLoginPassword = "pa55";
  }

  fakes::FakeHost fake;
  fakes::FakeRunScreen screen{fake.journal};
  core::Program program{fake.host(), core::kManagerTitle};
};

TEST_F(AdminShares, ConnectsCAndThenD) {
  ConnectAdminShares(program, screen, "HOST1");
  EXPECT_THAT(fake.journal, LinesAre({R"(createNew C:\App\RmTempLog.bat (owner only): )"
                                      R"(net use \\HOST1\c$ pa55 /USER:CORP\admin<CR><LF> -> Done)",
                                      R"(ShellExecute open C:\App\RmTempLog.bat show 0 -> 33)", "Sleep 3000",
                                      R"(remove C:\App\RmTempLog.bat -> Done)", "pump events",
                                      R"(createNew C:\App\RmTempLog.bat (owner only): )"
                                      R"(net use \\HOST1\d$ pa55 /USER:CORP\admin<CR><LF> -> Done)",
                                      R"(ShellExecute open C:\App\RmTempLog.bat show 0 -> 33)", "Sleep 5000",
                                      R"(remove C:\App\RmTempLog.bat -> Done)", "pump events"}));
}

TEST_F(AdminShares, DisconnectsCAndThenDWithTwoBlanksBeforeTheSwitch) {
  DisconnectAdminShares(program, screen, "HOST1");
  EXPECT_THAT(
      fake.journal,
      LinesAre({R"(createNew C:\App\RmTempLog.bat (owner only): net use \\HOST1\c$  /DELETE<CR><LF> -> Done)",
                R"(ShellExecute open C:\App\RmTempLog.bat show 0 -> 33)", "Sleep 2000",
                R"(remove C:\App\RmTempLog.bat -> Done)", "pump events",
                R"(createNew C:\App\RmTempLog.bat (owner only): net use \\HOST1\d$  /DELETE<CR><LF> -> Done)",
                R"(ShellExecute open C:\App\RmTempLog.bat show 0 -> 33)", "Sleep 2000",
                R"(remove C:\App\RmTempLog.bat -> Done)", "pump events"}));
}

TEST_F(AdminShares, DoNothingWithoutADomain) {
  program.gLoginDomain.clear();
  ConnectAdminShares(program, screen, "HOST1");
  DisconnectAdminShares(program, screen, "HOST1");
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(AdminShares, DoNothingWithoutAUser) {
  program.gLoginUser.clear();
  ConnectAdminShares(program, screen, "HOST1");
  DisconnectAdminShares(program, screen, "HOST1");
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(AdminShares, ConnectWithAnEmptyPassword) {
  program.gLoginPassword.clear();
  ConnectAdminShares(program, screen, "HOST1");
  EXPECT_THAT(fake.journal.front(), HasSubstr(R"(: net use \\HOST1\c$  /USER:CORP\admin<CR><LF>)"));
}

TEST_F(AdminShares, TakeNoNoticeOfWhatStartingAnswersAndLeaveNoFile) {
  fake.processes.result = 2;
  ConnectAdminShares(program, screen, "HOST1");
  EXPECT_THAT(fakes::linesOf(fake.journal, "Sleep"), LinesAre({"Sleep 3000", "Sleep 5000"}));
  EXPECT_EQ(fakes::linesOf(fake.journal, "remove").size(), 2u);
  EXPECT_EQ(fake.files.content(kBatch), std::nullopt);
}

TEST_F(AdminShares, HaveTheFileGoneBeforeEventsArePumped) {
  screen.onPump = [this] { EXPECT_EQ(fake.files.content(kBatch), std::nullopt); };
  ConnectAdminShares(program, screen, "HOST1");
  EXPECT_EQ(fakes::linesOf(fake.journal, "pump events").size(), 2u);
}

TEST_F(AdminShares, ReplaceAFileThatAKilledRunLeft) {
  fake.files.put(kBatch, "old line that others may read");
  ConnectAdminShares(program, screen, "HOST1");
  EXPECT_THAT(fakes::linesOf(fake.journal, "createNew")[1], HasSubstr(R"((owner only): net use \\HOST1\c$)"));
  EXPECT_EQ(fakes::linesOf(fake.journal, "ShellExecute").size(), 2u);
  EXPECT_EQ(fake.files.content(kBatch), std::nullopt);
}

TEST_F(AdminShares, RaiseWithoutThePasswordWhenTheFileCannotBeMade) {
  fake.files.refuse(kBatch, platform::FileOutcome::Refused);
  try {
    ConnectAdminShares(program, screen, "HOST1");
    FAIL() << "no run-time error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 70);
    EXPECT_THAT(error.description(), HasSubstr(std::string("Could not create '") + kBatch + "'"));
    EXPECT_THAT(error.description(), Not(HasSubstr("pa55")));
  }
  EXPECT_THAT(fakes::linesOf(fake.journal, "ShellExecute"), IsEmpty());
}

TEST_F(AdminShares, LeaveNoFileOfAKilledConsoleToTheNextOne) {
  constexpr const char* kLeft = R"(C:\VARNHOLD\RmTempLog.bat)";
  fake.files.put(kLeft, "a password");
  removeLeftBatchFile(program);
  EXPECT_EQ(fake.files.content(kLeft), std::nullopt);
  fake.files.refuse(kLeft, platform::FileOutcome::Refused);
  removeLeftBatchFile(program);
  EXPECT_THAT(fakes::linesOf(fake.journal, "MessageBox"), IsEmpty());
}

TEST_F(AdminShares, LeaveTheFileOfAConsoleThatRuns) {
  constexpr const char* kOthers = R"(C:\VARNHOLD\RmTempLog.bat)";
  fake.files.put(kOthers, "a password");
  for (const std::string title : {"Varnhold - System Manager ", "Tessmark? Agent Manager "}) {
    fake.desktop.windows = {{title, {}}};
    removeLeftBatchFile(program);
    EXPECT_NE(fake.files.content(kOthers), std::nullopt) << title;
  }
}

TEST_F(AdminShares, KeepThePasswordToTheBatchFile) {
  ConnectAdminShares(program, screen, "HOST1");
  DisconnectAdminShares(program, screen, "HOST1");
  for (const auto& line : fakes::linesWithout(fake.journal, {"createNew"})) {
    EXPECT_THAT(line, Not(HasSubstr("pa55")));
  }
}

}  // namespace
}  // namespace varnhold::deployment
