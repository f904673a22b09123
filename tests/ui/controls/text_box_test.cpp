#include "ui/controls/text_box.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/ui/controls/recording_form.h"
#include "ui/controls/control_array.h"

namespace varnhold::ui {
namespace {

using testing::IsEmpty;

class TextBoxTest : public testing::Test {
 protected:
  TextBoxTest() {
    box.Change = [this] { changes.push_back(box.Text); };
  }
  TextBox box;
  std::vector<std::string> changes;
};

TEST_F(TextBoxTest, RaisesChangeWhenCodeSetsAnotherText) {
  box.Text = "a";
  box.Text = "a";
  box.Text = "";
  EXPECT_THAT(changes, LinesAre({"a", ""}));
}

TEST_F(TextBoxTest, RaisesChangeForEachTypedCharacter) {
  box.userType("10");
  EXPECT_THAT(changes, LinesAre({"1", "10"}));
}

TEST_F(TextBoxTest, TypesOverTheSelection) {
  box.Text = "000";
  box.SelectAll();
  box.userType("12");
  EXPECT_EQ(box.Text, "12");
  EXPECT_EQ(box.SelStart, 2);
}

TEST_F(TextBoxTest, TypesAtTheStartAfterCodeHasSetTheText) {
  box.Text = "bc";
  box.userType("a");
  EXPECT_EQ(box.Text, "abc");
}

TEST_F(TextBoxTest, CountsCharactersAndNotBytes) {
  box.Text = "\xC3\xA4\xC3\xB6";
  box.SelectAll();
  EXPECT_EQ(box.SelLength, 2);
  box.userSelect(1, 1);
  box.userType("\xE2\x82\xAC");
  EXPECT_EQ(box.Text, "\xC3\xA4\xE2\x82\xAC");
  EXPECT_EQ(box.SelStart, 2);
}

TEST_F(TextBoxTest, DeletesWithBackspace) {
  box.userType("ab\b");
  EXPECT_EQ(box.Text, "a");
  box.SelectAll();
  box.userType("\b");
  EXPECT_EQ(box.Text, "");
  changes.clear();
  box.userType("\b");
  EXPECT_THAT(changes, IsEmpty()) << "nothing is left to delete";
}

TEST_F(TextBoxTest, DropsAKeyThatTheHandlerSetsToZero) {
  box.KeyPress = [](int& key) {
    if (key != kKeyBack && (key < '0' || key > '9')) key = 0;
  };
  box.userType("1x2.\b3");
  EXPECT_EQ(box.Text, "13");
}

TEST_F(TextBoxTest, EntersTheKeyThatTheHandlerPutsInItsPlace) {
  box.KeyPress = [](int& key) { key = key == 'a' ? 'A' : key; };
  box.userType("ab");
  EXPECT_EQ(box.Text, "Ab");
}

TEST_F(TextBoxTest, EntersNoMoreThanItsMaxLength) {
  box.MaxLength = 3;
  box.userType("1234");
  EXPECT_EQ(box.Text, "123");
  box.SelectAll();
  box.userType("5");
  EXPECT_EQ(box.Text, "5");
}

TEST_F(TextBoxTest, CannotBeEditedByTheUserWhileLocked) {
  box.Text = "SYSTEM";
  box.Locked = true;
  changes.clear();
  int keys = 0;
  box.KeyPress = [&](int&) { ++keys; };
  box.userType("x");
  box.userEdit("y", 1);
  EXPECT_EQ(box.Text, "SYSTEM");
  EXPECT_EQ(keys, 0);
  EXPECT_THAT(changes, IsEmpty());
  box.Text = "by code";
  EXPECT_EQ(box.Text, "by code");
}

TEST_F(TextBoxTest, CannotBeEditedByTheUserWhileDisabled) {
  box.Enabled = false;
  box.userType("x");
  box.userEdit("y", 1);
  EXPECT_EQ(box.Text, "");
}

TEST_F(TextBoxTest, TakesWhatTheUserEditedAndRaisesChangeOnce) {
  box.userEdit("pasted", 6);
  box.userEdit("pasted", 2);
  EXPECT_THAT(changes, LinesAre({"pasted"}));
  EXPECT_EQ(box.SelStart, 2);
}

TEST_F(TextBoxTest, CorrectsItselfInItsChangeHandler) {
  box.Change = [this] {
    changes.push_back(box.Text);
    if (box.Text == "300") box.Text = "255";
  };
  box.userType("300");
  EXPECT_EQ(box.Text, "255");
  EXPECT_THAT(changes, LinesAre({"3", "30", "300", "255"}));
}

TEST_F(TextBoxTest, LeavesNoLetterOfAPasswordInItsMemoryWhenItGoesBackToItsDesign) {
  box.PasswordChar = "*";
  box.keepDesign();
  box.userEdit(std::string(200, 'p'), 200);
  const char* const letters = box.Text.get().data();
  box.restoreDesign();
  EXPECT_EQ(box.Text, "");
  ASSERT_EQ(box.Text.get().data(), letters) << "no other memory has taken its place";
  EXPECT_EQ(std::count(letters, letters + 200, 'p'), 0);
}

TEST_F(TextBoxTest, KeepsATextThatIsNoPasswordAsItsDesignHasIt) {
  box.Text = "Varnhold";
  box.keepDesign();
  box.userEdit("other", 5);
  box.restoreDesign();
  EXPECT_EQ(box.Text, "Varnhold");
}

TEST_F(TextBoxTest, RefusesANegativePosition) {
  EXPECT_EQ(errorOf([&] { box.SelStart = -1; }), 380);
  EXPECT_EQ(errorOf([&] { box.SelLength = -1; }), 380);
}

TEST_F(TextBoxTest, TakesASelectionBeyondItsTextAsItsEnd) {
  box.Text = "ab";
  box.SelStart = 9;
  box.SelLength = 5;
  box.userType("c");
  EXPECT_EQ(box.Text, "abc");
  EXPECT_EQ(box.SelStart, 3);
}

class OctetsForm : public Form {
 public:
  explicit OctetsForm(Screen& screen) : Form(screen, "frmOctets") {
    adopt({{"txt", txt(0)}, {"txt", txt(1)}});
    txt(0).Change = [this] {
      if (txt(0).Text.get().size() == 3) txt(1).SetFocus();
    };
    txt(0).LostFocus = [this] { left.push_back(txt(0).Text); };
    txt(1).GotFocus = [this] { txt(1).SelectAll(); };
  }
  ControlArray<TextBox, 2> txt;
  std::vector<std::string> left;
};

TEST(TextBoxFocus, LosesTheRestOfWhatIsTypedWhenAHandlerMovesTheFocus) {
  fakes::Journal journal;
  fakes::ScriptedUi ui(journal);
  OctetsForm form(ui.screen);
  form.Show();
  form.txt(1).Text = "000";
  form.txt(0).userType("1234");
  EXPECT_EQ(form.txt(0).Text, "123");
  EXPECT_THAT(form.left, LinesAre({"123"}));
  EXPECT_EQ(form.ActiveControl(), &form.txt(1));
  EXPECT_EQ(form.txt(1).SelLength, 3);
  form.txt(1).userType("4");
  EXPECT_EQ(form.txt(1).Text, "4");
}

}  // namespace
}  // namespace varnhold::ui
