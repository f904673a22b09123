#include "ui/controls/timer.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

#include "tests/ui/controls/recording_form.h"

namespace varnhold::ui {
namespace {

using testing::IsEmpty;

class TimerForm : public RecordingForm {
 public:
  TimerForm(fakes::ScriptedUi& ui, fakes::Journal& journal) : RecordingForm(ui, journal, "frmTimer") {
    adopt({{"tmrOne", tmrOne}, {"tmrTwo", tmrTwo}});
    tmrOne.Interval = 1000;
    tmrTwo.Interval = 400;
    tmrTwo.Enabled = false;
    tmrOne.Tick = [this] { ticks.push_back("one"); };
    tmrTwo.Tick = [this] { ticks.push_back("two"); };
  }
  Timer tmrOne, tmrTwo;
  std::vector<std::string> ticks;
};

class TimerTest : public UiTest {
 protected:
  TimerForm form{ui, journal};
};

TEST_F(TimerTest, TicksFromTheLoadOnWhetherTheFormIsShownOrNot) {
  ui.advance(5000);
  EXPECT_THAT(form.ticks, IsEmpty());
  form.Load();
  ui.advance(2500);
  EXPECT_THAT(form.ticks, LinesAre({"one", "one"}));
}

TEST_F(TimerTest, TicksWhileItIsEnabled) {
  form.Load();
  form.tmrTwo.Enabled = true;
  ui.advance(1000);
  EXPECT_THAT(form.ticks, LinesAre({"two", "two", "one"}));
  form.tmrTwo.Enabled = false;
  ui.advance(1000);
  EXPECT_THAT(form.ticks, LinesAre({"two", "two", "one", "one"}));
}

TEST_F(TimerTest, MayTurnItselfOffAndOnInItsTick) {
  form.Load();
  form.tmrOne.Tick = [this] {
    form.tmrOne.Enabled = false;
    form.ticks.push_back("one");
    if (form.ticks.size() < 2) form.tmrOne.Enabled = true;
  };
  ui.advance(9000);
  EXPECT_THAT(form.ticks, LinesAre({"one", "one"}));
}

TEST_F(TimerTest, BeginsANewIntervalWhenItIsSet) {
  form.Load();
  ui.advance(900);
  form.tmrOne.Interval = 500;
  ui.advance(499);
  EXPECT_THAT(form.ticks, IsEmpty());
  ui.advance(1);
  EXPECT_THAT(form.ticks, LinesAre({"one"}));
  form.tmrOne.Interval = 0;
  ui.advance(9000);
  EXPECT_EQ(form.ticks.size(), 1u);
}

TEST_F(TimerTest, StopsWhenTheFormIsUnloaded) {
  form.Load();
  form.tmrTwo.Enabled = true;
  form.Unload();
  EXPECT_EQ(ui.runningTimers(), 0u);
  ui.advance(5000);
  EXPECT_THAT(form.ticks, IsEmpty());
  form.Load();
  EXPECT_EQ(ui.runningTimers(), 1u) << "tmrTwo is disabled by design";
}

TEST_F(TimerTest, StopsWhenTheFormIsDestroyed) {
  {
    TimerForm local(ui, journal);
    local.Load();
    EXPECT_EQ(ui.runningTimers(), 1u);
  }
  EXPECT_EQ(ui.runningTimers(), 0u);
}

TEST_F(TimerTest, TicksUnderAModalForm) {
  form.Load();
  RecordingForm modal(ui, journal, "frmModal");
  ui.nextModal("frmModal", [this](Form& other) {
    ui.advance(1000);
    other.Unload();
  });
  modal.ShowModal();
  EXPECT_THAT(form.ticks, LinesAre({"one"}));
}

TEST_F(TimerTest, DropsATickThatWasUnderWayWhenItWasTurnedOff) {
  form.Load();
  form.tmrOne.Enabled = false;
  form.tmrOne.timeElapsed();
  EXPECT_THAT(form.ticks, IsEmpty());
}

TEST_F(TimerTest, EndsTheProgramOnARunTimeErrorInItsTick) {
  ui.endsByRunTimeError = true;
  form.Load();
  form.tmrOne.Tick = [] { throw RuntimeError(5, "Invalid."); };
  ui.advance(3000);
  EXPECT_THAT(fakes::linesOf(journal, "MessageBox"),
              LinesAre({"MessageBox critical: Run-time error '5':<CR><LF><CR><LF>Invalid."}));
  EXPECT_TRUE(ui.screen.hasEnded());
}

}  // namespace
}  // namespace varnhold::ui
