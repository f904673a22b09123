// The scripted user interface fails a test that has not foreseen what the program waits for.
#include "tests/fakes/scripted_ui.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <memory>

#include "tests/ui/controls/recording_form.h"
#include "ui/controls/menu_item.h"

namespace varnhold::ui {
namespace {

class ScriptedUiTest : public testing::Test {
 protected:
  fakes::Journal journal;
  std::unique_ptr<fakes::ScriptedUi> ui = std::make_unique<fakes::ScriptedUi>(journal);
};

TEST_F(ScriptedUiTest, FailsAModalFormWithoutAScriptAndClosesIt) {
  RecordingForm form(*ui, journal, "frmA");
  EXPECT_NONFATAL_FAILURE(form.ShowModal(), "nobody answers: no script for the modal form frmA");
  EXPECT_FALSE(form.Visible());
}

TEST_F(ScriptedUiTest, FailsAScriptThatLeavesItsFormOpenAndClosesIt) {
  RecordingForm form(*ui, journal, "frmA");
  ui->nextModal("frmA", [](Form&) {});
  EXPECT_NONFATAL_FAILURE(form.ShowModal(), "the user leaves frmA open");
  EXPECT_FALSE(form.Visible());
}

TEST_F(ScriptedUiTest, FailsAScriptThatWasMeantForAnotherForm) {
  RecordingForm form(*ui, journal, "frmA");
  ui->nextModal("frmB", [](Form& shown) { shown.Unload(); });
  EXPECT_NONFATAL_FAILURE(form.ShowModal(), "another form is shown modally");
}

TEST_F(ScriptedUiTest, FailsAQuestionWithoutAnAnswerAndSaysNo) {
  auto answer = Answer::Yes;
  EXPECT_NONFATAL_FAILURE(answer = ui->screen.MsgBox({.text = "Sure?", .buttons = BoxButtons::YesNo}),
                          "nobody answers: MessageBox plain: Sure?");
  EXPECT_EQ(answer, Answer::No);
}

TEST_F(ScriptedUiTest, FailsAPromptAndAFileDialogWithoutAnAnswer) {
  EXPECT_NONFATAL_FAILURE((void)ui->screen.InputBox("Name:"), "nobody answers: InputBox Name:");
  FileDialog dialog{"Open", "", ""};
  EXPECT_NONFATAL_FAILURE(ui->screen.ShowOpen(dialog), "nobody answers: OpenFile Open");
}

TEST_F(ScriptedUiTest, FailsWhatNobodyAskedFor) {
  ui->nextModal("frmA", [](Form&) {});
  EXPECT_NONFATAL_FAILURE(ui.reset(), "never shown modally: frmA");
  ui = std::make_unique<fakes::ScriptedUi>(journal);
  ui->nextAnswer(Answer::Yes);
  EXPECT_NONFATAL_FAILURE(ui.reset(), "1 answers to questions that nobody asked");
  ui = std::make_unique<fakes::ScriptedUi>(journal);
  ui->nextInput("x");
  EXPECT_NONFATAL_FAILURE(ui.reset(), "1 inputs that nobody asked for");
  ui = std::make_unique<fakes::ScriptedUi>(journal);
  ui->nextFile("x");
  EXPECT_NONFATAL_FAILURE(ui.reset(), "1 files that nobody asked for");
  ui = std::make_unique<fakes::ScriptedUi>(journal);
  ui->nextPopUp("mnuX");
  EXPECT_NONFATAL_FAILURE(ui.reset(), "no pop-up menu to choose from: mnuX");
}

TEST_F(ScriptedUiTest, FailsARunTimeErrorThatTheTestHasNotForeseen) {
  const auto error = [] { throw RuntimeError(91, "There is no selected row."); };
  ui->screen.dispatch(error);
  EXPECT_NONFATAL_FAILURE(ui.reset(), "whether a run-time error has ended the program");
  ui = std::make_unique<fakes::ScriptedUi>(journal);
  ui->endsByRunTimeError = true;
  EXPECT_NONFATAL_FAILURE(ui.reset(), "whether a run-time error has ended the program");
}

class PopUpForm : public Form {
 public:
  explicit PopUpForm(Screen& screen) : Form(screen, "frmPopUp") {
    adopt({{"mnuPopUp", mnuPopUp}});
    adopt(mnuPopUp, {{"mnuEdit", mnuEdit}});
    mnuPopUp.Visible = false;
  }
  MenuItem mnuPopUp{"PopUp"}, mnuEdit{"Edit"};
};

TEST_F(ScriptedUiTest, FailsAChoiceThatThePopUpMenuDoesNotOffer) {
  PopUpForm form(ui->screen);
  form.Show();
  ui->nextPopUp("mnuElse");
  EXPECT_NONFATAL_FAILURE(form.PopupMenu(form.mnuPopUp), "mnuPopUp does not offer mnuElse");
  form.mnuEdit.Enabled = false;
  ui->nextPopUp("mnuEdit");
  EXPECT_NONFATAL_FAILURE(form.PopupMenu(form.mnuPopUp), "mnuPopUp does not offer mnuEdit");
}

}  // namespace
}  // namespace varnhold::ui
