// A long day at the console: refreshes, clicks and dialogs, while the enumeration fills the same inventory.
#include <gmock/gmock.h>

#include <memory>
#include <string>

#include "console/forms.h"
#include "platform/host_adapters.h"
#include "startup/console_mode.h"
#include "tests/cli/stage.h"
#include "tests/fakes/scripted_ui.h"

namespace varnhold {
namespace {

constexpr int kRounds = 1000;
constexpr int kLabComputers = 40;

class ConsoleSession : public testing::Test {
 protected:
  ConsoleSession() {
    stage.putCompanion();
    for (int i = 0; i < kLabComputers; ++i) addLabComputer("LAB" + std::to_string(100 + i), i);
    for (const char* group : {"Desks", "Servers"}) {
      const std::string name = group;
      cli::Stage::execute("INSERT INTO System_Group_Master VALUES ('" + name + "', 'of the session', 0)");
      cli::Stage::execute("INSERT INTO System_Group_Detail VALUES ('" + name + "', 0, '', '')");
      cli::Stage::execute("INSERT INTO System_Group VALUES ('LAB100', '" + name + "')");
    }
    EXPECT_NE(adapters->libraries().qrvSetNetAccessMode(1), 0);
  }

  void addLabComputer(const std::string& name, int number) {
    stage.addComputer(name, "[host]\naddress = 10.1.2." + std::to_string(number + 1) +
                                "\ntype = 7\nos_major = 5\ndomain = CORP\nanswers = yes\n"
                                "program_files = C:\\Program Files\n");
  }

  /// One of the things that an operator does; which one goes by the round.
  void act(int round) {
    auto& frmMain = forms.frmMain;
    switch (round % 6) {
      case 0:
        frmMain.mnuViewRefresh.userClick();
        break;
      case 1:
        frmMain.tvTreeView.userClick(2 + round / 6 % 2);
        break;
      case 2:
        frmMain.tvTreeView.userClick(1);
        break;
      case 3:
        frmMain.lvListView.userColumnClick(1 + round % 5);
        break;
      case 4:
        showDetails(round);
        break;
      default:
        ui.nextModal("frmNetAccessSel", [this](ui::Form&) { forms.frmNetAccessSel.cmdOK.userClick(); });
        frmMain.mnuOptionsNetAccessMode.userClick();
    }
  }

  void showDetails(int round) {
    auto& frmMain = forms.frmMain;
    if (frmMain.lvListView.ListItems.Count() == 0) return;
    ui.nextModal("frmDetails", [this, round](ui::Form&) {
      forms.frmDetails.txtDes.userEdit("seen in round " + std::to_string(round), 0);
      forms.frmDetails.cmdOK.userClick();
    });
    frmMain.lvListView.userDblClick(1);
  }

  cli::Stage stage;
  std::unique_ptr<platform::HostAdapters> adapters =
      platform::makeHostAdapters({0, nullptr, stage.home().string()});
  fakes::Journal journal;
  fakes::ScriptedUi ui{journal};
  core::Program program{core::hostOf(*adapters, ui.screen), core::kManagerTitle};
  console::Forms forms{program, ui.screen};
};

TEST_F(ConsoleSession, RunsAThousandRoundsWhileTheNetworkIsEnumerated) {
  ui.onLoop = [this] {
    for (int round = 0; round < kRounds; ++round) act(round);
    forms.frmMain.tvTreeView.userClick(1);
    forms.frmMain.mnuViewRefresh.userClick();
    forms.frmMain.userClose();
  };
  EXPECT_EQ(startup::runConsoleProcess(program, ui.screen, forms), 0);

  EXPECT_THAT(cli::Stage::computers(), testing::SizeIs(testing::Ge(std::size_t{kLabComputers})));
  EXPECT_THAT(journal, testing::Not(testing::Contains(testing::HasSubstr("MessageBox"))));
}

}  // namespace
}  // namespace varnhold
