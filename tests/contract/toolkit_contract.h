#pragma once

#include <gmock/gmock.h>

#include <concepts>
#include <functional>
#include <string>

#include "tests/fakes/journal.h"
#include "tests/fakes/lines_are.h"
#include "ui/controls/command_button.h"
#include "ui/controls/form.h"
#include "ui/controls/screen.h"
#include "ui/controls/timer.h"

/// What every toolkit does for forms, the scripted one of the tests included. A host's test file gives one
/// type:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Wx, ToolkitContract, WxToolkitHost);
namespace varnhold::contract {

template <class Host>
concept ToolkitHost = std::default_initializable<Host> && requires(Host host, std::function<void()> deed) {
  { host.screen() } -> std::convertible_to<ui::Screen&>;
  /// What the user does on the form `frmB` as soon as it is shown modally. It leaves the form hidden or
  /// unloaded.
  {host.nextModal(deed)};
  /// What the user does as soon as the event loop runs.
  {host.inLoop(deed)};
  /// What the user does while the program pumps events.
  {host.whilePumping(deed)};
  /// Lets that many milliseconds pass, with the event loop running.
  {host.pass(1)};
};

/// Two forms by the names that hosts can show: frmA and frmB.
class ContractForm : public ui::Form {
 public:
  ContractForm(ui::Screen& screen, fakes::Journal& journal, std::string name)
      : Form(screen, std::move(name)), journal_(journal) {
    tmrPoll.Enabled = false;
    adopt({{"cmdOK", cmdOK}, {"tmrPoll", tmrPoll}});
  }

  ui::CommandButton cmdOK{"&OK"};
  ui::Timer tmrPoll;

 protected:
  void Form_Load() override { happened("Load"); }
  void Form_Activate() override { happened("Activate"); }
  void Form_Unload() override { happened("Unload"); }

 private:
  void happened(const std::string& what) { journal_.push_back(Name() + " " + what); }

  fakes::Journal& journal_;
};

template <ToolkitHost Host>
class ToolkitContract : public ::testing::Test {
 protected:
  Host host;
  fakes::Journal journal;
  ContractForm frmA{host.screen(), journal, "frmA"};
  ContractForm frmB{host.screen(), journal, "frmB"};
};

TYPED_TEST_SUITE_P(ToolkitContract);

TYPED_TEST_P(ToolkitContract, AModalFormHoldsTheCallerUntilItGoesAway) {
  this->frmA.Show();
  this->journal.clear();
  this->host.nextModal([&] {
    this->journal.push_back("user");
    EXPECT_TRUE(this->frmB.acceptsInput());
    EXPECT_FALSE(this->frmA.acceptsInput());
    this->frmB.cmdOK.userClick();
  });
  this->frmB.cmdOK.Click = [&] { this->frmB.Unload(); };
  this->frmB.ShowModal(&this->frmA);
  this->journal.push_back("returned");
  EXPECT_THAT(this->journal,
              LinesAre({"frmB Load", "frmB Activate", "user", "frmB Unload", "frmA Activate", "returned"}));
  this->frmA.Unload();
}

TYPED_TEST_P(ToolkitContract, AHiddenFormEndsItsModalRunAndComesAgain) {
  for (int round = 0; round < 2; ++round) {
    this->host.nextModal([&] { this->frmB.Hide(); });
    this->frmB.ShowModal();
    EXPECT_TRUE(this->frmB.isLoaded());
    EXPECT_FALSE(this->frmB.Visible());
  }
  EXPECT_THAT(this->journal, LinesAre({"frmB Load", "frmB Activate", "frmB Activate"}));
  this->frmB.Unload();
}

TYPED_TEST_P(ToolkitContract, TheRunEndsWithTheLastShownForm) {
  this->host.inLoop([&] {
    this->frmA.cmdOK.Click = [&] { this->frmA.Unload(); };
    this->frmA.cmdOK.userClick();
  });
  EXPECT_EQ(this->host.screen().run([&] { this->frmA.Show(); }), 0);
  EXPECT_THAT(this->journal, LinesAre({"frmA Load", "frmA Activate", "frmA Unload"}));
}

TYPED_TEST_P(ToolkitContract, EndLeavesEveryLoopAtOnce) {
  this->host.nextModal([&] { this->frmB.cmdOK.userClick(); });
  this->frmB.cmdOK.Click = [&] { this->host.screen().End(); };
  this->host.inLoop([&] {
    this->frmA.cmdOK.Click = [&] {
      this->frmB.ShowModal(&this->frmA);
      this->journal.push_back("never");
    };
    this->frmA.cmdOK.userClick();
  });
  EXPECT_EQ(this->host.screen().run([&] { this->frmA.Show(); }), 0);
  EXPECT_THAT(this->journal, LinesAre({"frmA Load", "frmA Activate", "frmB Load", "frmB Activate"}));
}

TYPED_TEST_P(ToolkitContract, PumpingLetsTheUserIn) {
  this->frmA.cmdOK.Click = [&] { this->journal.push_back("Click"); };
  this->frmA.Show();
  this->host.whilePumping([&] { this->frmA.cmdOK.userClick(); });
  this->host.screen().DoEvents();
  EXPECT_THAT(this->journal, testing::Contains("Click"));
  this->frmA.Unload();
}

TYPED_TEST_P(ToolkitContract, ATimerTicksAtItsIntervalUntilItIsStopped) {
  this->frmA.tmrPoll.Tick = [&] { this->journal.push_back("Tick"); };
  this->frmA.Show();
  this->journal.clear();
  // Long enough that a busy machine is not late by as much.
  this->frmA.tmrPoll.Interval = 300;
  this->frmA.tmrPoll.Enabled = true;
  this->host.pass(50);
  EXPECT_THAT(this->journal, testing::ElementsAre());
  this->host.pass(800);
  EXPECT_GE(this->journal.size(), 2u);
  this->frmA.tmrPoll.Enabled = false;
  this->journal.clear();
  this->host.pass(400);
  EXPECT_THAT(this->journal, testing::ElementsAre());
  this->frmA.Unload();
}

TYPED_TEST_P(ToolkitContract, ThereIsRoomForWindows) {
  EXPECT_GE(this->host.screen().workArea().width, 9600);
  EXPECT_GE(this->host.screen().workArea().height, 7200);
}

REGISTER_TYPED_TEST_SUITE_P(ToolkitContract, AModalFormHoldsTheCallerUntilItGoesAway,
                            AHiddenFormEndsItsModalRunAndComesAgain, TheRunEndsWithTheLastShownForm,
                            EndLeavesEveryLoopAtOnce, PumpingLetsTheUserIn,
                            ATimerTicksAtItsIntervalUntilItIsStopped, ThereIsRoomForWindows);

}  // namespace varnhold::contract
