#include "ui/controls/screen.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "tests/ui/controls/recording_form.h"

namespace varnhold::ui {
namespace {

using testing::IsEmpty;

constexpr const char* kReported =
    "MessageBox critical: Run-time error '3265':<CR><LF><CR><LF>No such column: Port.";

void fail() {
  throw RuntimeError(kItemNotFound, "No such column: Port.");
}

class ScreenTest : public UiTest {
 protected:
  RecordingForm frmMain{ui, journal, "frmMain"};
  RecordingForm frmA{ui, journal, "frmA"};

  void showMain() {
    frmMain.Show();
    journal.clear();
  }
};

TEST_F(ScreenTest, ShowsMessageBoxesWithTheApplicationTitle) {
  ui.screen.messageBox("Could not retrieve members.", platform::MessageIcon::Exclamation);
  ui.screen.messageBox("Broken.", platform::MessageIcon::Critical);
  ui.screen.MsgBox({.text = "There are no groups that can be edited."});
  ui.screen.MsgBox(
      {.text = "Could not start Notepad.exe.", .icon = BoxIcon::Critical, .title = "Traffic Analyzer"});
  ui.screen.systemModalBox("Aborting...", platform::MessageIcon::Critical);
  EXPECT_THAT(journal,
              LinesAre({"MessageBox exclamation: Could not retrieve members.", "MessageBox critical: Broken.",
                        "MessageBox plain: There are no groups that can be edited.",
                        "MessageBox critical \"Traffic Analyzer\": Could not start Notepad.exe.",
                        "MessageBox critical system modal: Aborting..."}));
}

TEST_F(ScreenTest, AsksQuestions) {
  ui.nextAnswer(Answer::No);
  ui.nextAnswer(Answer::Yes);
  const MessageBox question{.text = "Sure?", .icon = BoxIcon::Question, .buttons = BoxButtons::YesNo};
  EXPECT_EQ(ui.screen.MsgBox(question), Answer::No);
  EXPECT_EQ(ui.screen.MsgBox(question), Answer::Yes);
  EXPECT_THAT(journal, LinesAre({"MessageBox question: Sure? -> No", "MessageBox question: Sure? -> Yes"}));
}

TEST_F(ScreenTest, AsksForALineOfText) {
  ui.nextInput("ATLAS");
  ui.nextInput("");
  EXPECT_EQ(ui.screen.InputBox("Enter Computer name or IP address:"), "ATLAS");
  EXPECT_EQ(ui.screen.InputBox("Again:"), "");
  EXPECT_THAT(journal,
              LinesAre({"InputBox Enter Computer name or IP address: -> ATLAS", "InputBox Again: -> "}));
}

TEST_F(ScreenTest, AsksForAFileAndKeepsTheNameWhenTheUserCancels) {
  FileDialog dialog{"Select Config File", "Varnhold Agent Config Files (*.ini)", "*.ini"};
  ui.nextFile(std::nullopt);
  EXPECT_FALSE(ui.screen.ShowOpen(dialog));
  EXPECT_EQ(dialog.FileName, "*.ini");
  ui.nextFile(R"(C:\vhaconfig.ini)");
  EXPECT_TRUE(ui.screen.ShowOpen(dialog));
  EXPECT_EQ(dialog.FileName, R"(C:\vhaconfig.ini)");
  EXPECT_THAT(
      journal,
      LinesAre(
          {"OpenFile Select Config File|Varnhold Agent Config Files (*.ini)|*.ini -> cancelled",
           R"(OpenFile Select Config File|Varnhold Agent Config Files (*.ini)|*.ini -> C:\vhaconfig.ini)"}));
}

TEST_F(ScreenTest, SetsThePointerOfTheWholeProgram) {
  ui.screen.MousePointer = Pointer::Hourglass;
  ui.screen.MousePointer = Pointer::Hourglass;
  ui.screen.MousePointer = Pointer::Default;
  frmMain.MousePointer = Pointer::Hourglass;
  EXPECT_THAT(journal, LinesAre({"Pointer 11", "Pointer 0"}));
}

TEST_F(ScreenTest, RunsOtherHandlersWhileItPumpsEvents) {
  showMain();
  frmMain.cmdCancel.Click = [this] { journal.push_back("stop"); };
  frmMain.cmdOK.Click = [this] {
    ui.screen.DoEvents();
    journal.push_back("done");
  };
  ui.onPump = [this] { frmMain.cmdCancel.userClick(); };
  frmMain.cmdOK.userClick();
  EXPECT_THAT(journal, LinesAre({"stop", "done"}));
}

TEST_F(ScreenTest, TellsTheWorkArea) {
  ui.area = {9000, 6000};
  EXPECT_EQ(ui.screen.workArea().width, 9000);
  EXPECT_EQ(ui.screen.workArea().height, 6000);
}

TEST_F(ScreenTest, ShowsARunTimeErrorThatLeavesAHandlerAndEndsTheProgram) {
  ui.endsByRunTimeError = true;
  showMain();
  frmMain.cmdOK.Click = fail;
  frmMain.cmdOK.userClick();
  EXPECT_THAT(journal, LinesAre({kReported}));
  EXPECT_TRUE(ui.screen.hasEnded());
}

TEST_F(ScreenTest, ShowsAnyOtherExceptionAsError51) {
  ui.endsByRunTimeError = true;
  showMain();
  frmMain.cmdOK.Click = [] { throw std::out_of_range("vector"); };
  frmMain.cmdOK.userClick();
  EXPECT_THAT(journal, LinesAre({"MessageBox critical: Run-time error '51':<CR><LF><CR><LF>vector"}));
  EXPECT_TRUE(ui.screen.hasEnded());
}

TEST_F(ScreenTest, LeavesAnErrorToAHandlerThatHasOneOfItsOwn) {
  showMain();
  frmMain.cmdOK.Click = [this] {
    ResumeNext guarded;
    guarded.step(fail);
    journal.push_back("went on");
  };
  frmMain.cmdOK.userClick();
  EXPECT_THAT(journal, LinesAre({"went on"}));
  EXPECT_FALSE(ui.screen.hasEnded());
}

TEST_F(ScreenTest, EndsTheProgramThoughTheCallerOfTheEventHasAHandler) {
  ui.endsByRunTimeError = true;
  showMain();
  frmMain.txtName.Change = fail;
  frmMain.cmdOK.Click = [this] {
    ResumeNext guarded;
    guarded.step([this] { frmMain.txtName.Text = "sets the event off"; });
    journal.push_back("never reached");
  };
  frmMain.cmdOK.userClick();
  EXPECT_THAT(journal, LinesAre({kReported}));
  EXPECT_TRUE(ui.screen.hasEnded());
}

TEST_F(ScreenTest, LetsTheCallerHandleTheErrorOfAMethodThatItCalls) {
  showMain();
  const auto method = [] { fail(); };
  frmMain.cmdOK.Click = [&] {
    try {
      method();
    } catch (const RuntimeError& error) {
      ui.screen.messageBox(error.description(), platform::MessageIcon::Critical);
    }
  };
  frmMain.cmdOK.userClick();
  EXPECT_THAT(journal, LinesAre({"MessageBox critical: No such column: Port."}));
  EXPECT_FALSE(ui.screen.hasEnded());
}

TEST_F(ScreenTest, UnwindsTheHandlersUnderAModalFormWhenAnErrorEndsTheProgram) {
  ui.endsByRunTimeError = true;
  showMain();
  frmA.cmdOK.Click = fail;
  frmMain.cmdOK.Click = [this] {
    frmA.ShowModal(&frmMain);
    journal.push_back("never reached");
  };
  ui.nextModal("frmA", [this](Form&) {
    frmA.cmdOK.userClick();
    frmA.cmdOK.userClick();
  });
  journal.clear();
  frmMain.cmdOK.userClick();
  EXPECT_THAT(fakes::linesWithout(journal, {"frmA", "Show"}), LinesAre({kReported}));
}

TEST_F(ScreenTest, UnwindsAHandlerThatPumpsEventsWhenAnErrorEndsTheProgram) {
  ui.endsByRunTimeError = true;
  showMain();
  frmMain.cmdCancel.Click = fail;
  frmMain.cmdOK.Click = [this] {
    ui.screen.DoEvents();
    journal.push_back("never reached");
  };
  ui.onPump = [this] { frmMain.cmdCancel.userClick(); };
  frmMain.cmdOK.userClick();
  EXPECT_THAT(journal, LinesAre({kReported}));
}

TEST_F(ScreenTest, EndsTheProgramOnAnErrorInEachEventOfAFormsLife) {
  for (const auto* event : {"Load", "Activate", "QueryUnload", "Unload"}) {
    fakes::Journal own;
    fakes::ScriptedUi other(own);
    other.endsByRunTimeError = true;
    RecordingForm form(other, own, "frmX");
    const std::string name = event;
    if (name == "Load") form.onLoad = fail;
    if (name == "Activate") form.onActivate = fail;
    if (name == "QueryUnload") form.onQueryUnload = [](int&, UnloadMode) { fail(); };
    if (name == "Unload") form.onUnload = fail;
    other.screen.dispatch([&] {
      form.Show();
      form.Unload();
      own.push_back("never reached");
    });
    EXPECT_EQ(own.back(), kReported) << event;
    EXPECT_TRUE(other.screen.hasEnded()) << event;
  }
}

TEST_F(ScreenTest, RunsNothingMoreOnceTheProgramHasEnded) {
  ui.endsByRunTimeError = true;
  showMain();
  frmMain.cmdOK.Click = fail;
  frmMain.cmdCancel.Click = [this] { journal.push_back("never reached"); };
  frmMain.cmdOK.userClick();
  journal.clear();
  frmMain.cmdCancel.userClick();
  frmMain.userClose();
  frmMain.userKeyDown(kKeyF1);
  ui.screen.dispatch([this] { journal.push_back("never reached"); });
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(ScreenTest, EndsAtOnceAndWithoutAnEventWhenCodeSaysSo) {
  showMain();
  frmMain.cmdOK.Click = [this] {
    ResumeNext guarded;
    guarded.step([this] { ui.screen.End(); });
    journal.push_back("never reached");
  };
  frmMain.cmdOK.userClick();
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_TRUE(ui.screen.hasEnded());
}

TEST_F(ScreenTest, RunsUntilTheLastFormIsUnloaded) {
  ui.onLoop = [this] {
    journal.push_back("loop");
    frmMain.userClose();
  };
  EXPECT_EQ(ui.screen.run([this] { frmMain.Show(); }), 0);
  EXPECT_THAT(fakes::linesWithout(journal, {"frmMain"}), LinesAre({"Show frmMain", "loop", "Close frmMain"}));
}

TEST_F(ScreenTest, RunsNoLoopWhenTheStartLeavesNoFormShown) {
  ui.onLoop = [this] { journal.push_back("loop"); };
  EXPECT_EQ(ui.screen.run([this] { frmMain.Load(); }), 0);
  EXPECT_THAT(journal, LinesAre({"frmMain Load"}));
}

TEST_F(ScreenTest, LetsTheStartShowAndUnloadFormsBeforeTheFirstThatStays) {
  ui.onLoop = [this] { frmMain.userClose(); };
  ui.nextModal("frmA", [](Form& form) { form.Unload(); });
  EXPECT_EQ(ui.screen.run([this] {
    frmA.Show();
    frmA.Unload();
    frmA.ShowModal();
    frmMain.Show();
  }),
            0);
  EXPECT_THAT(fakes::linesOf(journal, "Show"), LinesAre({"Show frmA", "Show modal frmA", "Show frmMain"}));
}

TEST_F(ScreenTest, LeavesHiddenFormsWithoutAnEventWhenTheProgramEnds) {
  ui.onLoop = [this] { frmMain.userClose(); };
  ui.screen.run([this] {
    frmA.Load();
    frmMain.Show();
  });
  EXPECT_THAT(fakes::linesOf(journal, "frmA"), LinesAre({"frmA Load"}));
}

TEST_F(ScreenTest, GivesExitStatusOneWhenARunTimeErrorEndedTheRun) {
  ui.endsByRunTimeError = true;
  EXPECT_EQ(ui.screen.run(fail), 1);
  EXPECT_THAT(journal, LinesAre({kReported}));
}

TEST_F(ScreenTest, GivesExitStatusZeroWhenCodeEndedTheRun) {
  ui.onLoop = [this] { ui.screen.dispatch([this] { ui.screen.End(); }); };
  EXPECT_EQ(ui.screen.run([this] { frmMain.Show(); }), 0);
  EXPECT_FALSE(frmMain.Visible());
  EXPECT_EQ(fakes::linesOf(journal, "frmMain Unload"), fakes::Journal());
}

}  // namespace
}  // namespace varnhold::ui
