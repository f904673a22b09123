#include "console/frmWait.h"

#include <gmock/gmock.h>

#include "tests/console/console_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class WaitTest : public ConsoleTest {
 protected:
  frmWait& wait = forms.frmWait;
};

TEST_F(WaitTest, GoesAwayAfterOneRoundWhereNoThreadRuns) {
  wait.WaitForThreads = true;
  wait.ShowModal();
  EXPECT_THAT(fake.journal, LinesAre({"Show modal frmWait", "Sleep 200", "Close frmWait"}));
  EXPECT_FALSE(wait.isLoaded());
}

TEST_F(WaitTest, AsksTheFourThreadsInOrderEachRound) {
  program.gSpareThread = fake.threads.start(1000);      // 7
  program.gSubnetThread = fake.threads.start(1000, 1);  // 8
  program.gDomainThread = fake.threads.start(1000);     // 9
  program.gEnumThread = fake.threads.start(1000, 2);    // 10
  wait.WaitForThreads = true;
  wait.ShowModal();
  EXPECT_THAT(fake.journal,
              LinesAre({"Show modal frmWait", "Sleep 200", "GetExitCodeThread 10 -> 259",
                        "GetExitCodeThread 9 -> 1000", "CloseHandle 9", "GetExitCodeThread 8 -> 259",
                        "GetExitCodeThread 7 -> 1000", "CloseHandle 7", "Sleep 200",
                        "GetExitCodeThread 10 -> 259", "GetExitCodeThread 8 -> 1000", "CloseHandle 8",
                        "Sleep 200", "GetExitCodeThread 10 -> 1000", "CloseHandle 10", "Close frmWait"}));
}

TEST_F(WaitTest, ForgetsAThreadThatCannotBeAsked) {
  program.gEnumThread = 99;
  wait.WaitForThreads = true;
  wait.ShowModal();
  EXPECT_THAT(fake.journal, LinesAre({"Show modal frmWait", "Sleep 200", "GetExitCodeThread 99 -> fails",
                                      "Close frmWait"}));
  EXPECT_EQ(program.gEnumThread, 0u);
}

TEST_F(WaitTest, TerminatesWhatStillRunsAfter75Rounds) {
  program.gEnumThread = fake.threads.start(1000, 1'000);
  program.gSubnetThread = fake.threads.start(1000, 1'000);
  wait.WaitForThreads = true;
  int pumped = 0;
  ui.onPump = [&] { ++pumped; };
  wait.ShowModal();
  EXPECT_EQ(pumped, 75);
  EXPECT_EQ(fake.clock.sleptMs, 15'000u);
  EXPECT_THAT(fakes::linesOf(fake.journal, "GetExitCodeThread"), SizeIs(150));
  const Lines end(fake.journal.end() - 5, fake.journal.end());
  EXPECT_THAT(end, LinesAre({"TerminateThread 7 0", "CloseHandle 7", "TerminateThread 8 0", "CloseHandle 8",
                             "Close frmWait"}));
  EXPECT_EQ(program.gEnumThread + program.gSubnetThread, 0u);
}

TEST_F(WaitTest, EndsEveryThreadAtOnceWhereItIsNotToWait) {
  program.gEnumThread = fake.threads.start(1000, 5);
  program.gDomainThread = fake.threads.start(1000, 5);
  program.gSpareThread = fake.threads.start(1000, 5);
  wait.Show();
  EXPECT_THAT(fake.journal,
              LinesAre({"Show frmWait", "TerminateThread 7 0", "CloseHandle 7", "TerminateThread 8 0",
                        "CloseHandle 8", "TerminateThread 9 0", "CloseHandle 9", "Close frmWait"}));
  EXPECT_FALSE(wait.isLoaded());
}

}  // namespace
}  // namespace varnhold::console
