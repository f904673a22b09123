// Controls without entries: what code sets is on the screen, and what a user does is in the control.
#include <wx/uiaction.h>

#include <cmath>

#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/stage.h"
#include "ui/controls/check_box.h"
#include "ui/controls/label.h"
#include "ui/controls/option_button.h"
#include "ui/controls/progress_bar.h"
#include "ui/wx/bind_check_box.h"
#include "ui/wx/bind_command_button.h"
#include "ui/wx/bind_containers.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/bind_option_button.h"
#include "ui/wx/bind_progress_bar.h"

namespace varnhold::ui::wx {
namespace {

using testing::ElementsAre;

wxWindow* makeLabel(wxWindow* parent, Label& label) {
  return bindLabel(parent, label);
}

class SimpleWidgets : public WxTest {};

TEST_F(SimpleWidgets, AButtonShowsItsCaptionAndItsClickArrivesFromTheEventLoop) {
  OneControlForm<CommandButton> form(screen, bindCommandButton, "&Login");
  form.control.Click = [&] { journal.push_back("Click"); };
  form.Show();
  auto& button = form.widget<wxButton>();
  EXPECT_EQ(button.GetLabel(), "&Login");
  form.control.Caption = "&Next >";
  EXPECT_EQ(button.GetLabel(), "&Next >");
  settle();

  sendCommand(button, wxEVT_BUTTON);
  EXPECT_THAT(journal, ElementsAre()) << "never inside the toolkit's own call";
  settle();
  EXPECT_THAT(journal, LinesAre({"Click"}));
  EXPECT_EQ(form.ActiveControl(), &form.control);
  form.Unload();
}

TEST_F(SimpleWidgets, EnabledVisibleAndToolTipAreTheWidgets) {
  OneControlForm<CommandButton> form(screen, bindCommandButton, "OK");
  form.control.Enabled = false;
  form.control.ToolTipText = "Ends it";
  form.Show();
  auto& button = form.widget<wxButton>();
  EXPECT_FALSE(button.IsEnabled());
  EXPECT_EQ(button.GetToolTipText(), "Ends it");
  form.control.Enabled = true;
  form.control.Visible = false;
  EXPECT_TRUE(button.IsEnabled());
  EXPECT_FALSE(button.IsShown());
  form.Unload();
}

TEST_F(SimpleWidgets, ACheckBoxShowsItsValueWithoutAnEventOfTheWidget) {
  OneControlForm<CheckBox> form(screen, bindCheckBox, "&Trust");
  form.control.Click = [&] { journal.push_back("Click"); };
  form.Show();
  form.control.Value = 1;
  EXPECT_TRUE(form.widget<wxCheckBox>().GetValue());
  settle();
  EXPECT_THAT(journal, LinesAre({"Click"})) << "the one that code set off";
  form.Unload();
}

TEST_F(SimpleWidgets, TickingABoxSetsItsValue) {
  OneControlForm<CheckBox> form(screen, bindCheckBox, "&Trust");
  form.control.Click = [&] { journal.push_back("Click"); };
  form.Show();
  auto& box = form.widget<wxCheckBox>();
  settle();
  box.SetValue(true);
  sendCommand(box, wxEVT_CHECKBOX, 1);
  settle();
  EXPECT_EQ(form.control.Value, 1);
  EXPECT_THAT(journal, LinesAre({"Click"}));
  form.Unload();
}

TEST_F(SimpleWidgets, ATickThatTheFormTakesBackIsTakenBackOnTheScreen) {
  OneControlForm<CheckBox> form(screen, bindCheckBox, "&Trust");
  form.control.Click = [&] { form.control.Value = 0; };
  form.Show();
  auto& box = form.widget<wxCheckBox>();
  settle();
  box.SetValue(true);
  sendCommand(box, wxEVT_CHECKBOX, 1);
  settle();
  EXPECT_FALSE(box.GetValue());
  form.Unload();
}

/// Two options in a frame and one outside.
class OptionForm : public Form {
 public:
  explicit OptionForm(Screen& screen) : Form(screen, "frmA") {
    adopt({{"freMode", freMode}, {"optAlone", optAlone}});
    adopt(freMode, {{"optFirst", optFirst}, {"optSecond", optSecond}});
    Stage::theOne().setView("frmA", [this](wxWindow& inside, Form&) {
      auto* sizer = new wxBoxSizer(wxVERTICAL);
      auto* frame = bindFrame(&inside, freMode);
      box = frame->GetStaticBox();
      frame->Add(first = dynamic_cast<wxRadioButton*>(bindOptionButton(box, optFirst)));
      frame->Add(second = dynamic_cast<wxRadioButton*>(bindOptionButton(box, optSecond)));
      sizer->Add(frame);
      sizer->Add(alone = dynamic_cast<wxRadioButton*>(bindOptionButton(&inside, optAlone)));
      inside.SetSizer(sizer);
    });
  }

