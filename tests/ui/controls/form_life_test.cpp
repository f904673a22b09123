#include <gmock/gmock.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/controls/recording_form.h"
#include "ui/controls/list_view.h"

namespace varnhold::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FormLife : public UiTest {
 protected:
  RecordingForm frmMain{ui, journal, "frmMain"};
  RecordingForm frmA{ui, journal, "frmA"};
  RecordingForm frmB{ui, journal, "frmB"};

  /// Shows frmMain and forgets what that wrote.
  void showMain() {
    frmMain.Show();
    journal.clear();
  }
};

TEST_F(FormLife, LoadsOnce) {
  frmA.Load();
  frmA.Load();
  EXPECT_TRUE(frmA.isLoaded());
  EXPECT_FALSE(frmA.Visible());
  EXPECT_THAT(journal, LinesAre({"frmA Load"}));
}

TEST_F(FormLife, LoadsShowsAndActivatesInThatOrder) {
  frmA.Show();
  EXPECT_THAT(journal, LinesAre({"frmA Load", "Show frmA", "frmA Resize", "frmA Activate"}));
  EXPECT_TRUE(frmA.Visible());
  EXPECT_EQ(ui.screen.ActiveForm(), &frmA);
}

TEST_F(FormLife, DoesNotActivateAFormThatIsShownAgainOnTop) {
  frmA.Show();
  journal.clear();
  frmA.Show();
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FormLife, ActivatesAFormThatComesToTheFrontAgain) {
  frmA.Show();
  frmB.Show();
  journal.clear();
  frmA.Show();
  EXPECT_THAT(journal, LinesAre({"frmA Activate"}));
  EXPECT_EQ(ui.screen.ActiveForm(), &frmA);
}

TEST_F(FormLife, AsksAndUnloadsInThatOrder) {
  frmA.Show();
  journal.clear();
  EXPECT_TRUE(frmA.Unload());
  EXPECT_THAT(journal, LinesAre({"frmA QueryUnload 1", "frmA Unload", "Close frmA"}));
  EXPECT_FALSE(frmA.isLoaded());
}

TEST_F(FormLife, StaysWhenItRefusesToUnload) {
  frmA.Show();
  frmA.onQueryUnload = [](int& cancel, UnloadMode) { cancel = -1; };
  journal.clear();
  EXPECT_FALSE(frmA.Unload());
  EXPECT_THAT(journal, LinesAre({"frmA QueryUnload 1"}));
  EXPECT_TRUE(frmA.Visible());
}

TEST_F(FormLife, IsAskedWithModeZeroWhenTheUserClosesTheWindow) {
  frmA.Show();
  journal.clear();
  frmA.userClose();
  EXPECT_THAT(journal, LinesAre({"frmA QueryUnload 0", "frmA Unload", "Close frmA"}));
}

TEST_F(FormLife, MayRefuseTheUserAndObeyCode) {
  frmA.Show();
  frmA.onQueryUnload = [](int& cancel, UnloadMode mode) { cancel = mode == UnloadMode::FormControlMenu; };
  frmA.userClose();
  EXPECT_TRUE(frmA.Visible());
  frmA.Unload();
  EXPECT_FALSE(frmA.isLoaded());
}

TEST_F(FormLife, UnloadsAFormThatIsLoadedAndNotShown) {
  frmA.Load();
  frmA.Unload();
  frmA.Unload();
  EXPECT_THAT(journal, LinesAre({"frmA Load", "frmA QueryUnload 1", "frmA Unload"}));
}

TEST_F(FormLife, TakesNoSecondUnloadWhileOneIsUnderWay) {
  frmA.Show();
  frmA.onUnload = [this] { EXPECT_FALSE(frmA.Unload()); };
  journal.clear();
  frmA.Unload();
  EXPECT_THAT(journal, LinesAre({"frmA QueryUnload 1", "frmA Unload", "Close frmA"}));
}

