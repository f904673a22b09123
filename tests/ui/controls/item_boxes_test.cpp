#include <gmock/gmock.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/controls/recording_form.h"
#include "ui/controls/combo_box.h"
#include "ui/controls/list_box.h"

namespace varnhold::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <class Box>
std::vector<std::string> entriesOf(const Box& box) {
  std::vector<std::string> entries;
  for (int i = 0; i < box.ListCount(); ++i) entries.push_back(box.List(i));
  return entries;
}

/// A view that writes down what it is told.
class RecordingBoxView : public ItemBoxView {
 public:
  std::vector<std::string> told;
  void sync() override { told.push_back("sync"); }
  void itemsChanged() override { told.push_back("items"); }
  void scrollTo(int index) override { told.push_back("scroll " + std::to_string(index)); }
  int textWidth(std::string_view text) const override { return 7 * static_cast<int>(text.size()); }
};

class ListBoxTest : public testing::Test {
 protected:
  ListBoxTest() {
    for (const auto* name : {"ATLAS", "BORA", "boreas", "CALYPSO"}) list.AddItem(name);
    list.Click = [this] { clicks.push_back(list.ListIndex); };
  }
  std::vector<int> selected() const {
    std::vector<int> rows;
    for (int i = 0; i < list.ListCount(); ++i) {
      if (list.Selected(i)) rows.push_back(i);
    }
    return rows;
  }
  ListBox list;
  std::vector<int> clicks;
};

TEST_F(ListBoxTest, BeginsWithoutACurrentEntry) {
  EXPECT_EQ(list.ListIndex, -1);
  EXPECT_EQ(list.Text(), "");
  EXPECT_EQ(list.SelCount(), 0);
}

TEST_F(ListBoxTest, ReadsNothingOutsideItsEntries) {
  list.Clear();
  EXPECT_EQ(list.List(0), "");
  EXPECT_EQ(list.List(-1), "");
  EXPECT_FALSE(list.Selected(0));
  EXPECT_EQ(list.ItemData(0), 0);
}

TEST_F(ListBoxTest, RefusesToChangeWhatIsOutsideItsEntries) {
  EXPECT_EQ(errorOf([&] { list.RemoveItem(4); }), 381);
  EXPECT_EQ(errorOf([&] { list.SetSelected(4, true); }), 381);
  EXPECT_EQ(errorOf([&] { list.AddItem("X", 5); }), 381);
  EXPECT_EQ(errorOf([&] { list.SetItemData(-1, 1); }), 381);
  EXPECT_EQ(errorOf([&] { list.ListIndex = 4; }), 380);
  EXPECT_EQ(errorOf([&] { list.ListIndex = -2; }), 380);
}

TEST_F(ListBoxTest, InsertsAtAnIndexAndKeepsTheCurrentEntry) {
  list.setCurSel(1);
  list.AddItem("AEOLUS", 1);
  EXPECT_EQ(list.NewIndex(), 1);
  EXPECT_EQ(list.Text(), "BORA");
  EXPECT_THAT(selected(), ElementsAre(2));
  list.RemoveItem(0);
  EXPECT_EQ(list.Text(), "BORA");
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ListBoxTest, KeepsANumberWithEachEntry) {
  list.SetItemData(1, 42);
  list.RemoveItem(0);
  EXPECT_EQ(list.ItemData(0), 42);
}

TEST_F(ListBoxTest, SelectsTheCurrentEntryAndRaisesClickWhenCodeSetsIt) {
  list.ListIndex = 2;
  EXPECT_THAT(selected(), ElementsAre(2));
  EXPECT_EQ(list.Text(), "boreas");
  list.ListIndex = 2;
  list.SetSelected(0, true);
  EXPECT_THAT(selected(), ElementsAre(0));
  list.SetSelected(0, false);
  EXPECT_THAT(selected(), IsEmpty());
  EXPECT_THAT(clicks, ElementsAre(2, 0, -1));
}

TEST_F(ListBoxTest, HasNoSelectionLeftWhenItsEntryIsRemoved) {
  list.ListIndex = 1;
  clicks.clear();
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex, -1);
  EXPECT_THAT(selected(), IsEmpty());
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ListBoxTest, OfSeveralKeepsTheFocusRectangleInPlaceWhenItsEntryIsRemoved) {
  list.MultiSelect = MultiSelect::Extended;
  list.SetSelected(3, true);
  list.RemoveItem(3);
  EXPECT_EQ(list.ListIndex, 2);
  EXPECT_THAT(selected(), IsEmpty());
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex, 1);
}

TEST_F(ListBoxTest, OfSeveralSelectsEachByItself) {
  list.MultiSelect = MultiSelect::Extended;
  list.SetSelected(0, true);
  list.SetSelected(2, true);
  list.SetSelected(2, true);
  EXPECT_THAT(selected(), ElementsAre(0, 2));
  EXPECT_EQ(list.SelCount(), 2);
  EXPECT_EQ(list.ListIndex, 2);
  EXPECT_THAT(clicks, ElementsAre(0, 2));
}

