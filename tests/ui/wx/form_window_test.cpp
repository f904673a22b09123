// A form's window: size, state, keys, boxes.
#include <wx/uiaction.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/stage.h"
#include "ui/controls/timer.h"
#include "ui/wx/layout.h"
#include "ui/wx/twips.h"

namespace varnhold::ui::wx {
namespace {

using testing::ElementsAre;

/// A form with two buttons that writes down what happens to it.
class KeyForm : public Form {
 public:
  KeyForm(Screen& screen, fakes::Journal& journal) : Form(screen, "frmA"), journal_(journal) {
    BorderStyle = BorderStyle::Sizable;
    Caption = "Keys ";
    cmdOK.Default = true;
    cmdCancel.Cancel = true;
    adopt({{"cmdHelp", cmdHelp}, {"cmdOK", cmdOK}, {"cmdCancel", cmdCancel}});
    cmdOK.Click = [this] { journal_.push_back("OK"); };
    cmdCancel.Click = [this] { journal_.push_back("Cancel"); };
    cmdHelp.Click = [this] { journal_.push_back("Help"); };
    Stage::theOne().setView("frmA", [this](wxWindow& inside, Form&) {
      auto* sizer = new wxBoxSizer(wxVERTICAL);
      sizer->Add(bindCommandButton(&inside, cmdCancel));
      sizer->Add(bindCommandButton(&inside, cmdOK));
      sizer->Add(bindCommandButton(&inside, cmdHelp));
      inside.SetSizer(sizer);
    });
  }

  CommandButton cmdHelp{"&Help"}, cmdOK{"OK"}, cmdCancel{"Cancel"};

 protected:
  void Form_Resize() override {
    journal_.push_back("Resize " + std::to_string(Width) + " " + std::to_string(Height));
  }
  void Form_KeyDown(int& key, int) override { journal_.push_back("KeyDown " + std::to_string(key)); }
  void Form_QueryUnload(int&, UnloadMode mode) override {
    journal_.push_back("QueryUnload " + std::to_string(static_cast<int>(mode)));
  }

 private:
  fakes::Journal& journal_;
};

class FormWindows : public WxTest {
 protected:
  KeyForm form{screen, journal};

