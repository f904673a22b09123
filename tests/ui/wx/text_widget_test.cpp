// Text boxes on a screen.
#include <wx/uiaction.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/stage.h"
#include "ui/controls/text_box.h"
#include "ui/wx/bind_text_box.h"

namespace varnhold::ui::wx {
namespace {

class TextWidget : public WxTest {
 protected:
  OneControlForm<TextBox> form{screen, bindTextBox};
  TextBox& box = form.control;

  wxTextCtrl& shown() {
    form.Show();
    settle();
    return form.widget<wxTextCtrl>();
  }
  void recordChanges() {
    box.Change = [this] { journal.push_back("Change " + box.Text); };
  }
  ~TextWidget() override { form.Unload(); }
};

TEST_F(TextWidget, ShowsTheTextAndItsSelection) {
  box.Text = "ATLAS";
  auto& widget = shown();
  EXPECT_EQ(widget.GetValue(), "ATLAS");
  box.Text = "10.1.1.11";
  box.SelectAll();
  EXPECT_EQ(widget.GetValue(), "10.1.1.11");
  EXPECT_EQ(widget.GetStringSelection(), "10.1.1.11");
}

TEST_F(TextWidget, SettingTheTextRaisesOneChangeAndTheWidgetNone) {
  auto& widget = shown();
  recordChanges();
  box.Text = "set";
  settle();
  EXPECT_THAT(journal, LinesAre({"Change set"}));
  EXPECT_EQ(widget.GetValue(), "set");
}

TEST_F(TextWidget, WhatIsEditedArrives) {
  auto& widget = shown();
  recordChanges();
  widget.SetFocus();
  widget.WriteText(wxString::FromUTF8("HOST\u00fc"));
  settle();
  EXPECT_EQ(box.Text, "HOST\u00fc");
  EXPECT_THAT(journal, LinesAre({"Change HOST\u00fc"}));
  EXPECT_EQ(box.SelStart, 5);
}

TEST_F(TextWidget, ALockedBoxCantBeEditedButSet) {
  box.Locked = true;
  auto& widget = shown();
  EXPECT_FALSE(widget.IsEditable());
  box.Text = "set by code";
  EXPECT_EQ(widget.GetValue(), "set by code");
}

TEST_F(TextWidget, APasswordIsHiddenAndSeveralLinesHaveBothLineEnds) {
  box.PasswordChar = "*";
  EXPECT_TRUE(shown().HasFlag(wxTE_PASSWORD));
  form.Unload();
  box.PasswordChar = "";
}

TEST_F(TextWidget, LinesEndAsOnTheProductsPlatform) {
  box.MultiLine = true;
  box.Text = "one\r\ntwo";
  auto& widget = shown();
  EXPECT_EQ(widget.GetNumberOfLines(), 2);
  widget.SetFocus();
  widget.AppendText("\nthree");
  settle();
  EXPECT_EQ(box.Text, "one\r\ntwo\r\nthree");
}

TEST_F(TextWidget, TheFormMayDropAndChangeCharactersAsTheyAreTyped) {
  box.KeyPress = [](int& key) {
    if (key >= 'a' && key <= 'z') key -= 'a' - 'A';
    if (key == '*') key = 0;
  };
  auto& widget = shown();
  box.SetFocus();
  settle();
  wxUIActionSimulator hands;
  hands.Text("ab");
  hands.Char('*', wxMOD_SHIFT);
  hands.Text("1");
  EXPECT_TRUE(stage.waitFor([&] { return box.Text == "AB1"; })) << box.Text.get();
  EXPECT_EQ(widget.GetValue(), "AB1");
  hands.Char(WXK_BACK);
  EXPECT_TRUE(stage.waitFor([&] { return box.Text == "AB"; })) << box.Text.get();
}

TEST_F(TextWidget, TypingReachesABoxThatLeavesItToTheWidget) {
  auto& widget = shown();
  box.SetFocus();
  settle();
  wxUIActionSimulator hands;
  hands.Text("host1");
  EXPECT_TRUE(stage.waitFor([&] { return box.Text == "host1"; })) << box.Text.get();
  EXPECT_EQ(widget.GetValue(), "host1");
}

}  // namespace
}  // namespace varnhold::ui::wx
