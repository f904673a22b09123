// The question before remedial actions are turned on.
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

class RemedialActionTest : public WizardTest {
 protected:
  /// The wizard asks; `script` is what the operator does.
  std::int32_t ask(const std::function<void()>& script) {
    ui.nextModal("frmRemedialActionHelp", [this, script](ui::Form&) {
      script();
      form.Hide();
    });
    return targets.ShowRemedialDialogBox();
  }

  deployment::frmRemedialActionHelp& form = frmRemedialActionHelp;
};

TEST_F(RemedialActionTest, WarnsOfScriptsAndOffersTheGuide) {
  ask([this] {
    EXPECT_EQ(form.Caption, "Remedial Action Configuration.");
    EXPECT_EQ(form.lblLoadText.Caption,
              "Caution!\r\n\r\nThis feature permits the execution of scripts on agent systems.\r\n"
              "Carefully review the risks and benefits before enabling this feature.");
    EXPECT_EQ(form.lblSure.Caption, "Are you sure?");
    EXPECT_EQ(form.YesButton.Caption, "Yes");
    EXPECT_EQ(form.NoButton.Caption, "No");
    EXPECT_EQ(form.lblRemedialHelpLink.Caption, "Click here for more information.");
    EXPECT_TRUE(form.lblRemedialHelpLink.Link);
    EXPECT_EQ(form.lblRemedialHelpLink.MouseIcon, "hand");
  });
}

TEST_F(RemedialActionTest, YesIsSixAndEverythingElseSeven) {
  EXPECT_EQ(ask([this] { form.YesButton.userClick(); }), 6);
  EXPECT_FALSE(form.isLoaded());
  EXPECT_EQ(ask([this] { form.NoButton.userClick(); }), 7);
  EXPECT_FALSE(form.isLoaded());
}

TEST_F(RemedialActionTest, ClosingItByItsFrameIsANoAlsoAfterAYes) {
  EXPECT_EQ(ask([this] { form.YesButton.userClick(); }), 6);
  EXPECT_EQ(ask([this] { form.userClose(); }), 7);
}

TEST_F(RemedialActionTest, TheLinkOpensTheGuideInTheBrowser) {
  ask([this] {
    fake.journal.clear();
    form.lblRemedialHelpLink.userPress();
  });
  EXPECT_THAT(fakes::linesOf(fake.journal, "ShellExecute"),
              LinesAre({"ShellExecute open " + std::string(kRemedialActionsGuide) + " show 1 -> 33"}));
}

TEST_F(RemedialActionTest, WithoutABrowserAnotherIsTriedAndThenTheAddressIsTold) {
  fake.processes.result = 32;
  ask([this] {
    fake.journal.clear();
    form.lblRemedialHelpLink.userPress();
    EXPECT_THAT(
        fake.journal,
        LinesAre({"ShellExecute open " + std::string(kRemedialActionsGuide) + " show 1 -> 32",
                  "ShellExecute open iexplore " + std::string(kRemedialActionsGuide) + " show 1 -> 32",
                  "MessageBox information: Failed to launch the default web browser. You can use the "
                  "following URL to open the Findlore website.<CR>" +
                      std::string(kRemedialActionsGuide)}));
  });
}

TEST_F(RemedialActionTest, ThePointerIsAHandOverTheLinkAlone) {
  ask([this] {
    form.lblRemedialHelpLink.userMove(true);
    EXPECT_EQ(form.lblRemedialHelpLink.MousePointer, ui::Pointer::Custom);
    form.lblRemedialHelpLink.userMove(false);
    EXPECT_EQ(form.lblRemedialHelpLink.MousePointer, ui::Pointer::Arrow);
  });
}

}  // namespace
}  // namespace varnhold::deployment
