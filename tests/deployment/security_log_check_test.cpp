#include "deployment/security_log_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "tests/deployment/fake_run_screen.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SecurityLogCheck : public ::testing::Test {
 protected:
  SecurityLogCheck() {
    program.gInstallerDir = R"(C:\I)";
    screen.names = {{1, "HOST1"}, {2, "HOST2"}};
  }

  fakes::FakeHost fake;
  fakes::FakeRunScreen screen{fake.journal};
  core::Program program{fake.host(), core::kManagerTitle};
};

TEST_F(SecurityLogCheck, OpensAndClosesTheLogOfTheRowsSystem) {
  EXPECT_TRUE(CheckRemoteSecurityLog(program, screen, 2));
  EXPECT_THAT(fake.journal, LinesAre({R"(OpenEventLog \\HOST2 Security -> 1)", "pump events", "refresh",
                                      "CloseEventLog 1"}));
  EXPECT_THAT(fake.eventLog.openHandles(), IsEmpty());
}

TEST_F(SecurityLogCheck, WordsTheErrorOfTheHostInOneLine) {
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  fake.eventLog.messages[5] = std::string("Access\r\nis denied.\r\n\0\0\0", 24);
  EXPECT_FALSE(CheckRemoteSecurityLog(program, screen, 1));
  EXPECT_THAT(fake.journal,
              LinesAre({R"(OpenEventLog \\HOST1 Security -> 0, error 5)", "errors seen", "FormatMessage 5",
                        R"(append C:\I\AILog.txt: "Skipped: HOST1 - Accessis denied."<CR><LF> -> Done)",
                        "status 1: Skipped: Accessis denied.", "pump events", "refresh"}));
}

TEST_F(SecurityLogCheck, GivesTheNumberThatFormattingLeftWhereTheHostHasNoWords) {
  fake.eventLog.refused[R"(\\HOST1)"] = 1722;
  fake.eventLog.formatError = 317;
  EXPECT_FALSE(CheckRemoteSecurityLog(program, screen, 1));
  EXPECT_THAT(
      fake.journal,
      LinesAre({R"(OpenEventLog \\HOST1 Security -> 0, error 1722)", "errors seen", "FormatMessage 1722",
                R"(append C:\I\AILog.txt: "Skipped: HOST1 - Error in Format String -317"<CR><LF> -> Done)",
                "status 1: Skipped: Due to unknown error. Refer to error log", "pump events", "refresh"}));
}

TEST_F(SecurityLogCheck, LeavesALogThatCannotBeWrittenToTheCallersPolicy) {
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  fake.files.refuse(R"(C:\I\AILog.txt)", platform::FileOutcome::Refused);
  EXPECT_THROW(static_cast<void>(CheckRemoteSecurityLog(program, screen, 1)), RuntimeError);
  EXPECT_THAT(fakes::linesOf(fake.journal, "errors seen"), LinesAre({"errors seen"}));
}

}  // namespace
}  // namespace varnhold::deployment