TEST_F(ListBoxTest, OfSeveralMovesOnlyTheFocusRectangleByItsIndex) {
  list.MultiSelect = MultiSelect::Extended;
  list.SetSelected(0, true);
  list.ListIndex = 3;
  EXPECT_THAT(selected(), ElementsAre(0));
}

TEST_F(ListBoxTest, TakesAClickWithTheKeysThatExtendIt) {
  list.MultiSelect = MultiSelect::Extended;
  list.userClick(1);
  EXPECT_THAT(selected(), ElementsAre(1));
  list.userClick(3, kShift);
  EXPECT_THAT(selected(), ElementsAre(1, 2, 3));
  list.userClick(2, kControl);
  EXPECT_THAT(selected(), ElementsAre(1, 3));
  list.userClick(0);
  EXPECT_THAT(selected(), ElementsAre(0));
  EXPECT_THAT(clicks, ElementsAre(1, 3, 2, 0));
}

TEST_F(ListBoxTest, OfTheSimpleKindTurnsOverWhatIsClicked) {
  list.MultiSelect = MultiSelect::Simple;
  list.userClick(0);
  list.userClick(2);
  list.userClick(0);
  EXPECT_THAT(selected(), ElementsAre(2));
}

TEST_F(ListBoxTest, OfOneTakesNoNoticeOfTheKeysThatExtend) {
  list.userClick(0);
  list.userClick(2, kShift);
  list.userClick(1, kControl);
  EXPECT_THAT(selected(), ElementsAre(1));
}

TEST_F(ListBoxTest, RaisesClickAlsoForTheEntryThatIsSelectedAlready) {
  list.userClick(0);
  list.userClick(0);
  EXPECT_THAT(clicks, ElementsAre(0, 0));
}

TEST_F(ListBoxTest, TakesAWholeSelectionFromTheUser) {
  list.MultiSelect = MultiSelect::Extended;
  list.userSelection({0, 3, 9}, 3);
  EXPECT_THAT(selected(), ElementsAre(0, 3));
  EXPECT_THAT(clicks, ElementsAre(3));
}

TEST_F(ListBoxTest, TellsADoubleClickBehindTheClick) {
  std::vector<std::string> seen;
  list.Click = [&] { seen.push_back("click"); };
  list.DblClick = [&] { seen.push_back("double"); };
  list.userDblClick(1);
  EXPECT_THAT(seen, LinesAre({"click", "double"}));
}

TEST_F(ListBoxTest, CannotBeClickedWhileDisabled) {
  list.Enabled = false;
  list.userClick(1);
  EXPECT_THAT(clicks, IsEmpty());
  EXPECT_EQ(list.ListIndex, -1);
}

TEST_F(ListBoxTest, FindsTheFirstEntryThatBeginsWithATextInAnyCase) {
  EXPECT_EQ(list.findString(-1, "bor"), 1);
  EXPECT_EQ(list.findString(-1, "BORE"), 2);
  EXPECT_EQ(list.findString(1, "bor"), 2);
  EXPECT_EQ(list.findString(2, "bor"), 1) << "the search goes on from the top";
  EXPECT_EQ(list.findString(-1, "x"), -1);
  list.Clear();
  EXPECT_EQ(list.findString(-1, "b"), -1);
}

TEST_F(ListBoxTest, IsSelectedByMessageWithoutAnEvent) {
  list.MultiSelect = MultiSelect::Extended;
  list.SetSelected(0, true);
  clicks.clear();
  list.setCurSel(2);
  EXPECT_THAT(selected(), ElementsAre(2));
  EXPECT_EQ(list.Text(), "boreas");
  list.setCurSel(-1);
  EXPECT_THAT(selected(), IsEmpty());
  EXPECT_EQ(list.ListIndex, -1);
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ListBoxTest, ScrollsItsView) {
  RecordingBoxView view;
  list.attach(view);
  list.setTopIndex(2);
  list.setTopIndex(-1);
  EXPECT_THAT(view.told, LinesAre({"scroll 2"}));
  EXPECT_EQ(list.TopIndex(), 2);
  EXPECT_EQ(list.textWidth("ATLAS"), 35);
}

TEST_F(ListBoxTest, MeasuresNothingWithoutAView) {
  EXPECT_EQ(list.textWidth("ATLAS"), 0);
}

TEST_F(ListBoxTest, TellsItsViewOfEntriesAndSelection) {
  RecordingBoxView view;
  list.attach(view);
  list.AddItem("DELOS");
  list.RemoveItem(0);
  list.ListIndex = 0;
  list.Clear();
  EXPECT_THAT(view.told, LinesAre({"items", "items", "items", "items"}));
}

