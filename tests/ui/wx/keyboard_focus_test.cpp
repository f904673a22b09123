// Where the keyboard goes when the widget that had it goes dark or away: it is never left without a hearer.
#include <wx/uiaction.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/stage.h"
#include "ui/controls/containers.h"
#include "ui/wx/bind_containers.h"

namespace varnhold::ui::wx {
namespace {

class ButtonsForm : public Form {
 public:
  ButtonsForm(Screen& screen, fakes::Journal& journal, const char* name)
      : Form(screen, name), journal_(journal) {
    adopt({{"cmdGo", cmdGo}, {"fraMore", fraMore}});
    adopt(fraMore, {{"cmdMore", cmdMore}});
    adopt({{"cmdCancel", cmdCancel}});
    Stage::theOne().setView(name, [this](wxWindow& inside, Form&) {
      auto* frame = bindPlainFrame(&inside, fraMore);
      auto* framed = new wxBoxSizer(wxVERTICAL);
      framed->Add(bindCommandButton(frame, cmdMore));
      frame->SetSizer(framed);
      auto* sizer = new wxBoxSizer(wxVERTICAL);
      sizer->Add(bindCommandButton(&inside, cmdGo));
      sizer->Add(frame);
      sizer->Add(bindCommandButton(&inside, cmdCancel));
      inside.SetSizer(sizer);
    });
  }

  CommandButton cmdGo{"Go"}, cmdMore{"More"}, cmdCancel{"Cancel"};
  Frame fraMore;

 protected:
  void Form_KeyDown(int& key, int) override { journal_.push_back("key " + std::to_string(key)); }

 private:
  fakes::Journal& journal_;
};

class KeyboardFocus : public WxTest {
 protected:
  void SetUp() override {
    form.Show();
    waitForWindowOf(form);
  }
  void TearDown() override { form.Unload(); }

  void waitForWindowOf(Form& shown) {
    stage.waitFor(
        [&] { return dynamic_cast<wxTopLevelWindow&>(*stage.toolkit().windowOf(&shown)).IsActive(); });
    settle();
  }
  void focus(Control& control) {
    control.SetFocus();
    settle();
  }
  void expectKeysAreHeard() {
    journal.clear();
    wxUIActionSimulator().Char(WXK_F1);
    settle();
    EXPECT_THAT(journal, LinesAre({"key " + std::to_string(kKeyF1)}));
  }

  ButtonsForm form{screen, journal, "frmA"};
};

TEST_F(KeyboardFocus, GoesToTheNextInTabOrderFromWhatGoesDark) {
  form.cmdGo.Enabled = false;
  settle();
  EXPECT_EQ(form.ActiveControl(), &form.cmdMore);
  expectKeysAreHeard();
}

TEST_F(KeyboardFocus, GoesToTheNextInTabOrderFromWhatGoesAway) {
  form.cmdGo.Visible = false;
  settle();
  EXPECT_EQ(form.ActiveControl(), &form.cmdMore);
  expectKeysAreHeard();
}

TEST_F(KeyboardFocus, GoesToTheFirstFromTheLastThatGoesDark) {
  focus(form.cmdCancel);
  form.cmdCancel.Enabled = false;
  settle();
  EXPECT_EQ(form.ActiveControl(), &form.cmdGo);
  expectKeysAreHeard();
}

TEST_F(KeyboardFocus, LeavesAFrameThatGoesDarkOrAway) {
  for (auto* value : {&form.fraMore.Enabled, &form.fraMore.Visible}) {
    focus(form.cmdMore);
    *value = false;
    settle();
    EXPECT_EQ(form.ActiveControl(), &form.cmdCancel);
    expectKeysAreHeard();
    *value = true;
    settle();
  }
}

TEST_F(KeyboardFocus, IsNotLostWithWhatIsDarkForAMoment) {
  form.cmdGo.Enabled = false;
  form.cmdGo.Enabled = true;
  settle();
  EXPECT_NE(form.ActiveControl(), nullptr);
  expectKeysAreHeard();
}

TEST_F(KeyboardFocus, ReturnsToWhatWasDarkWhenNothingElseCouldHaveIt) {
  focus(form.cmdCancel);
  form.cmdGo.Enabled = form.cmdMore.Enabled = form.cmdCancel.Enabled = false;
  settle();
  EXPECT_EQ(form.ActiveControl(), nullptr);
  form.cmdCancel.Enabled = true;
  settle();
  EXPECT_EQ(form.ActiveControl(), &form.cmdCancel);
  expectKeysAreHeard();
}

TEST_F(KeyboardFocus, GoesWhereTheFormSendsItWhenItsPlaceGoesDark) {
  form.cmdGo.Enabled = false;
  form.cmdCancel.SetFocus();
  settle();
  EXPECT_EQ(form.ActiveControl(), &form.cmdCancel);
  expectKeysAreHeard();
}

TEST_F(KeyboardFocus, IsFoundANewPlaceWhenTheFormComesOutFromUnderAModalOne) {
  ButtonsForm modal(screen, journal, "frmB");
  wxTimer later;
  later.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
    waitForWindowOf(modal);
    form.cmdGo.Enabled = false;
    settle();
    EXPECT_EQ(form.ActiveControl(), nullptr) << "nobody can reach the form now";
    modal.Unload();
  });
  later.StartOnce(50);
  modal.ShowModal(&form);
  waitForWindowOf(form);
  EXPECT_NE(form.ActiveControl(), nullptr);
  expectKeysAreHeard();
}

}  // namespace
}  // namespace varnhold::ui::wx