TEST_F(FormLife, KeepsPublicValuesAndGivesControlsTheirDesignAtTheNextLoad) {
  frmA.Load();
  frmA.txtName.Text = "typed";
  frmA.cmdOK.Caption = "&Finish";
  frmA.Caption = "at run time";
  frmA.Result = "kept";
  frmA.Unload();
  EXPECT_EQ(frmA.Result, "kept");
  EXPECT_EQ(frmA.txtName.Text, "design");
  frmA.Load();
  EXPECT_EQ(frmA.txtName.Text, "design");
  EXPECT_EQ(frmA.cmdOK.Caption, "&OK");
  EXPECT_EQ(frmA.Caption, "");
}

TEST_F(FormLife, RaisesNoEventWhenItsControlsGoBackToTheDesign) {
  int changes = 0;
  frmA.txtName.Change = [&] { ++changes; };
  frmA.Load();
  frmA.txtName.Text = "typed";
  frmA.Unload();
  EXPECT_EQ(changes, 1);
}

TEST_F(FormLife, StillHasTheControlsValuesInFormUnload) {
  std::string read;
  frmA.onUnload = [&] { read = frmA.txtName.Text; };
  frmA.Load();
  frmA.txtName.Text = "typed";
  frmA.Unload();
  EXPECT_EQ(read, "typed");
}

TEST_F(FormLife, ForgetsWhatWasSetWhileItWasNotLoaded) {
  frmA.Load();
  frmA.Unload();
  frmA.txtName.Text = "too early";
  frmA.Load();
  EXPECT_EQ(frmA.txtName.Text, "design");
}

TEST_F(FormLife, KeepsItsValuesWhileItIsHidden) {
  frmA.Show();
  frmA.txtName.Text = "typed";
  frmA.Hide();
  EXPECT_TRUE(frmA.isLoaded());
  EXPECT_FALSE(frmA.Visible());
  EXPECT_EQ(frmA.txtName.Text, "typed");
  frmA.Hide();
  EXPECT_THAT(fakes::linesOf(journal, "Close"), LinesAre({"Close frmA"}));
}

TEST_F(FormLife, ActivatesTheOwnerWhenAModalFormHasGoneAndBeforeShowModalReturns) {
  showMain();
  ui.nextModal("frmA", [](Form& form) { form.Unload(); });
  frmA.ShowModal(&frmMain);
  journal.push_back("back");
  EXPECT_THAT(journal,
              LinesAre({"frmA Load", "Show modal frmA", "frmA Resize", "frmA Activate", "frmA QueryUnload 1",
                        "frmA Unload", "Close frmA", "frmMain Activate", "back"}));
}

TEST_F(FormLife, ActivatesTheOwnerAfterTheHandlerThatClosedTheModalForm) {
  showMain();
  frmA.cmdOK.Click = [this] {
    frmA.Unload();
    journal.push_back("end of handler");
  };
  ui.nextModal("frmA", [this](Form&) { frmA.cmdOK.userClick(); });
  frmA.ShowModal(&frmMain);
  EXPECT_THAT(journal,
              LinesAre({"frmA Load", "Show modal frmA", "frmA Resize", "frmA Activate", "frmA QueryUnload 1",
                        "frmA Unload", "Close frmA", "end of handler", "frmMain Activate"}));
}

TEST_F(FormLife, ReturnsFromShowModalWhenTheFormIsHidden) {
  showMain();
  ui.nextModal("frmA", [](Form& form) { form.Hide(); });
  frmA.ShowModal(&frmMain);
  EXPECT_TRUE(frmA.isLoaded());
  EXPECT_EQ(journal.back(), "frmMain Activate");
}

TEST_F(FormLife, ReturnsAtOnceWhenTheFormUnloadsItselfAtItsActivation) {
  showMain();
  frmA.onActivate = [this] { frmA.Unload(); };
  frmA.ShowModal(&frmMain);
  EXPECT_THAT(journal, LinesAre({"frmA Load", "Show modal frmA", "frmA Resize", "frmA Activate",
                                 "frmA QueryUnload 1", "frmA Unload", "Close frmA", "frmMain Activate"}));
}

