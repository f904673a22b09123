#include "core/online_help.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_small_ports.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::core {
namespace {

const std::string kPage = "https://docs.example.com/Varnhold%20Online%20Help/Varnhold_Online_Help.htm";

class OnlineHelpTest : public testing::Test {
 protected:
  fakes::Journal journal;
  fakes::FakeProcesses processes{journal};
  fakes::FakeUi ui{journal};
};

TEST_F(OnlineHelpTest, OpensThePageInTheHostsBrowser) {
  ShowOnlineHelp(processes, ui);
  EXPECT_THAT(journal, LinesAre({"ShellExecute open " + kPage + " show 1 -> 33"}));
}

TEST_F(OnlineHelpTest, TriesAProgramOfItsOwnWhereThatFails) {
  processes.resultOf[kPage] = 32;
  ShowOnlineHelp(processes, ui);
  EXPECT_THAT(journal, LinesAre({"ShellExecute open " + kPage + " show 1 -> 32",
                                 "ShellExecute open iexplore " + kPage + " show 1 -> 33"}));
}

TEST_F(OnlineHelpTest, TellsTheAddressWhereNoBrowserStarts) {
  processes.result = 2;
  ShowOnlineHelp(processes, ui);
  EXPECT_THAT(journal, LinesAre({"ShellExecute open " + kPage + " show 1 -> 2",
                                 "ShellExecute open iexplore " + kPage + " show 1 -> 2",
                                 "MessageBox information: Failed to launch the default web browser. You "
                                 "can use the following URL to check whats new in Varnhold.\r" +
                                     kPage}));
}

}  // namespace
}  // namespace varnhold::core
