#include <gmock/gmock.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/controls/recording_form.h"
#include "ui/controls/caption.h"
#include "ui/controls/check_box.h"
#include "ui/controls/containers.h"
#include "ui/controls/control_array.h"
#include "ui/controls/image.h"
#include "ui/controls/label.h"
#include "ui/controls/option_button.h"
#include "ui/controls/progress_bar.h"
#include "ui/controls/splitter.h"

namespace varnhold::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Caption, HasItsMnemonicBehindASingleAmpersand) {
  EXPECT_EQ(mnemonicOf("&Login"), U'L');
  EXPECT_EQ(mnemonicOf("Sys&tem Status"), U'T');
  EXPECT_EQ(mnemonicOf("Save && &exit"), U'E');
  EXPECT_EQ(mnemonicOf("&\xC3\xA4ndern"), U'\u00C4');
  EXPECT_EQ(mnemonicOf("Save && exit"), 0u);
  EXPECT_EQ(mnemonicOf("plain"), 0u);
  EXPECT_EQ(mnemonicOf("last&"), 0u);
  EXPECT_EQ(mnemonicOf(""), 0u);
}

TEST(Caption, ReadsWithoutTheSignOfItsMnemonic) {
  EXPECT_EQ(withoutMnemonic("View &Log"), "View Log");
  EXPECT_EQ(withoutMnemonic("Save && &exit"), "Save & exit");
  EXPECT_EQ(withoutMnemonic("last&"), "last");
}

TEST(CommandButton, RaisesClickWhenTheUserClicks) {
  CommandButton button("&Go");
  int clicks = 0;
  button.Click = [&] { ++clicks; };
  button.userClick();
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(button.Caption, "&Go");
}

TEST(CommandButton, CannotBeClickedWhenDisabledOrInvisible) {
  CommandButton button;
  int clicks = 0;
  button.Click = [&] { ++clicks; };
  button.Enabled = false;
  button.userClick();
  button.Enabled = true;
  button.Visible = false;
  button.userClick();
  EXPECT_EQ(clicks, 0);
}

TEST(CheckBox, RaisesClickWhenTheUserOrCodeSetsIt) {
  CheckBox box("&HP");
  std::vector<int> seen;
  box.Click = [&] { seen.push_back(box.Value); };
  box.userClick();
  box.Value = 0;
  box.userClick();
  box.Value = 1;
  EXPECT_THAT(seen, ElementsAre(1, 0, 1)) << "setting it to what it is raises nothing";
}

TEST(CheckBox, IsZeroOrOne) {
  CheckBox box;
  EXPECT_EQ(errorOf([&] { box.Value = 2; }), 380);
  EXPECT_EQ(box.Value, 0);
}

TEST(CheckBox, MayClearItselfInItsOwnHandler) {
  CheckBox box;
  std::vector<int> seen;
  box.Click = [&] {
    seen.push_back(box.Value);
    box.Value = 0;
  };
  box.userClick();
  EXPECT_THAT(seen, ElementsAre(1, 0));
}

TEST(CheckBox, KeepsItsTickWhileDisabled) {
  CheckBox box;
  box.Value = 1;
  box.Enabled = false;
  box.userClick();
  EXPECT_EQ(box.Value, 1);
}

class OptionForm : public Form {
 public:
  explicit OptionForm(Screen& screen) : Form(screen, "frmOptions") {
    adopt({{"optOutside", optOutside}, {"fraKind", fraKind}, {"fraMode", fraMode}});
    adopt(fraKind, {{"optKind", optKind(0)}, {"optKind", optKind(1)}});
    adopt(fraMode, {{"optMode", optMode(0)}, {"optMode", optMode(1)}});
    for (int i = 0; i < optKind.Count(); ++i) {
      optKind(i).Click = [this, i] { clicks.push_back("kind " + std::to_string(i)); };
      optMode(i).Click = [this, i] { clicks.push_back("mode " + std::to_string(i)); };
    }
  }
  OptionButton optOutside{"outside"};
  Frame fraKind{"Kind"}, fraMode{"Mode"};
  ControlArray<OptionButton, 2> optKind, optMode;
  std::vector<std::string> clicks;
};

class OptionButtonTest : public UiTest {
 protected:
  OptionForm form{ui.screen};
};

TEST_F(OptionButtonTest, ClearsTheOthersOfItsContainerOnly) {
  form.Show();
  form.optOutside.Value = true;
  form.optMode(1).Value = true;
  form.optKind(0).Value = true;
  form.optKind(1).userClick();
  EXPECT_FALSE(form.optKind(0).Value);
  EXPECT_TRUE(form.optKind(1).Value);
  EXPECT_TRUE(form.optMode(1).Value);
  EXPECT_TRUE(form.optOutside.Value);
}

TEST_F(OptionButtonTest, RaisesClickOnlyForTheOneThatIsChosen) {
  form.Show();
  form.optKind(0).Value = true;
  form.optKind(1).userClick();
  form.optKind(0).Value = true;
  EXPECT_THAT(form.clicks, LinesAre({"kind 0", "kind 1", "kind 0"}));
}

TEST_F(OptionButtonTest, RaisesNothingWhenItIsChosenAlreadyOrCleared) {
  form.Show();
  form.optKind(0).Value = true;
  form.clicks.clear();
  form.optKind(0).userClick();
  form.optKind(0).Value = true;
  form.optKind(0).Value = false;
  EXPECT_THAT(form.clicks, IsEmpty());
  EXPECT_FALSE(form.optKind(1).Value) << "the group is left without a choice";
}