TEST_F(ListBoxTest, ComesBackWithTheEntriesOfItsDesign) {
  list.keepDesign();
  list.Clear();
  list.AddItem("at run time");
  list.restoreDesign();
  EXPECT_THAT(entriesOf(list), LinesAre({"ATLAS", "BORA", "boreas", "CALYPSO"}));
  EXPECT_THAT(clicks, IsEmpty());
}

TEST(SortedItems, GoToTheirPlaceInAnyCase) {
  ComboBox combo;
  combo.Sorted = true;
  for (const auto* name : {"corp", "ACME", "---All---", "Beta", "ACME"}) combo.AddItem(name);
  EXPECT_THAT(entriesOf(combo), LinesAre({"---All---", "ACME", "ACME", "Beta", "corp"}));
}

TEST(SortedItems, GoWhereTheCallerSaysWhenHeSays) {
  ListBox list;
  list.Sorted = true;
  list.AddItem("b");
  list.AddItem("z", 0);
  EXPECT_THAT(entriesOf(list), LinesAre({"z", "b"}));
}

class ComboBoxTest : public testing::Test {
 protected:
  ComboBoxTest() {
    for (const auto* name : {"All", "Berlin", "Paris", "Berlin"}) combo.AddItem(name);
    combo.Click = [this] { clicks.push_back(combo.Text); };
    combo.Change = [this] { changes.push_back(combo.Text); };
  }
  ComboBox combo;
  std::vector<std::string> clicks, changes;
};

TEST_F(ComboBoxTest, RaisesClickWhenCodeSetsItsTextOrIndex) {
  combo.Text = "Berlin";
  EXPECT_EQ(combo.ListIndex, 1) << "the first of two entries alike";
  combo.ListIndex = 0;
  EXPECT_EQ(combo.Text, "All");
  EXPECT_THAT(clicks, LinesAre({"Berlin", "All"}));
  EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ComboBoxTest, RaisesNothingWhenItIsSetToWhatItIs) {
  combo.Text = "All";
  clicks.clear();
  combo.Text = "All";
  combo.ListIndex = 0;
  combo.userSelect(0);
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ComboBoxTest, TakesTheEntrysOwnSpelling) {
  combo.Text = "PARIS";
  EXPECT_EQ(combo.Text, "Paris");
  combo.Text = "paris";
  EXPECT_EQ(combo.Text, "Paris");
  EXPECT_THAT(clicks, LinesAre({"Paris"}));
}

TEST_F(ComboBoxTest, RefusesATextThatIsNoEntry) {
  combo.Text = "All";
  EXPECT_EQ(errorOf([&] { combo.Text = "Rome"; }), 383);
  EXPECT_EQ(combo.Text, "All");
  EXPECT_EQ(combo.ListIndex, 0);
}

TEST_F(ComboBoxTest, IsEmptyAfterClear) {
  combo.ListIndex = 1;
  clicks.clear();
  combo.Clear();
  EXPECT_EQ(combo.Text, "");
  EXPECT_EQ(combo.ListIndex, -1);
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ComboBoxTest, RaisesClickWhenTheUserChooses) {
  combo.userSelect(3);
  combo.userSelect(9);
  EXPECT_EQ(combo.ListIndex, 3);
  EXPECT_THAT(clicks, LinesAre({"Berlin"}));
}

TEST_F(ComboBoxTest, IsOutOfTheUsersReachWhileDisabled) {
  combo.Enabled = false;
  combo.userSelect(1);
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ComboBoxTest, OfTheFreeStyleTakesAnyTextAndRaisesChange) {
  combo.Style = ComboStyle::DropDownCombo;
  combo.Text = "Rome";
  EXPECT_EQ(combo.ListIndex, -1);
  combo.userEdit("Paris");
  EXPECT_EQ(combo.ListIndex, 2);
  EXPECT_THAT(changes, LinesAre({"Rome", "Paris"}));
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ComboBoxTest, OfTheListStyleCannotBeEdited) {
  combo.userEdit("All");
  EXPECT_EQ(combo.Text, "");
}

TEST_F(ComboBoxTest, ComesBackWithItsDesignAndRaisesNothing) {
  combo.keepDesign();
  combo.AddItem("at run time");
  combo.Text = "at run time";
  clicks.clear();
  combo.restoreDesign();
  EXPECT_EQ(combo.ListCount(), 4);
  EXPECT_EQ(combo.Text, "");
  EXPECT_EQ(combo.ListIndex, -1);
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ComboBoxTest, TellsItsViewOfAnotherText) {
  RecordingBoxView view;
  combo.attach(view);
  combo.ListIndex = 1;
  EXPECT_THAT(view.told, LinesAre({"sync", "items"}));
}

}  // namespace
}  // namespace varnhold::ui
