// The window of the deployment wizard and of the forms that it shows, as they are laid out.
#include "deployment/frmTargets.h"

#include <wx/uiaction.h>

#include "deployment/frmLogin.h"
#include "deployment/frmRemedialActionHelp.h"
#include "tests/fakes/fake_host.h"
#include "tests/ui/wx/complete_form.h"
#include "ui/wx/acts.h"

namespace varnhold::ui::wx {
namespace {

// A screen of 1024 by 740 at 100 %, in letters and lines of text.
constexpr int kMostLetters = 128, kMostLines = 41;

class WizardPages : public WxTest {
 protected:
  WizardPages() {
    form.Caption = "Upgrade Remote Agent(s)";
    form.cmdInstall.Caption = "&Uninstall";
    form.optClient(1).Caption = "Tessmark? for Windows";
    for (auto* frame : pages()) frame->Visible = false;
  }

  std::vector<Frame*> pages() {
    return {&form.freMain,        &form.freSelectAgent, &form.freAgents, &form.frePath,
            &form.freUpgradeOpts, &form.freConfig,      &form.freLogon};
  }

  /// Shows the wizard's window with these frames, without any of its handlers.
  wxWindow& show(std::initializer_list<Frame*> frames) {
    for (auto* frame : frames) frame->Visible = true;
    window_ = stage.toolkit().createWindow(form);
    window_->show(nullptr, false);
    settle();
    return window();
  }
  [[nodiscard]] wxWindow& window() { return *stage.toolkit().windowOf(&form); }

  void expectGood() {
    expectNothingIsCutOff(window());
    EXPECT_LE(window().GetSize().x, kMostLetters * window().GetCharWidth());
    EXPECT_LE(window().GetSize().y, kMostLines * window().GetCharHeight());
  }
  [[nodiscard]] wxRect placeOf(const Control& control) {
    return widgetOf(window(), control)->GetScreenRect();
  }
  [[nodiscard]] bool isSeen(const Control& control) { return widgetOf(window(), control)->IsShownOnScreen(); }
  void fillLists() {
    form.cboGroups.AddItem(kLongName + " " + kLongName);
    for (auto* list : {&form.lvSelect, &form.lvSelected, &form.lvSystems}) {
      for (int i = 0; i < 30; ++i) list->ListItems.Add(kLongName);
    }
    for (auto* list : {&form.lstSystems, &form.lstPathSystems}) {
      for (int i = 0; i < 30; ++i) list->AddItem(kLongName);
    }
  }

  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle};
  deployment::frmLogin login{program, screen};
  deployment::frmRemedialActionHelp help{program, screen};
  ui::ListView lvListView;
  ui::TreeView tvTreeView;
  ui::ImageList imlIcons{{"computer", "computer", "computer", "computer"}};
  deployment::frmTargets form{
      program, screen, {lvListView, tvTreeView, imlIcons, [](TreeNode*) {}, [] {}}, login, help};