TEST_F(OptionButtonTest, HasClearedTheOthersWhenItsHandlerRuns) {
  form.Show();
  form.optKind(0).Value = true;
  bool otherWasSet = true;
  form.optKind(1).Click = [&] { otherWasSet = form.optKind(0).Value; };
  form.optKind(1).userClick();
  EXPECT_FALSE(otherWasSet);
}

TEST_F(OptionButtonTest, CannotBeChosenInADisabledOrInvisibleFrame) {
  form.Show();
  form.fraKind.Enabled = false;
  form.fraMode.Visible = false;
  form.optKind(0).userClick();
  form.optMode(0).userClick();
  EXPECT_THAT(form.clicks, IsEmpty());
  EXPECT_FALSE(form.optKind(0).Value);
}

TEST_F(OptionButtonTest, CodeSetsItInADisabledFrameToo) {
  form.fraKind.Enabled = false;
  form.optKind(1).Value = true;
  EXPECT_THAT(form.clicks, LinesAre({"kind 1"}));
}

TEST(ControlArray, RefusesAnIndexThatItDoesNotHave) {
  ControlArray<OptionButton, 2> options;
  EXPECT_EQ(errorOf([&] { (void)options(2); }), 340);
  EXPECT_EQ(errorOf([&] { (void)options(-1); }), 340);
  EXPECT_EQ(&options(1), &*(options.begin() + 1));
}

TEST(Label, TellsAPressAndTheMovesOfThePointer) {
  Label label("link");
  std::vector<std::string> seen;
  label.MouseDown = [&](MouseButton button) {
    seen.push_back(button == MouseButton::Left ? "left" : "right");
  };
  label.Click = [&] { seen.push_back("click"); };
  label.MouseMove = [&](bool inside) { seen.push_back(inside ? "in" : "out"); };
  label.userMove(true);
  label.userPress();
  label.userPress(MouseButton::Right);
  label.userMove(false);
  EXPECT_THAT(seen, LinesAre({"in", "left", "click", "right", "out"}));
}

TEST(ProgressBar, RefusesAValueOutsideItsRange) {
  ProgressBar bar;
  bar.Value = 99;
  EXPECT_EQ(errorOf([&] { bar.Value = 101; }), 380);
  EXPECT_EQ(errorOf([&] { bar.Value = -1; }), 380);
  EXPECT_EQ(bar.Value, 99);
  bar.Max = 200;
  bar.Value = 101;
  EXPECT_EQ(bar.Value, 101);
}

TEST(Splitter, TellsADragAndStaysUntilItIsSet) {
  Splitter splitter;
  splitter.Position = 3000;
  std::vector<std::string> seen;
  splitter.MouseDown = [&](double x) { seen.push_back("down " + std::to_string(static_cast<int>(x))); };
  splitter.MouseMove = [&](double x) { seen.push_back("move " + std::to_string(static_cast<int>(x))); };
  splitter.MouseUp = [&](double x) { seen.push_back("up " + std::to_string(static_cast<int>(x))); };
  splitter.userPress(3000);
  splitter.userMove(3500);
  splitter.userRelease(4000);
  EXPECT_THAT(seen, LinesAre({"down 3000", "move 3500", "up 4000"}));
  EXPECT_EQ(splitter.Position, 3000);
}

TEST(ImageList, GivesNamesByNumberFromOne) {
  ImageList images({"group", "computer"});
  EXPECT_EQ(images.ListImages(1), "group");
  EXPECT_EQ(images.ListImages(2), "computer");
  EXPECT_EQ(errorOf([&] { (void)images.ListImages(0); }), 35600);
  EXPECT_EQ(errorOf([&] { (void)images.ListImages(3); }), 35600);
}

/// A view that counts what it is told.
class CountingView : public ControlView {
 public:
  int synced = 0, focused = 0, raised = 0, releases = 0;
  void sync() override { ++synced; }
  void takeFocus() override { ++focused; }
  void toFront() override { ++raised; }
  void released() override { ++releases; }
};

TEST(Control, TellsItsViewOfEachChangeAndOfNothingElse) {
  CountingView view;
  CommandButton button;
  button.attach(view);
  button.Caption = "&Finish";
  button.Caption = "&Finish";
  button.Enabled = false;
  button.ZOrder();
  EXPECT_EQ(view.synced, 2);
  EXPECT_EQ(view.raised, 1);
}

TEST(Control, WorksWithoutAViewAndAfterItsViewIsGone) {
  CommandButton button;
  {
    CountingView view;
    button.attach(view);
  }
  button.Caption = "still fine";
  button.ZOrder();
  EXPECT_EQ(button.Caption, "still fine");
}

TEST(Control, KeepsANewerViewWhenTheOldOneGoes) {
  CountingView newer;
  CommandButton button;
  {
    CountingView older;
    button.attach(older);
    button.attach(newer);
    EXPECT_EQ(older.releases, 1);
  }
  button.Caption = "x";
  EXPECT_EQ(newer.synced, 1);
  EXPECT_EQ(newer.releases, 0);
}

TEST(Control, TellsItsViewThatItGoesAway) {
  CountingView view;
  {
    CommandButton button;
    button.attach(view);
  }
  EXPECT_EQ(view.releases, 1);
}

}  // namespace
}  // namespace varnhold::ui
