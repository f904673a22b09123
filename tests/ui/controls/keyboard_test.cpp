#include <gmock/gmock.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/controls/recording_form.h"
#include "ui/controls/check_box.h"
#include "ui/controls/containers.h"
#include "ui/controls/label.h"

namespace varnhold::ui {
namespace {

using testing::IsEmpty;

using Seen = std::vector<std::string>;

class KeysForm : public RecordingForm {
 public:
  KeysForm(fakes::ScriptedUi& ui, fakes::Journal& journal) : RecordingForm(ui, journal, "frmKeys") {
    adopt({{"lblAccount", lblAccount}, {"fraMore", fraMore}});
    adopt(fraMore, {{"txtAccount", txtAccount}, {"chkMore", chkMore}});
    cmdOK.Default = true;
    cmdCancel.Cancel = true;
    for (Control* control :
         {static_cast<Control*>(&txtName), static_cast<Control*>(&cmdOK), static_cast<Control*>(&cmdCancel),
          static_cast<Control*>(&txtAccount), static_cast<Control*>(&chkMore)}) {
      control->GotFocus = [this, control] { seen.push_back("+" + control->Name()); };
      control->LostFocus = [this, control] { seen.push_back("-" + control->Name()); };
    }
    cmdOK.Click = [this] { seen.push_back("OK"); };
    cmdCancel.Click = [this] { seen.push_back("Cancel"); };
    chkMore.Click = [this] { seen.push_back("more"); };
  }
  Label lblAccount{"&Account:"};
  Frame fraMore{"More"};
  TextBox txtAccount;
  CheckBox chkMore{"&More"};
  Seen seen;
};

class Keyboard : public UiTest {
 protected:
  Keyboard() {
    form.Show();
    form.seen.clear();
  }
  KeysForm form{ui, journal};
};

TEST_F(Keyboard, GivesTheFocusToTheFirstControlAfterTheActivation) {
  KeysForm other(ui, journal);
  bool activeAtActivation = true;
  other.onActivate = [&] { activeAtActivation = other.ActiveControl() != nullptr; };
  other.Show();
  EXPECT_FALSE(activeAtActivation);
  EXPECT_EQ(other.ActiveControl(), &other.txtName);
  EXPECT_THAT(other.seen, LinesAre({"+txtName"}));
}

TEST_F(Keyboard, LeavesTheFocusWhereTheActivationHasPutIt) {
  KeysForm other(ui, journal);
  other.onActivate = [&] { other.cmdOK.SetFocus(); };
  other.Show();
  EXPECT_EQ(other.ActiveControl(), &other.cmdOK);
  EXPECT_THAT(other.seen, LinesAre({"+cmdOK"}));
}

TEST_F(Keyboard, MovesTheFocusByCodeWithBothEvents) {
  form.cmdOK.SetFocus();
  form.cmdOK.SetFocus();
  EXPECT_THAT(form.seen, LinesAre({"-txtName", "+cmdOK"}));
}

TEST_F(Keyboard, MovesTheFocusBeforeTheUsersAct) {
  form.chkMore.userClick();
  EXPECT_THAT(form.seen, LinesAre({"-txtName", "+chkMore", "more"}));
}

TEST_F(Keyboard, DropsTheActWhenTheControlThatLostTheFocusDisabledTheOther) {
  form.txtName.LostFocus = [this] { form.cmdOK.Enabled = false; };
  form.cmdOK.userClick();
  EXPECT_THAT(form.seen, testing::Not(testing::Contains("OK")));
}

TEST_F(Keyboard, FollowsAHandlerThatSendsTheFocusElsewhere) {
  form.txtName.LostFocus = [this] { form.txtAccount.SetFocus(); };
  form.cmdOK.SetFocus();
  EXPECT_EQ(form.ActiveControl(), &form.txtAccount);
  EXPECT_THAT(form.seen, testing::Not(testing::Contains("+cmdOK")));
}

TEST_F(Keyboard, RefusesTheFocusToWhatCannotHaveIt) {
  form.cmdOK.Enabled = false;
  EXPECT_EQ(errorOf([&] { form.cmdOK.SetFocus(); }), 5);
  form.fraMore.Visible = false;
  EXPECT_EQ(errorOf([&] { form.txtAccount.SetFocus(); }), 5);
  EXPECT_EQ(errorOf([&] { form.lblAccount.SetFocus(); }), 5);
  KeysForm hidden(ui, journal);
  hidden.Load();
  EXPECT_EQ(errorOf([&] { hidden.cmdOK.SetFocus(); }), 5);
  EXPECT_EQ(form.ActiveControl(), &form.txtName);
}

TEST_F(Keyboard, HasNoActiveControlWhileThatIsDisabled) {
  form.txtName.Enabled = false;
  EXPECT_EQ(form.ActiveControl(), nullptr);
  form.cmdOK.SetFocus();
  EXPECT_THAT(form.seen, LinesAre({"+cmdOK"}));
}

TEST_F(Keyboard, PressesTheDefaultButtonByEnterAndLeavesTheFocus) {
  EXPECT_TRUE(form.usesKey(kKeyReturn, kNoModifier));
  form.userKeyDown(kKeyReturn);
  EXPECT_THAT(form.seen, LinesAre({"OK"}));
  EXPECT_EQ(form.ActiveControl(), &form.txtName);
}

TEST_F(Keyboard, PressesTheFocusedButtonByEnter) {
  form.cmdCancel.SetFocus();
  form.seen.clear();
  form.userKeyDown(kKeyReturn);
  EXPECT_THAT(form.seen, LinesAre({"Cancel"}));
}

TEST_F(Keyboard, PressesTheCancelButtonByEscape) {
  form.userKeyDown(kKeyEscape);
  EXPECT_THAT(form.seen, LinesAre({"Cancel"}));
}

TEST_F(Keyboard, LeavesEnterToTheFocusedControlWithoutADefaultButton) {
  form.cmdOK.Default = false;
  EXPECT_FALSE(form.usesKey(kKeyReturn, kNoModifier));
  form.cmdCancel.Enabled = false;
  EXPECT_FALSE(form.usesKey(kKeyEscape, kNoModifier));
  form.userKeyDown(kKeyReturn);
  form.userKeyDown(kKeyEscape);
  EXPECT_THAT(form.seen, IsEmpty());
}

TEST_F(Keyboard, ShowsTheFormEachKeyFirst) {
  journal.clear();
  form.userKeyDown(kKeyF1);
  EXPECT_THAT(journal, LinesAre({"frmKeys KeyDown 112"}));
  form.onKeyDown = [](int& key, int) { key = 0; };
  form.userKeyDown(kKeyReturn);
  EXPECT_THAT(form.seen, IsEmpty()) << "the form has used the key up";
}

TEST_F(Keyboard, AnswersAMnemonicAsItsControlDoes) {
  form.userMnemonic('m');
  EXPECT_EQ(form.chkMore.Value, 1);
  form.userMnemonic('O');
  EXPECT_THAT(form.seen, testing::Contains("OK"));
  form.seen.clear();
  form.userMnemonic('a');
  EXPECT_THAT(form.seen, LinesAre({"-cmdOK", "+txtAccount"})) << "a label speaks for the control behind it";
  form.seen.clear();
  form.userMnemonic('q');
  EXPECT_THAT(form.seen, IsEmpty());
}

TEST_F(Keyboard, MovesTheFocusAmongThoseThatShareAMnemonicAndPressesNone) {
  form.cmdCancel.Caption = "&More";
  for (const auto& seen :
       {Seen{"-txtName", "+cmdCancel"}, Seen{"-cmdCancel", "+chkMore"}, Seen{"-chkMore", "+cmdCancel"}}) {
    form.seen.clear();
    form.userMnemonic('m');
    EXPECT_EQ(form.seen, seen) << "the next in tab order, the first behind the last";
  }
  form.seen.clear();
  form.userKeyDown(kKeyReturn);
  EXPECT_THAT(form.seen, LinesAre({"Cancel"})) << "Enter presses the focused one";
}

TEST_F(Keyboard, PressesTheButtonThatALabelNamesByItsCaption) {
  form.cmdOK.Caption = "&Apply";
  form.userMnemonic('a');
  EXPECT_THAT(form.seen, LinesAre({"-txtName", "+cmdOK", "OK"}));
}

TEST_F(Keyboard, DoesNotCountWhomNobodyCanReachAmongThoseThatShareAMnemonic) {
  form.cmdCancel.Caption = "&More";
  form.fraMore.Enabled = false;
  form.userMnemonic('m');
  EXPECT_THAT(form.seen, LinesAre({"-txtName", "+cmdCancel", "Cancel"}));
}

TEST_F(Keyboard, TakesNoKeysUnderAModalForm) {
  RecordingForm modal(ui, journal, "frmModal");
  ui.nextModal("frmModal", [this](Form& other) {
    form.userKeyDown(kKeyReturn);
    form.userMnemonic('m');
    other.Unload();
  });
  modal.ShowModal(&form);
  EXPECT_THAT(form.seen, IsEmpty());
}

class FocusView : public ControlView {
 public:
  int focused = 0;
  void sync() override {}
  void takeFocus() override { ++focused; }
};

TEST_F(Keyboard, TellsTheViewToTakeTheFocus) {
  FocusView view;
  form.cmdOK.attach(view);
  form.cmdOK.SetFocus();
  form.cmdOK.userFocus();
  EXPECT_EQ(view.focused, 1);
}

TEST_F(Keyboard, BeginsAnewAfterAnUnload) {
  form.cmdOK.SetFocus();
  form.Unload();
  form.seen.clear();
  form.Show();
  EXPECT_THAT(form.seen, LinesAre({"+txtName"}));
}

}  // namespace
}  // namespace varnhold::ui