  wxTopLevelWindow& shown() {
    form.Show();
    stage.waitFor([&] { return window().IsActive(); });
    settle();
    journal.clear();
    return window();
  }
  wxTopLevelWindow& window() { return dynamic_cast<wxTopLevelWindow&>(*stage.toolkit().windowOf(&form)); }
  static void press(int key, int modifiers = 0) { wxUIActionSimulator().Char(key, modifiers); }
  ~FormWindows() override { form.Unload(); }
};

TEST_F(FormWindows, TheTitleKeepsItsBlanks) {
  EXPECT_EQ(shown().GetTitle(), "Keys ");
  form.Caption = "Other ";
  EXPECT_EQ(window().GetTitle(), "Other ");
}

TEST_F(FormWindows, TheSizeIsTheFormsInTwips) {
  // GTK takes the frame of a window for that of the last one before it, which may have had no handles.
  shown();
  form.Unload();
  KeyForm sized{screen, journal};
  sized.Width = 6000;
  sized.Height = 4500;
  sized.Show();
  settle();
  const auto& frame = *stage.toolkit().windowOf(&sized);
  EXPECT_EQ(frame.GetSize(), frame.FromDIP(wxSize(400, 300)));
  sized.Width = 7500;
  settle();
  EXPECT_EQ(frame.GetSize(), frame.FromDIP(wxSize(500, 300)));
  sized.Unload();
}

TEST_F(FormWindows, AUsersSizeArrivesInTwips) {
  form.Width = 6000;
  form.Height = 4500;
  auto& frame = shown();
  frame.SetSize(frame.FromDIP(wxSize(480, 320)));
  settle();
  EXPECT_EQ(form.Width, 7200);
  EXPECT_EQ(form.Height, 4800);
  EXPECT_THAT(journal, testing::Contains("Resize 7200 4800").Times(1));
}

TEST_F(FormWindows, ALayoutThatIsDueWhenTheFormGoesReachesNobody) {
  auto& frame = shown();
  form.cmdHelp.Visible = false;
  form.Unload();
  EXPECT_FALSE(frame.GetEvtHandlerEnabled());
  settle();
  EXPECT_THAT(journal, testing::Not(testing::Contains(testing::StartsWith("Resize"))));
}

TEST_F(FormWindows, MaximisedAndBackIsTold) {
  shown().Maximize();
  EXPECT_TRUE(stage.waitFor([&] { return form.WindowState == WindowState::Maximized; }));
  form.WindowState = WindowState::Normal;
  EXPECT_TRUE(stage.waitFor([&] { return !window().IsMaximized(); }));
}

TEST_F(FormWindows, ClosingByTheFrameAsksTheForm) {
  shown().Close();
  EXPECT_TRUE(form.Visible()) << "never inside the toolkit's own call";
  settle();
  EXPECT_THAT(journal, LinesAre({"QueryUnload 0"}));
  EXPECT_FALSE(form.isLoaded());
}

TEST_F(FormWindows, EscapePressesTheCancellingButtonAndEnterTheFocusedOne) {
  shown();
  press(WXK_ESCAPE);
  settle();
  EXPECT_THAT(journal, LinesAre({"KeyDown 27", "Cancel"}));
  journal.clear();
  press(WXK_RETURN);
  settle();
  // Where the host presses the button by itself, the form does not hear of the key.
  EXPECT_EQ(journal.back(), "Help") << "the first in tab order has the focus";
}

TEST_F(FormWindows, TabGoesInTheOrderInWhichTheFormTookItsControls) {
  shown();
  press(WXK_TAB);
  EXPECT_TRUE(stage.waitFor([&] { return form.ActiveControl() == &form.cmdOK; }));
  press(WXK_TAB);
  EXPECT_TRUE(stage.waitFor([&] { return form.ActiveControl() == &form.cmdCancel; }));
}

TEST_F(FormWindows, AMnemonicPressesItsButton) {
  shown();
  press('H', wxMOD_ALT);
  EXPECT_TRUE(stage.waitFor([&] { return !journal.empty(); }));
  settle();
  EXPECT_THAT(journal, LinesAre({"Help"}));
}

TEST_F(FormWindows, AKeyOfNobodyReachesTheForm) {
  shown();
  press(WXK_F1);
  settle();
  EXPECT_THAT(journal, LinesAre({"KeyDown 112"}));
}

TEST_F(FormWindows, AMessageBoxWaitsForItsButtonAndNothingActivatesBehindIt) {
  shown();
  wxTimer later;
  later.Bind(wxEVT_TIMER, [](wxTimerEvent&) { press(WXK_RETURN); });
  later.StartOnce(500);
  const auto answer = screen.MsgBox({.text = "Delete?\r\nReally?",
                                     .icon = BoxIcon::Question,
                                     .buttons = BoxButtons::YesNo,
                                     .preset = Answer::No});
  EXPECT_EQ(answer, Answer::No);
  EXPECT_THAT(journal, ElementsAre());
}

TEST_F(FormWindows, AHandlerThatPumpsIsStoppedByAClick) {
  bool stopped = false;
  form.cmdCancel.Click = [&] { stopped = true; };
  form.cmdOK.Click = [&] {
    for (int round = 0; round < 400 && !stopped; ++round) {
      screen.DoEvents();
      wxMilliSleep(5);
    }
  };
  auto& frame = shown();
  auto* ok = wxWindow::FindWindowByLabel("OK", &frame);
  auto* cancel = wxWindow::FindWindowByLabel("Cancel", &frame);
  wxTimer later;
  later.Bind(wxEVT_TIMER, [&](wxTimerEvent&) { sendCommand(*cancel, wxEVT_BUTTON); });
  later.StartOnce(50);
  sendCommand(*ok, wxEVT_BUTTON);
  settle();
  EXPECT_TRUE(stopped);
}

TEST_F(FormWindows, RefreshPaintsAndLetsNoActThrough) {
  auto& frame = shown();
  auto* ok = wxWindow::FindWindowByLabel("OK", &frame);
  bool painted = false;
  ok->GetParent()->Bind(wxEVT_PAINT, [&](wxPaintEvent& event) {
    painted = true;
    event.Skip();
  });
  sendCommand(*ok, wxEVT_BUTTON);
  form.Refresh();
  EXPECT_TRUE(painted);
  EXPECT_THAT(journal, ElementsAre());
  settle();
  EXPECT_THAT(journal, LinesAre({"OK"}));
}

TEST_F(FormWindows, LeaveAloneWhatWasCoveredOnceItIsGone) {
  auto* frame = new wxFrame(nullptr, wxID_ANY, "Covers");
  auto* below = new wxPanel(frame);
  auto* above = new wxPanel(frame);
  coverWhileShown(*below, *above);
  EXPECT_FALSE(below->IsShown());
  above->Hide();
  EXPECT_TRUE(below->IsShown());
  below->Destroy();
  above->Show();
  EXPECT_TRUE(above->IsShown());
  settle();
  frame->Destroy();
}

}  // namespace
}  // namespace varnhold::ui::wx
