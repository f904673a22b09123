#include "ui/controls/list_view.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

#include <functional>

#include "tests/ui/controls/recording_form.h"

namespace varnhold::ui {
namespace {

using testing::IsEmpty;

std::vector<std::string> textsOf(const ListView& list) {
  std::vector<std::string> texts;
  for (const auto& row : list.ListItems) texts.push_back(row.Text);
  return texts;
}

std::vector<std::string> selectedIn(const ListView& list) {
  std::vector<std::string> texts;
  for (const auto& row : list.ListItems) {
    if (row.Selected) texts.push_back(row.Text);
  }
  return texts;
}

/// A view that writes down what it is told.
class RecordingListView : public ListControlView {
 public:
  std::vector<std::string> told;
  void sync() override { told.push_back("sync"); }
  void rowsChanged() override { told.push_back("rows"); }
  void rowChanged(const ListItem& row) override { told.push_back("row " + row.Text); }
  void columnsChanged() override { told.push_back("columns"); }
  void ensureVisible(const ListItem& row) override { told.push_back("show " + row.Text); }
};

class ListViewTest : public testing::Test {
 protected:
  ListViewTest() {
    for (const auto* head : {"Computer", "Type", "Status"}) list.ColumnHeaders.Add(head);
    for (const auto* name : {"ATLAS", "BORA", "CALYPSO", "DELOS"}) list.ListItems.Add(name);
    list.ItemClick = [this](ListItem& row) { clicks.push_back(row.Text); };
  }
  ListView list;
  std::vector<std::string> clicks;
};

TEST_F(ListViewTest, CountsRowsFromOne) {
  EXPECT_EQ(list.ListItems.Count(), 4);
  EXPECT_EQ(list.ListItems(1).Text, "ATLAS");
  EXPECT_EQ(list.ListItems(4).Index(), 4);
  EXPECT_EQ(errorOf([&] { (void)list.ListItems(0); }), 35600);
  EXPECT_EQ(errorOf([&] { (void)list.ListItems(5); }), 35600);
  EXPECT_EQ(errorOf([&] { list.ListItems.Remove(5); }), 35600);
}

TEST_F(ListViewTest, KeepsTheCellsOfARow) {
  auto& row = list.ListItems(2);
  EXPECT_EQ(row.SubItems(2), "");
  row.SubItems(2) = "Unmanaged";
  row.Tag = "10.1.1.11";
  row.SmallIcon = 1;
  const std::string status = row.SubItems(2);
  EXPECT_EQ(status, "Unmanaged");
  EXPECT_EQ(row.SubItems(1), "");
  EXPECT_EQ(row.SubItems(9), "");
  EXPECT_EQ(row.Tag, "10.1.1.11");
  EXPECT_EQ(row.SmallIcon, 1);
  EXPECT_EQ(errorOf([&] { row.SubItems(0) = "x"; }), 380);
}

TEST_F(ListViewTest, CopiesACellToAnother) {
  list.ListItems(1).SubItems(1) = "Windows XP";
  list.ListItems(2).SubItems(2) = list.ListItems(1).SubItems(1);
  EXPECT_EQ(list.ListItems(2).SubItems(2), "Windows XP");
}

TEST_F(ListViewTest, KeepsAPictureAndATagWithACell) {
  auto& row = list.ListItems(1);
  row.ListSubItems(2).Text = "No";
  row.ListSubItems(2).Tag = "2";
  row.ListSubItems(2).ReportIcon = 2;
  EXPECT_EQ(row.SubItems(2), "No");
  EXPECT_EQ(row.ListSubItems(2).Tag, "2");
  EXPECT_EQ(row.ReportIcon(2), 2);
  EXPECT_EQ(row.ReportIcon(1), 0);
  EXPECT_EQ(row.ListSubItems(1).Tag, "");
}

TEST_F(ListViewTest, RenumbersItsRowsWhenOneGoes) {
  auto& last = list.ListItems(4);
  EXPECT_EQ(last.Index(), 4);
  list.ListItems.Remove(2);
  EXPECT_EQ(last.Index(), 3);
  EXPECT_EQ(list.ListItems(1).Index(), 1);
  EXPECT_THAT(textsOf(list), LinesAre({"ATLAS", "CALYPSO", "DELOS"}));
}

TEST_F(ListViewTest, HasNoSelectedRowUntilOneIsSelected) {
  EXPECT_FALSE(list.SelectedItem());
  EXPECT_THAT(selectedIn(list), IsEmpty());
}

TEST_F(ListViewTest, RaisesErrorWhenTheMissingSelectedRowIsUsed) {
  EXPECT_EQ(errorOf([&] { (void)list.SelectedItem()->Index(); }), 91);
}

TEST_F(ListViewTest, SelectsOneRowAtATime) {
  list.ListItems(1).Selected = true;
  list.ListItems(3).Selected = true;
  EXPECT_THAT(selectedIn(list), LinesAre({"CALYPSO"}));
  EXPECT_EQ(list.SelectedItem()->Text, "CALYPSO");
  EXPECT_THAT(clicks, IsEmpty()) << "code raises no ItemClick";
}

TEST_F(ListViewTest, OfSeveralLeavesTheOtherSelectedRowsAsTheyAre) {
  list.MultiSelect = true;
  list.ListItems(1).Selected = true;
  list.SetSelectedItem(&list.ListItems(3));
  EXPECT_THAT(selectedIn(list), LinesAre({"ATLAS", "CALYPSO"}));
  EXPECT_EQ(list.SelectedItem()->Text, "CALYPSO");
}

TEST_F(ListViewTest, KeepsTheFocusRectangleWhenItsRowIsNoLongerSelected) {
  list.ListItems(2).Selected = true;
  list.SelectedItem()->Selected = false;
  EXPECT_THAT(selectedIn(list), IsEmpty());
  EXPECT_EQ(list.SelectedItem()->Text, "BORA");
  list.SetSelectedItem(nullptr);
  EXPECT_FALSE(list.SelectedItem());
}

TEST_F(ListViewTest, PassesTheFocusRectangleToTheRowThatTakesThePlaceOfARemovedOne) {
  list.ListItems(2).Selected = true;
  list.ListItems.Remove(2);
  EXPECT_EQ(list.SelectedItem()->Text, "CALYPSO");
  EXPECT_THAT(selectedIn(list), IsEmpty());
  list.SetSelectedItem(&list.ListItems(3));
  list.ListItems.Remove(3);
  EXPECT_EQ(list.SelectedItem()->Text, "CALYPSO");
  list.ListItems.Remove(2);
  list.ListItems.Remove(1);
  EXPECT_FALSE(list.SelectedItem());
}

TEST_F(ListViewTest, ForgetsTheSelectedRowWhenItIsCleared) {
  list.ListItems(2).Selected = true;
  list.ListItems.Clear();
  EXPECT_EQ(list.ListItems.Count(), 0);
  EXPECT_FALSE(list.SelectedItem());
}

TEST_F(ListViewTest, FindsARowByItsWholeTextInAnyCase) {
  EXPECT_EQ(list.FindItem("bora"), &list.ListItems(2));
  EXPECT_EQ(list.FindItem("bor"), nullptr);
}

TEST_F(ListViewTest, TellsItsViewWhatHasChanged) {
  RecordingListView view;
  list.attach(view);
  list.ListItems.Add("EOS");
  list.ListItems(5).SubItems(1) = "Windows XP";
  list.ListItems(5).SubItems(1) = "Windows XP";
  list.ListItems(5).Tag = "nobody sees this";
  list.ListItems(5).EnsureVisible();
  list.ListItems(5).ListSubItems(2).ReportIcon = 2;
  list.ColumnHeaders(2).Width = 3;
  EXPECT_EQ(list.ColumnHeaders(2).Index(), 2);
  list.ListItems.Remove(5);
  list.ListItems.Clear();
  EXPECT_THAT(view.told, LinesAre({"rows", "row EOS", "show EOS", "row EOS", "columns", "rows", "rows"}));
}

TEST_F(ListViewTest, GivesItsRowsAnotherRevisionForAllThatIsSeenButTheSelection) {
  const auto isAnotherBy = [&](const std::function<void()>& act) {
    const auto before = list.ListItems.revision();
    act();
    return list.ListItems.revision() != before;
  };
  EXPECT_TRUE(isAnotherBy([&] { list.ListItems.Add("EOS"); }));
  EXPECT_TRUE(isAnotherBy([&] { list.ListItems(5).SubItems(1) = "Windows XP"; }));
  EXPECT_TRUE(isAnotherBy([&] { list.ListItems(5).ListSubItems(1).ReportIcon = 1; }));
  EXPECT_TRUE(isAnotherBy([&] { list.ListItems.Remove(5); }));
  EXPECT_TRUE(isAnotherBy([&] { list.Sorted = true; }));
  EXPECT_FALSE(isAnotherBy([&] { list.ListItems(1).Selected = true; }));
  EXPECT_FALSE(isAnotherBy([&] { list.ListItems(1).Tag = "nobody sees this"; }));
  EXPECT_TRUE(isAnotherBy([&] { list.ListItems.Clear(); }));
}

TEST_F(ListViewTest, TellsItsViewOfBothRowsWhenTheSelectionMoves) {
  list.ListItems(1).Selected = true;
  RecordingListView view;
  list.attach(view);
  list.ListItems(2).Selected = true;
  EXPECT_THAT(view.told, LinesAre({"row ATLAS", "row BORA"}));
}

TEST_F(ListViewTest, TellsItsViewOnceOfABulkUpdate) {
  RecordingListView view;
  list.attach(view);
  {
    ListView::BulkUpdate outer(list);
    {
      ListView::BulkUpdate inner(list);
      list.ListItems.Clear();
      for (int i = 0; i < 100; ++i) list.ListItems.Add("PC").SubItems(1) = "Windows XP";
    }
    list.ListItems(1).Selected = true;
    EXPECT_THAT(view.told, IsEmpty());
  }
  EXPECT_THAT(view.told, LinesAre({"rows"}));
}

TEST_F(ListViewTest, TellsItsViewNothingOfABulkUpdateThatChangedNothing) {
  RecordingListView view;
  list.attach(view);
  { ListView::BulkUpdate update(list); }
  EXPECT_THAT(view.told, IsEmpty());
}

TEST_F(ListViewTest, SelectsTheRowThatTheUserClicks) {
  list.userClick(2);
  list.userClick(3);
  EXPECT_THAT(selectedIn(list), LinesAre({"CALYPSO"}));
  EXPECT_EQ(list.SelectedItem()->Text, "CALYPSO");
  EXPECT_THAT(clicks, LinesAre({"BORA", "CALYPSO"}));
}

TEST_F(ListViewTest, OfSeveralTakesAClickWithTheKeysThatExtendIt) {
  list.MultiSelect = true;
  list.userClick(2);
  list.userClick(4, kShift);
  EXPECT_THAT(selectedIn(list), LinesAre({"BORA", "CALYPSO", "DELOS"}));
  list.userClick(3, kControl);
  EXPECT_THAT(selectedIn(list), LinesAre({"BORA", "DELOS"}));
  EXPECT_EQ(list.SelectedItem()->Text, "CALYPSO") << "the focus rectangle is where the user clicked";
  list.userClick(1);
  EXPECT_THAT(selectedIn(list), LinesAre({"ATLAS"}));
}

TEST_F(ListViewTest, OfOneTakesNoNoticeOfTheKeysThatExtend) {
  list.userClick(2);
  list.userClick(4, kShift);
  list.userSelectAll();
  EXPECT_THAT(selectedIn(list), LinesAre({"DELOS"}));
}

TEST_F(ListViewTest, ClearsTheSelectionWhenTheUserClicksBesideTheRows) {
  list.userClick(2);
  clicks.clear();
  list.userClick(0);
  EXPECT_THAT(selectedIn(list), IsEmpty());
  EXPECT_EQ(list.SelectedItem()->Text, "BORA");
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ListViewTest, SelectsAllRowsAtOnce) {
  list.MultiSelect = true;
  RecordingListView view;
  list.attach(view);
  list.userSelectAll();
  EXPECT_EQ(selectedIn(list).size(), 4u);
  EXPECT_THAT(view.told, LinesAre({"rows"}));
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ListViewTest, TakesAWholeSelectionFromTheUser) {
  list.MultiSelect = true;
  list.userSelection({1, 3, 7}, 3);
  EXPECT_THAT(selectedIn(list), LinesAre({"ATLAS", "CALYPSO"}));
  EXPECT_THAT(clicks, LinesAre({"CALYPSO"}));
  list.userSelection({}, 0);
  EXPECT_THAT(selectedIn(list), IsEmpty());
  EXPECT_FALSE(list.SelectedItem());
}

TEST_F(ListViewTest, TellsADoubleClickBehindTheClick) {
  list.DblClick = [this] { clicks.push_back("double"); };
  list.userDblClick(2);
  list.userDblClick(0);
  EXPECT_THAT(clicks, LinesAre({"BORA", "double", "double"}));
}

TEST_F(ListViewTest, TellsKeysColumnsAndMouseButtons) {
  std::vector<std::string> seen;
  list.KeyPress = [&](int& key) { seen.push_back("key " + std::to_string(key)); };
  list.ColumnClick = [&](ColumnHeader& column) { seen.push_back("column " + column.Text); };
  list.MouseDown = [&](MouseButton, const ListHit& hit) {
    seen.push_back(hit.item ? "down" : "down beside");
  };
  list.MouseUp = [&](MouseButton button, const ListHit& hit) {
    seen.push_back((button == MouseButton::Right ? "right " : "left ") + hit.item->Text + " " +
                   std::to_string(hit.subItem) + " " + std::to_string(hit.flags));
  };
  list.userKeyPress(kKeyReturn);
  list.userColumnClick(2);
  list.userColumnClick(4);
  list.userMouseDown(MouseButton::Right, 0);
  list.userMouseUp(MouseButton::Left, 3, 2, 2);
  EXPECT_THAT(seen, LinesAre({"key 13", "column Type", "down beside", "left CALYPSO 2 2"}));
}

TEST_F(ListViewTest, LeavesTheSelectionToTheHandlerOfTheRightButton) {
  list.userClick(1);
  list.userMouseDown(MouseButton::Right, 3);
  EXPECT_THAT(selectedIn(list), LinesAre({"ATLAS"}));
}

TEST_F(ListViewTest, IsOutOfTheUsersReachWhileDisabled) {
  list.Enabled = false;
  list.userClick(2);
  list.userDblClick(2);
  list.userSelection({1}, 1);
  EXPECT_THAT(clicks, IsEmpty());
  EXPECT_THAT(selectedIn(list), IsEmpty());
}

TEST_F(ListViewTest, SurvivesAHandlerThatClearsIt) {
  list.ItemClick = [this](ListItem&) { list.ListItems.Clear(); };
  list.userDblClick(2);
  EXPECT_EQ(list.ListItems.Count(), 0);
}

TEST_F(ListViewTest, ComesBackWithTheColumnsOfItsDesignAndNoRows) {
  list.ColumnHeaders(1).Width = 2;
  list.keepDesign();
  list.ColumnHeaders.Remove(3);
  list.ColumnHeaders(1).Width = 5;
  list.ColumnHeaders(1).Text = "System";
  list.ListItems(1).Selected = true;
  list.Sorted = true;
  list.restoreDesign();
  ASSERT_EQ(list.ColumnHeaders.Count(), 3);
  EXPECT_EQ(list.ColumnHeaders(1).Text, "Computer");
  EXPECT_EQ(list.ColumnHeaders(1).Width, 2);
  EXPECT_EQ(list.ColumnHeaders(3).Text, "Status");
  EXPECT_EQ(list.ListItems.Count(), 0);
  EXPECT_FALSE(list.Sorted);
}

TEST_F(ListViewTest, RefusesAColumnThatItDoesNotHave) {
  EXPECT_EQ(errorOf([&] { (void)list.ColumnHeaders(4); }), 35600);
  EXPECT_EQ(errorOf([&] { list.ColumnHeaders.Remove(0); }), 35600);
}

TEST(Scale, SelectsFindsAndClearsAmongAHundredThousandRows) {
  ListView list;
  list.MultiSelect = true;
  {
    ListView::BulkUpdate update(list);
    for (int i = 0; i < 100'000; ++i) list.ListItems.Add("PC" + std::to_string(i));
  }
  list.userSelectAll();
  EXPECT_TRUE(list.ListItems(100'000).Selected);
  EXPECT_EQ(list.FindItem("pc99999")->Index(), 100'000);
  list.userClick(50'000);
  EXPECT_FALSE(list.ListItems(100'000).Selected);
  EXPECT_EQ(list.SelectedItem()->Index(), 50'000);
}

}  // namespace
}  // namespace varnhold::ui