  Frame freMode{"Mode"};
  OptionButton optFirst{"First"}, optSecond{"Second"}, optAlone{"Alone"};
  wxStaticBox* box = nullptr;
  wxRadioButton *first = nullptr, *second = nullptr, *alone = nullptr;
};

TEST_F(SimpleWidgets, OptionsAreChosenByGroupAndAGroupMayHaveNoChoice) {
  OptionForm form(screen);
  form.Show();
  EXPECT_EQ(form.box->GetLabel(), "Mode");
  EXPECT_FALSE(form.first->GetValue() || form.second->GetValue() || form.alone->GetValue());
  settle();
  form.optFirst.Value = true;
  form.optAlone.Value = true;
  EXPECT_TRUE(form.first->GetValue());
  EXPECT_TRUE(form.alone->GetValue());
  form.optSecond.Value = true;
  EXPECT_FALSE(form.first->GetValue());
  EXPECT_TRUE(form.second->GetValue());
  EXPECT_TRUE(form.alone->GetValue());
  form.optSecond.Value = false;
  EXPECT_FALSE(form.first->GetValue() || form.second->GetValue());
  form.Unload();
}

TEST_F(SimpleWidgets, ChoosingAnOptionClearsTheOtherAndRaisesClick) {
  OptionForm form(screen);
  form.optFirst.Value = true;
  form.optSecond.Click = [&] { journal.push_back("Click"); };
  form.Show();
  settle();
  form.second->SetValue(true);
  sendCommand(*form.second, wxEVT_RADIOBUTTON, 1);
  settle();
  EXPECT_TRUE(form.optSecond.Value);
  EXPECT_FALSE(form.optFirst.Value);
  EXPECT_THAT(journal, LinesAre({"Click"}));
  form.Unload();
}

TEST_F(SimpleWidgets, TheArrowKeysChooseAmongTheOptionsOfAGroupRoundFromEitherEnd) {
  OptionForm form(screen);
  form.optFirst.Value = true;
  form.optFirst.Click = [&] { journal.push_back("First"); };
  form.optSecond.Click = [&] { journal.push_back("Second"); };
  form.Show();
  settle();
  form.first->SetFocus();
  settle();
  wxUIActionSimulator user;
  for (const int key : {WXK_DOWN, WXK_DOWN, WXK_UP, WXK_LEFT, WXK_RIGHT}) {
    user.Char(key);
    settle();
  }
  EXPECT_TRUE(form.optSecond.Value);
  EXPECT_TRUE(form.second->HasFocus());
  EXPECT_FALSE(form.optAlone.Value);
  EXPECT_THAT(journal, LinesAre({"Second", "First", "Second", "First", "Second"}));
  form.Unload();
}

TEST_F(SimpleWidgets, ALinkCanBeReadOnItsGround) {
  OneControlForm<Label> form(screen, makeLabel, "Click here");
  form.Show();
  form.control.Link = true;
  settle();
  const auto& text = form.widget<wxStaticText>();
  const double contrast =
      std::abs(text.GetForegroundColour().GetLuminance() - text.GetBackgroundColour().GetLuminance());
  EXPECT_GE(contrast, 0.3);
  form.Unload();
}

TEST_F(SimpleWidgets, ADisabledFrameDisablesWhatStandsInIt) {
  OptionForm form(screen);
  form.Show();
  form.freMode.Enabled = false;
  EXPECT_FALSE(form.first->IsEnabled());
  EXPECT_TRUE(form.alone->IsEnabled());
  form.Unload();
}

TEST_F(SimpleWidgets, ALabelGrowsWithItsCaptionAndTheFormWithTheLabel) {
  OneControlForm<Label> form(screen, makeLabel, "short");
  form.Show();
  settle();
  const std::string longName(60, 'W');
  form.control.Caption = longName;
  settle();
  auto& text = form.widget<wxStaticText>();
  EXPECT_EQ(text.GetLabel(), longName);
  EXPECT_GE(text.GetSize().x, text.GetBestSize().x);
  const auto* window = stage.toolkit().windowOf(&form);
  EXPECT_GE(window->GetClientSize().x, text.GetBestSize().x);
  form.Unload();
}

TEST_F(SimpleWidgets, ALabelThatHearsTheMouseIsToldOfAPress) {
  OneControlForm<Label> form(screen, makeLabel, "Click here");
  form.control.Click = [&] { journal.push_back("Click"); };
  form.Show();
  settle();
  auto& ground = form.widget<wxPanel>();
  wxMouseEvent press(wxEVT_LEFT_DOWN);
  press.SetEventObject(&ground);
  ground.HandleWindowEvent(press);
  settle();
  EXPECT_THAT(journal, LinesAre({"Click"}));
  form.Unload();
}

TEST_F(SimpleWidgets, AProgressBarCountsFromItsLowestValue) {
  OneControlForm<ProgressBar> form(screen, bindProgressBar);
  form.control.Max = 60;
  form.control.Value = 15;
  form.control.Min = 10;
  form.Show();
  auto& gauge = form.widget<wxGauge>();
  EXPECT_EQ(gauge.GetRange(), 50);
  EXPECT_EQ(gauge.GetValue(), 5);
  form.control.Value = 60;
  EXPECT_EQ(gauge.GetValue(), 50);
  form.Unload();
}

TEST_F(SimpleWidgets, TheFocusComesAndGoesWithTheWidget) {
  OneControlForm<CommandButton> form(screen, bindCommandButton, "OK");
  form.control.GotFocus = [&] { journal.push_back("GotFocus"); };
  form.control.LostFocus = [&] { journal.push_back("LostFocus"); };
  form.Show();
  settle();
  EXPECT_EQ(form.ActiveControl(), &form.other);
  form.widget<wxButton>().SetFocus();
  EXPECT_TRUE(stage.waitFor([&] { return form.ActiveControl() == &form.control; }));
  form.other.SetFocus();
  settle();
  EXPECT_THAT(journal, LinesAre({"GotFocus", "LostFocus"}));
  EXPECT_FALSE(form.widget<wxButton>().HasFocus());
  form.Unload();
}

}  // namespace
}  // namespace varnhold::ui::wx