TEST_F(FormLife, ShowsNothingWhenTheFormUnloadsItselfInItsLoad) {
  frmA.onLoad = [this] { frmA.Unload(); };
  frmA.ShowModal();
  EXPECT_THAT(journal, LinesAre({"frmA Load", "frmA QueryUnload 1", "frmA Unload"}));
}

TEST_F(FormLife, ActivatesOnlyTheFormThatComesOut) {
  showMain();
  ui.nextModal("frmA", [this](Form& form) {
    ui.nextModal("frmB", [](Form& inner) { inner.Unload(); });
    frmB.ShowModal(&form);
    form.Unload();
  });
  frmA.ShowModal(&frmMain);
  EXPECT_THAT(fakes::linesWithout(journal, {"Show", "Close"}),
              LinesAre({"frmA Load", "frmA Resize", "frmA Activate", "frmB Load", "frmB Resize",
                        "frmB Activate", "frmB QueryUnload 1", "frmB Unload", "frmA Activate",
                        "frmA QueryUnload 1", "frmA Unload", "frmMain Activate"}));
}

TEST_F(FormLife, ActivatesTheFormUnderAModelessOneAtOnce) {
  showMain();
  frmA.Show(&frmMain);
  frmA.Unload();
  journal.push_back("back");
  EXPECT_THAT(journal,
              LinesAre({"frmA Load", "Show frmA", "frmA Resize", "frmA Activate", "frmA QueryUnload 1",
                        "frmA Unload", "Close frmA", "frmMain Activate", "back"}));
}

TEST_F(FormLife, ActivatesNothingWhenAFormGoesThatLayUnderAnother) {
  showMain();
  frmA.Show();
  frmB.Show();
  journal.clear();
  frmA.Unload();
  EXPECT_THAT(journal, LinesAre({"frmA QueryUnload 1", "frmA Unload", "Close frmA"}));
}

TEST_F(FormLife, ActivatesNothingForAMessageBox) {
  showMain();
  ui.screen.messageBox("Hello", platform::MessageIcon::Information);
  EXPECT_THAT(journal, LinesAre({"MessageBox information: Hello"}));
}

TEST_F(FormLife, LetsAModelessFormBeShownUnloadedAndShownAgain) {
  showMain();
  frmA.onActivate = [this] { frmA.Unload(); };
  frmA.Show(&frmMain);
  frmA.Show(&frmMain);
  EXPECT_THAT(fakes::linesOf(journal, "frmMain"), LinesAre({"frmMain Activate", "frmMain Activate"}));
  EXPECT_THAT(fakes::linesOf(journal, "frmA Load"), testing::SizeIs(2));
}

TEST_F(FormLife, RefusesToShowModallyWhatIsShownAlready) {
  frmA.Show();
  EXPECT_EQ(errorOf([&] { frmA.ShowModal(); }), 400);
}

TEST_F(FormLife, RefusesToShowModelessUnderAModalForm) {
  showMain();
  ui.nextModal("frmA", [this](Form& form) {
    EXPECT_EQ(errorOf([&] { frmB.Show(); }), 401);
    form.Unload();
  });
  frmA.ShowModal(&frmMain);
}

TEST_F(FormLife, KeepsTheUserFromTheFormsUnderAModalOne) {
  showMain();
  int clicks = 0;
  frmMain.cmdOK.Click = [&] { ++clicks; };
  frmA.cmdOK.Click = [&] { clicks += 10; };
  ui.nextModal("frmA", [this](Form& form) {
    frmMain.cmdOK.userClick();
    frmMain.userClose();
    frmA.cmdOK.userClick();
    form.Unload();
  });
  frmA.ShowModal(&frmMain);
  EXPECT_EQ(clicks, 10);
  EXPECT_TRUE(frmMain.Visible());
  frmMain.cmdOK.userClick();
  EXPECT_EQ(clicks, 11);
}