 private:
  std::unique_ptr<FormWindow> window_;
};

TEST_F(WizardPages, HaveAWidgetForEachControl) {
  expectWidgetOfEach(form, show({&form.freMain}));
}

TEST_F(WizardPages, TheChoiceOfComputersHasItsButtonsBetweenTheLists) {
  fillLists();
  form.lvSystems.Visible = form.pbProgress.Visible = form.lblProgress.Visible = false;
  form.lblInfo.Caption = "Select system to be monitored for events";
  show({&form.freMain});
  expectGood();
  EXPECT_GT(placeOf(form.cmdAdd).x, placeOf(form.lvSelect).GetRight());
  EXPECT_LT(placeOf(form.cmdremoveall).GetRight(), placeOf(form.lvSelected).x);
  EXPECT_EQ(placeOf(form.lvSelect).height, placeOf(form.lvSelected).height);
  EXPECT_NEAR(placeOf(form.lvSelect).width, placeOf(form.lvSelected).width, 1);
  EXPECT_GE(placeOf(form.lvSelect).height, window().FromDIP(200));
}

TEST_F(WizardPages, TheListOfARunTakesThePlaceOfTheChoiceAlsoOverButtonsThatAreLeftThere) {
  fillLists();
  show({&form.freMain});
  form.lvSelect.Visible = form.lvSelected.Visible = form.cboGroups.Visible = false;
  form.cmdAdd.Visible = form.cmdRemove.Visible = false;
  form.lblInfo.Caption = "Please wait...\rUninstalling Agent(s)...";
  form.pbProgress.Value = 40;
  settle();
  EXPECT_TRUE(isSeen(form.lvSystems));
  EXPECT_FALSE(isSeen(form.cmdselectall));
  expectGood();
  EXPECT_GE(placeOf(form.lvSystems).width, window().GetClientSize().x * 9 / 10);
  EXPECT_GT(placeOf(form.pbProgress).y, placeOf(form.lvSystems).GetBottom());
  form.lvSystems.Visible = false;
  settle();
  EXPECT_TRUE(isSeen(form.cmdselectall));
}

TEST_F(WizardPages, TheTypeOfAgent) {
  show({&form.freSelectAgent});
  expectGood();
}

TEST_F(WizardPages, TheProduct) {
  fillLists();
  form.lblAgentInfo.Caption = "Select the Agent software(s) to uninstall.";
  form.lblAgentLast.Caption = "Select '&Next >' to select the install path.";
  show({&form.freAgents});
  expectGood();
}

TEST_F(WizardPages, ThePath) {
  fillLists();
  form.lblPathLast.Caption = "Select '&Install' to proceed.";
  form.picPolling.Visible = form.picAccount.Visible = form.txtPathTKW.Visible = false;
  show({&form.frePath});
  expectGood();
}

TEST_F(WizardPages, TheOneBoxOfAPathStandsInTheSamePlaceForBothProducts) {
  form.txtPathTKW.Visible = false;
  show({&form.frePath});
  const auto place = placeOf(form.txtPathVHW);
  form.txtPathVHW.Visible = false;
  form.txtPathTKW.Visible = true;
  settle();
  EXPECT_EQ(placeOf(form.txtPathTKW), place);
}

TEST_F(WizardPages, PollingAndItsAccount) {
  fillLists();
  form.lblPathInfo.Caption = "Select the polling frequency :";
  form.lblPathLast.Caption = "Select '&Install' to proceed.";
  form.txtPathVHW.Visible = form.txtPathTKW.Visible = false;
  form.txtAccount.Text = kLongName + "\\" + kLongName;
  show({&form.frePath});
  expectGood();
  EXPECT_GE(placeOf(form.lstPathSystems).height, window().FromDIP(60));
}

TEST_F(WizardPages, TheWayOfAnUpgradeStandsOverItsConfiguration) {
  form.lblUptOptInfo.Caption =
      "Select the method of upgrade. Choose 'Upgrade Over IP' option to upgrade the agent which is outside "
      "the domain.";
  show({&form.freUpgradeOpts});
  expectGood();
  form.freConfig.Visible = true;
  settle();
  expectGood();
  EXPECT_LT(placeOf(form.chkUpgradeRemedialActionScripts).GetBottom(), placeOf(form.freConfig).y);
}

TEST_F(WizardPages, TheConfigurationAndTheLogon) {
  show({&form.freConfig});
  expectGood();
  form.freConfig.Visible = false;
  form.freLogon.Visible = true;
  settle();
  expectGood();
}

TEST_F(WizardPages, KeepTheWindowInItsSize) {
  auto& window = show({&form.freMain});
  const auto size = window.GetSize();
  for (auto* page : pages()) {
    for (auto* other : pages()) other->Visible = other == page;
    settle();
    EXPECT_EQ(window.GetSize(), size) << page->Name();
  }
}

TEST_F(WizardPages, TakeALongResultInSeveralLines) {
  show({&form.freMain});
  form.cmdCancel.Caption = "View &Log";
  form.lblProgress.Caption =
      "Action stopped by user, there were some errors, select 'View &Log' for details " + kLongName;
  settle();
  expectGood();
}

TEST_F(WizardPages, HaveTheirButtonsAtTheBottomRightInTheirOrder) {
  show({&form.freMain});
  int right = 0;
  for (auto* button : {&form.cmdBack, &form.cmdNext, &form.cmdAdvanced, &form.cmdInstall, &form.cmdCancel}) {
    EXPECT_GT(placeOf(*button).x, right);
    EXPECT_EQ(placeOf(*button).y, placeOf(form.cmdBack).y);
    right = placeOf(*button).GetRight();
  }
  EXPECT_GE(right, window().GetScreenRect().GetRight() - window().FromDIP(24));
}

TEST_F(WizardPages, HearTheKeysBehindTheButtonThatWentDarkUnderItsClick) {
  form.Load();
  form.Operation = 1;
  form.CurrentPage = 5;
  form.OptAgentbased.Value = true;
  const auto work = [&] {
    auto& frame = dynamic_cast<wxTopLevelWindow&>(window());
    EXPECT_TRUE(stage.waitFor([&] { return frame.IsActive(); }));
    auto* advanced = wxWindow::FindWindowByLabel(form.cmdAdvanced.Caption.get(), &frame);
    advanced->SetFocus();
    settle();
    sendCommand(*advanced, wxEVT_BUTTON);
    settle();
    EXPECT_EQ(form.CurrentPage, 6);
    EXPECT_EQ(form.ActiveControl(), &form.cmdInstall);
    wxUIActionSimulator().Char(WXK_ESCAPE);
    settle();
    EXPECT_FALSE(form.isLoaded()) << "Escape is Cancel";
    form.Unload();
  };
  // As a user's act, which waits while the form is painted.
  wxTimer later;
  later.Bind(wxEVT_TIMER, [&](wxTimerEvent&) { acts().post(work); });
  later.StartOnce(50);
  form.ShowModal();
}

class PromptViews : public WizardPages {
 protected:
  void expectComplete(Form& prompt) {
    const auto window = stage.toolkit().createWindow(prompt);
    window->show(nullptr, false);
    settle();
    expectWidgetOfEach(prompt, *stage.toolkit().windowOf(&prompt));
    expectNothingIsCutOff(*stage.toolkit().windowOf(&prompt));
  }
};

TEST_F(PromptViews, TheLogin) {
  expectComplete(login);
}

TEST_F(PromptViews, TheQuestionAboutRemedialActions) {
  help.Load();
  help.lblRemedialHelpLink.Caption = "Click here for more information.";
  help.lblRemedialHelpLink.Link = true;
  expectComplete(help);
  help.Unload();
}

}  // namespace
}  // namespace varnhold::ui::wx
