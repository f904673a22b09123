#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "base/text.h"
#include "tests/fakes/lines_are.h"
#include "ui/controls/list_view.h"

namespace varnhold::ui {
namespace {

std::vector<std::string> textsOf(const ListView& list) {
  std::vector<std::string> texts;
  for (const auto& row : list.ListItems) texts.push_back(row.Text);
  return texts;
}

void add(ListView& list, const std::string& name, const std::string& type) {
  list.ListItems.Add(name).SubItems(1) = type;
}

class SortingTest : public testing::Test {
 protected:
  SortingTest() {
    add(list, "delos", "Windows XP");
    add(list, "ATLAS", "windows 98");
    add(list, "Calypso", "Windows XP");
    add(list, "bora", "SysLog System");
  }
  ListView list;
};

TEST_F(SortingTest, SortsByTheFirstColumnInAnyCaseWhenItIsTurnedOn) {
  list.Sorted = true;
  EXPECT_THAT(textsOf(list), LinesAre({"ATLAS", "bora", "Calypso", "delos"}));
}

TEST_F(SortingTest, LeavesRowsOfEqualTextInTheirOrderBothWays) {
  list.SortKey = 1;
  list.Sorted = true;
  EXPECT_THAT(textsOf(list), LinesAre({"bora", "ATLAS", "delos", "Calypso"}));
  list.SortOrder = SortOrder::Descending;
  EXPECT_THAT(textsOf(list), LinesAre({"delos", "Calypso", "ATLAS", "bora"}));
}

TEST_F(SortingTest, SortsAnewWhenKeyOrOrderChangesWhileItIsOn) {
  list.Sorted = true;
  list.SortOrder = SortOrder::Descending;
  EXPECT_THAT(textsOf(list), LinesAre({"delos", "Calypso", "bora", "ATLAS"}));
}

TEST_F(SortingTest, LeavesTheOrderAloneWhileItIsOff) {
  list.SortKey = 1;
  list.SortOrder = SortOrder::Descending;
  EXPECT_THAT(textsOf(list), LinesAre({"delos", "ATLAS", "Calypso", "bora"}));
}

TEST_F(SortingTest, KeepsTheOrderWhenItIsTurnedOff) {
  list.Sorted = true;
  list.Sorted = false;
  list.ListItems.Add("AAA");
  EXPECT_THAT(textsOf(list), LinesAre({"ATLAS", "bora", "Calypso", "delos", "AAA"}));
}

TEST_F(SortingTest, PutsANewRowInItsPlaceBehindItsEquals) {
  list.Sorted = true;
  auto& upper = list.ListItems.Add("BORA");
  EXPECT_EQ(upper.Index(), 3);
  list.ListItems.Add("zeus");
  EXPECT_THAT(textsOf(list), LinesAre({"ATLAS", "bora", "BORA", "Calypso", "delos", "zeus"}));
  list.SortOrder = SortOrder::Descending;
  list.ListItems.Add("Bora");
  EXPECT_THAT(textsOf(list), LinesAre({"zeus", "delos", "Calypso", "bora", "BORA", "Bora", "ATLAS"}));
}

TEST_F(SortingTest, LeavesARowInItsPlaceWhenItsTextChanges) {
  list.Sorted = true;
  list.ListItems(1).Text = "zzz";
  EXPECT_THAT(textsOf(list), LinesAre({"zzz", "bora", "Calypso", "delos"}));
}

TEST_F(SortingTest, SortsAgainWhenItIsTurnedOnOnceMore) {
  list.Sorted = true;
  list.ListItems(1).Text = "zzz";
  list.Sorted = true;
  EXPECT_THAT(textsOf(list), LinesAre({"bora", "Calypso", "delos", "zzz"}));
}

TEST_F(SortingTest, RowsKeepTheirIdentitySelectionAndCells) {
  auto& delos = list.ListItems(1);
  delos.Selected = true;
  EXPECT_EQ(delos.Index(), 1);
  list.Sorted = true;
  EXPECT_EQ(delos.Index(), 4);
  EXPECT_EQ(&list.ListItems(4), &delos);
  EXPECT_TRUE(delos.Selected);
  EXPECT_EQ(delos.SubItems(1), "Windows XP");
  EXPECT_EQ(list.SelectedItem().get(), &delos);
}

TEST_F(SortingTest, RemovesByThePlaceAfterSorting) {
  list.Sorted = true;
  list.ListItems.Remove(1);
  EXPECT_THAT(textsOf(list), LinesAre({"bora", "Calypso", "delos"}));
}

TEST_F(SortingTest, SortsAColumnThatSomeRowsHaveNothingIn) {
  list.ListItems(3).SubItems(4) = "14505";
  list.SortKey = 4;
  list.SortOrder = SortOrder::Descending;
  list.Sorted = true;
  EXPECT_THAT(textsOf(list), LinesAre({"Calypso", "delos", "ATLAS", "bora"}));
}

TEST(SortingScale, AHundredThousandRowsComeOutAsAStableSortByUpperCaseGives) {
  std::mt19937 random(20);
  std::vector<std::string> names;
  ListView list;
  for (int i = 0; i < 100'000; ++i) {
    names.push_back((random() % 2 == 0 ? "pc" : "PC") + std::to_string(random() % 60'000));
    list.ListItems.Add(names.back());
  }
  list.Sorted = true;
  std::stable_sort(names.begin(), names.end(),
                   [](const auto& a, const auto& b) { return toUpper(a) < toUpper(b); });
  EXPECT_EQ(textsOf(list), names);
}

}  // namespace
}  // namespace varnhold::ui
