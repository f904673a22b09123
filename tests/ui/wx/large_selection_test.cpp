// The selection of a list of very many rows, which the widget may take some turns of the event loop to show:
// the control's is whole at once, and what the user does meanwhile is done to the whole.
#include <wx/uiaction.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/list_reader.h"
#include "tests/ui/wx/stage.h"
#include "ui/controls/list_view.h"
#include "ui/wx/bind_list_view.h"

namespace varnhold::ui::wx {
namespace {

using testing::ElementsAre;

constexpr int kRows = 8000;  // many more than a turn takes

class LargeSelection : public WxTest {
 protected:
  void SetUp() override {
    form.Width = 9000;
    form.Height = 6000;
    list.MultiSelect = true;
    list.ColumnHeaders.Add("Computer");
    list.ItemClick = [this](ListItem& row) { journal.push_back("click " + row.Text); };
    form.Show();
    {
      const ListView::BulkUpdate update(list);
      for (int i = 1; i <= kRows; ++i) list.ListItems.Add("PC" + std::to_string(i));
    }
    settle();
    list.userClick(1);
    settle();
    journal.clear();
  }
  void TearDown() override { form.Unload(); }

  wxWindow& widget() { return form.widget<wxWindow>(); }
  [[nodiscard]] int selectedRows() const {
    int count = 0;
    for (const auto& row : list.ListItems) count += row.Selected ? 1 : 0;
    return count;
  }
  /// The widget shows that `count` rows are selected.
  bool shows(int count) {
    return stage.waitFor([&] { return static_cast<int>(rowsSelected(widget()).size()) == count; });
  }
  void click(int row, int holding = 0) {
    const auto place = placeOfCell(widget(), row, 1);
    if (holding != 0) {
      clickHolding(widget(), holding, place);
    } else {
      user.MouseMove(place);
      user.MouseClick();
    }
    settle();
  }

  OneControlForm<ListView> form{screen, bindListView};
  ListView& list = form.control;
  wxUIActionSimulator user;
};

TEST_F(LargeSelection, IsShownWhole) {
  list.userSelectAll();
  EXPECT_EQ(selectedRows(), kRows);
  EXPECT_TRUE(shows(kRows));
  list.userClick(2);
  EXPECT_TRUE(shows(1));
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(2));
  EXPECT_THAT(journal, LinesAre({"click PC2"}));
}

TEST_F(LargeSelection, LosesTheRowThatIsClickedWithCtrlAtOnce) {
  list.userSelectAll();
  settle();
  click(3, WXK_CONTROL);
  EXPECT_EQ(selectedRows(), kRows - 1);
  EXPECT_FALSE(list.ListItems(3).Selected);
  EXPECT_TRUE(shows(kRows - 1));
  EXPECT_EQ(selectedRows(), kRows - 1);
}

TEST_F(LargeSelection, GivesWayToARowThatIsClickedAtOnce) {
  list.userSelectAll();
  settle();
  click(3);
  EXPECT_EQ(selectedRows(), 1);
  EXPECT_TRUE(shows(1));
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(3));
}

TEST_F(LargeSelection, GivesWayToAFewRowsThatAreClickedAtOnce) {
  list.userSelectAll();
  settle();
  click(2);
  list.userSelectAll();
  settle();
  click(4, WXK_SHIFT);
  EXPECT_EQ(selectedRows(), 3);
  EXPECT_TRUE(shows(3));
  EXPECT_THAT(rowsSelected(widget()), ElementsAre(2, 3, 4));
}

TEST_F(LargeSelection, IsTheFormsWhenTheFormChangesItAtOnce) {
  list.userSelectAll();
  settle();
  list.ListItems(kRows).Selected = false;
  list.ListItems(1).Selected = false;
  EXPECT_TRUE(shows(kRows - 2));
  EXPECT_EQ(selectedRows(), kRows - 2);
}

TEST_F(LargeSelection, StaysOnItsRowsWhenTheyAreSorted) {
  list.userSelectAll();
  settle();
  list.ListItems.Remove(2);
  list.SortOrder = SortOrder::Descending;
  list.Sorted = true;
  EXPECT_TRUE(shows(kRows - 1));
  EXPECT_EQ(selectedRows(), kRows - 1);
}

}  // namespace
}  // namespace varnhold::ui::wx
