// The binder of list views on a real widget, in both directions.
#include <gmock/gmock.h>
#include <wx/uiaction.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/list_reader.h"
#include "tests/ui/wx/stage.h"
#include "ui/wx/bind_list_view.h"

namespace varnhold::ui::wx {
namespace {

using fakes::linesOf;
using testing::ElementsAre;
using testing::IsEmpty;

const ImageList& pictures() {
  static const ImageList list({"computer", "keep-snaps-no"});
  return list;
}

class ListViewTest : public WxTest {
 protected:
  explicit ListViewTest(bool severalRows = true) {
    form.Width = 9000;
    form.Height = 6000;
    list.MultiSelect = severalRows;
    list.SmallIcons = &pictures();
    for (const auto* head : {"Computer", "Type", "Port"}) list.ColumnHeaders.Add(head);
    list.ItemClick = [this](ListItem& row) { journal.push_back("click " + row.Text); };
    list.DblClick = [this] { journal.push_back("double click"); };
    list.KeyPress = [this](int& key) { journal.push_back("key " + std::to_string(key)); };
    list.ColumnClick = [this](ColumnHeader& head) { journal.push_back("column " + head.Text); };
  }

  void SetUp() override {
    form.Show();
    for (const auto* name : {"CALYPSO", "ATLAS", "DELOS", "BORA"}) {
      auto& row = list.ListItems.Add(name);
      row.SmallIcon = 1;
      row.SubItems(1) = std::string("type of ") + name;
    }
    settle();
    ASSERT_EQ(rowsShown(widget()), 4);
  }
  void TearDown() override {
    form.Unload();
    settle();
  }

  wxWindow& widget() { return form.widget<wxWindow>(); }
  void click(const wxPoint& at, int button = wxMOUSE_BTN_LEFT) {
    user.MouseMove(at);
    settle();
    user.MouseClick(button);
    settle();
  }
  void clickRow(int row) { click(placeOfCell(widget(), row, 1)); }
  void press(int key, int modifiers = wxMOD_NONE) {
    user.Char(key, modifiers);
    settle();
  }
  [[nodiscard]] std::vector<std::string> selectedRows() const {
    std::vector<std::string> texts;
    for (const auto& row : list.ListItems) {
      if (row.Selected) texts.push_back(row.Text);
    }
    return texts;
  }
  void hearMouse() {
    const auto told = [this](const std::string& what, MouseButton button, const ListHit& hit) {
      journal.push_back(what + (button == MouseButton::Right ? " right " : " left ") +
                        (hit.item == nullptr ? "nothing" : hit.item->Text.get()) + " " +
                        std::to_string(hit.subItem) + " " + std::to_string(hit.flags));
    };
    list.MouseDown = [told](MouseButton button, const ListHit& hit) { told("down", button, hit); };
    list.MouseUp = [told](MouseButton button, const ListHit& hit) { told("up", button, hit); };
  }

  OneControlForm<ListView> form{screen, bindListView};
  ListView& list = form.control;
  wxUIActionSimulator user;
};

class SingleListViewTest : public ListViewTest {
 protected:
  SingleListViewTest() : ListViewTest(false) {}
};

// From the control to the widget.

TEST_F(ListViewTest, ShowsColumnsAndCells) {
  EXPECT_THAT(headsShown(widget()), LinesAre({"Computer", "Type", "Port"}));
  EXPECT_THAT(columnShown(widget(), 1), LinesAre({"CALYPSO", "ATLAS", "DELOS", "BORA"}));
  EXPECT_EQ(cellShown(widget(), 2, 2), "type of ATLAS");
  EXPECT_EQ(cellShown(widget(), 2, 3), "");
}

TEST_F(ListViewTest, ShowsRowsThatComeGoAndChange) {
  list.ListItems.Add("EOS");
  list.ListItems.Remove(1);
  list.ListItems(1).SubItems(2) = "135";
  settle();
  EXPECT_THAT(columnShown(widget(), 1), LinesAre({"ATLAS", "DELOS", "BORA", "EOS"}));
  EXPECT_EQ(cellShown(widget(), 1, 3), "135");
  list.ListItems.Clear();
  settle();
  EXPECT_EQ(rowsShown(widget()), 0);
}

TEST_F(ListViewTest, ShowsRowsInTheirSortedOrderWithTheArrow) {
  list.SortKey = 0;
  list.Sorted = true;
  settle();
  EXPECT_THAT(columnShown(widget(), 1), LinesAre({"ATLAS", "BORA", "CALYPSO", "DELOS"}));
  EXPECT_EQ(sortArrowShown(widget()), "up 1");
  list.SortKey = 1;
  list.SortOrder = SortOrder::Descending;
  settle();
  EXPECT_THAT(columnShown(widget(), 1), LinesAre({"DELOS", "CALYPSO", "BORA", "ATLAS"}));
  EXPECT_EQ(sortArrowShown(widget()), "down 2");
  list.Sorted = false;
  list.ListItems.Add("EOS");
  settle();
  EXPECT_EQ(sortArrowShown(widget()), "");
}

TEST_F(ListViewTest, ShowsThePicturesOfRowsAndCells) {
  list.ListItems(2).ListSubItems(2).ReportIcon = 2;
  settle();
  ASSERT_TRUE(pictureShown(widget(), 2, 3));
  EXPECT_TRUE(pictureShown(widget(), 2, 1));
  EXPECT_FALSE(pictureShown(widget(), 1, 3));
}

TEST_F(ListViewTest, SelectsWhatCodeSelectsAndTellsNobody) {
  list.ListItems(1).Selected = true;
  list.SetSelectedItem(&list.ListItems(3));
  settle();
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(1, 3));
  EXPECT_EQ(rowFocused(widget()), 3);
  list.ListItems(1).Selected = false;
  settle();
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(3));
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(ListViewTest, KeepsTheSelectionOnItsRowsWhenTheyAreSorted) {
  list.SetSelectedItem(&list.ListItems(3));
  settle();
  list.Sorted = true;
  settle();
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(4));
  list.ListItems.Add("AEGIS");
  settle();
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(5));
  EXPECT_THAT(selectedRows(), LinesAre({"DELOS"}));
}

