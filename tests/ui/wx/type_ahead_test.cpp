#include "ui/wx/type_ahead.h"

#include <gtest/gtest.h>

namespace varnhold::ui::wx {
namespace {

class TypeAheadTest : public testing::Test {
 protected:
  TypeAheadTest() {
    for (const auto* name : {"ATLAS", "Bora", "BOREAS", "Calypso"}) list.ListItems.Add(name);
  }
  /// The row that the letters find when they are typed `gapMs` after one another; each one found is chosen.
  int type(const std::string& letters, int gapMs = 100) {
    int row = 0;
    for (const char letter : letters) {
      nowMs += gapMs;
      row = typeAhead.find(list, std::string(1, letter), nowMs);
      if (row != 0) list.SetSelectedItem(&list.ListItems(row));
    }
    return row;
  }
  ListView list;
  TypeAhead typeAhead;
  std::int64_t nowMs = 5000;
};

TEST_F(TypeAheadTest, FindsARowByItsBeginningInAnyCase) {
  EXPECT_EQ(type("bo"), 2);
  EXPECT_EQ(type("re"), 3) << "it stays while the row still fits";
}

TEST_F(TypeAheadTest, GoesOnToTheNextRowBehindAPause) {
  EXPECT_EQ(type("b"), 2);
  EXPECT_EQ(type("b", 2000), 3);
  EXPECT_EQ(type("b", 2000), 2) << "and round again";
}

TEST_F(TypeAheadTest, FindsNothingWhereNoRowBeginsSo) {
  EXPECT_EQ(type("x"), 0);
  list.ListItems.Clear();
  EXPECT_EQ(type("a", 2000), 0);
}

}  // namespace
}  // namespace varnhold::ui::wx