TEST_F(FormLife, KeepsTheUserFromAFormThatIsNotShownOrDisabled) {
  int clicks = 0;
  frmA.cmdOK.Click = [&] { ++clicks; };
  frmA.cmdOK.userClick();
  frmA.Load();
  frmA.cmdOK.userClick();
  frmA.Show();
  frmA.Enabled = false;
  frmA.cmdOK.userClick();
  EXPECT_EQ(clicks, 0);
}

TEST_F(FormLife, UnloadsTheFormsThatItOwnsWithIt) {
  frmMain.Show();
  frmA.Show(&frmMain);
  journal.clear();
  frmMain.Unload();
  EXPECT_THAT(journal, LinesAre({"frmMain QueryUnload 1", "frmA QueryUnload 5", "frmA Unload", "Close frmA",
                                 "frmMain Activate", "frmMain Unload", "Close frmMain"}));
}

TEST_F(FormLife, StaysWhenAFormThatItOwnsRefuses) {
  frmMain.Show();
  frmA.Show(&frmMain);
  frmA.onQueryUnload = [](int& cancel, UnloadMode) { cancel = 1; };
  EXPECT_FALSE(frmMain.Unload());
  EXPECT_TRUE(frmMain.Visible());
}

TEST_F(FormLife, MayShowAModalFormWhileItIsAskedToClose) {
  showMain();
  frmMain.onQueryUnload = [this](int&, UnloadMode) {
    ui.nextModal("frmA", [](Form& form) { form.Unload(); });
    frmA.ShowModal(&frmMain);
  };
  frmMain.userClose();
  EXPECT_FALSE(frmMain.isLoaded());
  EXPECT_THAT(fakes::linesOf(journal, "Show modal"), LinesAre({"Show modal frmA"}));
}

TEST_F(FormLife, TellsItsResizes) {
  frmA.Show();
  journal.clear();
  frmA.userResize(9000, 6000, WindowState::Normal);
  EXPECT_EQ(frmA.Width, 9000);
  EXPECT_EQ(frmA.Height, 6000);
  frmA.userResize(9000, 6000, WindowState::Minimized);
  EXPECT_EQ(frmA.WindowState, WindowState::Minimized);
  EXPECT_TRUE(frmA.Visible());
  EXPECT_THAT(journal, LinesAre({"frmA Resize", "frmA Resize"}));
}

TEST_F(FormLife, GoesWithoutAnEventWhenItIsDestroyed) {
  {
    RecordingForm local(ui, journal, "frmLocal");
    local.Show();
    journal.clear();
  }
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_EQ(ui.screen.ActiveForm(), nullptr);
}

TEST_F(FormLife, KeepsAHandlersOwnFormUsableAfterItsUnload) {
  showMain();
  frmA.cmdOK.Click = [this] {
    frmA.Unload();
    frmA.cmdOK.Enabled = false;
    frmA.txtName.Text = "after";
  };
  ui.nextModal("frmA", [this](Form&) { frmA.cmdOK.userClick(); });
  frmA.ShowModal(&frmMain);
  frmA.Load();
  EXPECT_TRUE(frmA.cmdOK.Enabled);
  EXPECT_EQ(frmA.txtName.Text, "design");
}

TEST_F(FormLife, FindsAControlByItsName) {
  EXPECT_EQ(frmA.controlNamed("cmdOK"), &frmA.cmdOK);
  EXPECT_EQ(frmA.controlNamed("cmdNone"), nullptr);
  EXPECT_EQ(frmA.cmdOK.form(), &frmA);
  EXPECT_THAT(frmA.controls(), ElementsAre(&frmA.txtName, &frmA.cmdOK, &frmA.cmdCancel));
}

}  // namespace
}  // namespace varnhold::ui