TEST_F(SingleListViewTest, SelectsOneRowAtATime) {
  list.ListItems(1).Selected = true;
  settle();
  list.ListItems(3).Selected = true;
  settle();
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(3));
}

TEST_F(SingleListViewTest, SelectsNothingByGettingTheFocus) {
  form.other.SetFocus();
  settle();
  list.SetFocus();
  settle();
  EXPECT_THAT(rowsSelected(widget()), IsEmpty());
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(ListViewTest, SharesItsWidthAmongItsColumns) {
  list.ColumnHeaders(1).Width = 3;
  list.ColumnHeaders(2).Width = 1;
  list.ColumnHeaders(3).Width = 0;
  settle();
  const auto widths = widthsShown(widget());
  EXPECT_NEAR(widths[0], 3 * widths[1], 3);
  EXPECT_LT(widths[2], 80) << "the width of its head";
}

TEST_F(ListViewTest, ScrollsToTheRowThatIsToBeSeen) {
  for (int i = 0; i < 1000; ++i) list.ListItems.Add("PC" + std::to_string(i));
  list.ListItems(1004).EnsureVisible();
  settle();
  clickRow(1004);
  EXPECT_THAT(journal, LinesAre({"click PC999"}));
}

// From the user to the control.

TEST_F(ListViewTest, TakesAClickAlsoOnTheSelectedRow) {
  clickRow(2);
  EXPECT_THAT(selectedRows(), LinesAre({"ATLAS"}));
  click(placeOfCell(widget(), 2, 2));  // elsewhere in the row, lest it be a double click
  clickRow(3);
  EXPECT_THAT(selectedRows(), LinesAre({"DELOS"}));
  EXPECT_THAT(journal, LinesAre({"click ATLAS", "click ATLAS", "click DELOS"}));
  EXPECT_EQ(list.SelectedItem()->Text, "DELOS");
}

TEST_F(ListViewTest, TakesClicksThatExtendTheSelection) {
  clickRow(1);
  clickHolding(widget(), WXK_SHIFT, placeOfCell(widget(), 3, 1));
  settle();
  EXPECT_THAT(selectedRows(), LinesAre({"CALYPSO", "ATLAS", "DELOS"}));
  clickHolding(widget(), WXK_CONTROL, placeOfCell(widget(), 2, 1));
  settle();
  EXPECT_THAT(selectedRows(), LinesAre({"CALYPSO", "DELOS"}));
}

TEST_F(ListViewTest, ClearsTheSelectionByAClickBesideTheRows) {
  clickRow(2);
  auto below = placeOfCell(widget(), 4, 1);
  below.y += 60;
  journal.clear();
  click(below);
  EXPECT_THAT(selectedRows(), IsEmpty());
  EXPECT_THAT(rowsSelected(widget()), IsEmpty());
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(ListViewTest, MovesWithTheArrowKeys) {
  clickRow(1);
  press(WXK_DOWN);
  EXPECT_THAT(selectedRows(), LinesAre({"ATLAS"}));
  EXPECT_EQ(list.SelectedItem()->Text, "ATLAS");
  press(WXK_DOWN, wxMOD_SHIFT);
  EXPECT_THAT(selectedRows(), LinesAre({"ATLAS", "DELOS"}));
}

TEST_F(ListViewTest, SelectsAllRowsByKeyWithoutAnEvent) {
  clickRow(1);
  journal.clear();
  press('A', wxMOD_CONTROL);
  EXPECT_EQ(selectedRows().size(), 4u);
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(SingleListViewTest, SelectsNoOtherRowByTheKeyForAll) {
  clickRow(2);
  press('A', wxMOD_CONTROL);
  EXPECT_THAT(selectedRows(), LinesAre({"ATLAS"}));
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(2));
}

TEST_F(ListViewTest, TellsTypedKeysAndEnter) {
  clickRow(1);
  journal.clear();
  press(WXK_RETURN);
  EXPECT_THAT(journal, LinesAre({"key 13"}));
  journal.clear();
  press(WXK_SPACE);
  EXPECT_THAT(journal, testing::Contains("key 32"));
  EXPECT_THAT(journal, testing::Not(testing::Contains("double click")));
}

TEST_F(ListViewTest, FindsTheRowWhoseNameIsTyped) {
  clickRow(1);
  journal.clear();
  press('D');
  EXPECT_THAT(selectedRows(), LinesAre({"DELOS"}));
  EXPECT_THAT(linesOf(journal, "click"), LinesAre({"click DELOS"}));
}

TEST_F(ListViewTest, TellsADoubleClick) {
  user.MouseMove(placeOfCell(widget(), 2, 1));
  settle();
  user.MouseDblClick();
  settle();
  EXPECT_EQ(journal.front(), "click ATLAS");
  EXPECT_EQ(journal.back(), "double click");
  EXPECT_THAT(linesOf(journal, "double"), testing::SizeIs(1));
}

TEST_F(ListViewTest, TellsAClickOnAHead) {
  click(placeOfHead(widget(), 2));
  EXPECT_THAT(journal, LinesAre({"column Type"}));
}

TEST_F(ListViewTest, TellsARightPressAndLeavesTheSelectionToItsHandler) {
  clickRow(1);
  hearMouse();
  journal.clear();
  click(placeOfCell(widget(), 3, 1), wxMOUSE_BTN_RIGHT);
  EXPECT_THAT(journal, LinesAre({"down right DELOS 0 4", "up right DELOS 0 4"}));
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(1));
}

TEST_F(ListViewTest, TellsARightPressBesideTheRows) {
  hearMouse();
  auto below = placeOfCell(widget(), 4, 1);
  below.y += 60;
  click(below, wxMOUSE_BTN_RIGHT);
  ASSERT_FALSE(journal.empty());
  EXPECT_EQ(journal.front(), "down right nothing 0 1");
}

TEST_F(ListViewTest, TellsWhichPartOfWhichCellWasPressed) {
  list.ListItems(2).ListSubItems(2).ReportIcon = 2;
  list.ListItems(2).SubItems(2) = "No";
  settle();
  ASSERT_TRUE(pictureShown(widget(), 2, 3));
  hearMouse();
  click(placeOfPicture(widget(), 2, 1));
  EXPECT_THAT(linesOf(journal, "up"), LinesAre({"up left ATLAS 0 2"}));
  journal.clear();
  click(placeOfCell(widget(), 2, 1));
  EXPECT_THAT(linesOf(journal, "up"), LinesAre({"up left ATLAS 0 4"}));
}

TEST_F(ListViewTest, TellsThatACellBehindTheFirstWasPressedWhereverItWasPressed) {
  list.ListItems(2).ListSubItems(2).ReportIcon = 2;
  list.ListItems(2).SubItems(2) = "No";
  settle();
  hearMouse();
  for (const auto& place : {placeOfPicture(widget(), 2, 3), placeOfCell(widget(), 2, 3)}) {
    journal.clear();
    click(place);
    EXPECT_THAT(linesOf(journal, "up"), LinesAre({"up left ATLAS 2 6"}));
  }
  journal.clear();
  click(placeOfCell(widget(), 3, 2));
  EXPECT_THAT(linesOf(journal, "up"), LinesAre({"up left DELOS 1 6"})) << "also without a picture";
}

TEST_F(ListViewTest, ShowsATextThatIsTooLongForItsCellUnderThePointer) {
  const std::string longText(100, 'W');
  list.ListItems(2).SubItems(1) = longText;
  settle();
  user.MouseMove(placeOfCell(widget(), 2, 2));
  settle();
  EXPECT_EQ(widget().GetToolTipText(), longText);
  user.MouseMove(placeOfCell(widget(), 3, 2));
  settle();
  EXPECT_EQ(widget().GetToolTipText(), "");
}

TEST_F(ListViewTest, TakesTheMenuKeyForARightPressOnTheFocusedRow) {
  clickRow(3);
  hearMouse();
  journal.clear();
  press(WXK_F10, wxMOD_SHIFT);
  EXPECT_THAT(journal, LinesAre({"down right DELOS 0 4"}));
}

TEST_F(ListViewTest, TakesNothingWhileItIsDisabled) {
  list.Enabled = false;
  settle();
  clickRow(2);
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_THAT(selectedRows(), IsEmpty());
}

TEST_F(ListViewTest, SurvivesRowsThatGoUnderAClick) {
  list.ItemClick = [this](ListItem&) { list.ListItems.Clear(); };
  clickRow(2);
  EXPECT_EQ(rowsShown(widget()), 0);
  list.ListItems.Add("EOS");
  settle();
  EXPECT_THAT(columnShown(widget(), 1), LinesAre({"EOS"}));
}

TEST_F(ListViewTest, SurvivesAFormThatClosesUnderAClick) {
  list.ItemClick = [this](ListItem&) { form.Unload(); };
  clickRow(2);
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace varnhold::ui::wx
