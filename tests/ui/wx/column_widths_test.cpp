#include "ui/wx/column_widths.h"

#include <gmock/gmock.h>

namespace varnhold::ui::wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ColumnWidths, ShareTheListByTheirParts) {
  EXPECT_THAT(columnWidths({{1, 50}, {3, 50}}, 400, 20), ElementsAre(100, 300));
}

TEST(ColumnWidths, LeaveAColumnWithoutAPartItsOwnWidth) {
  EXPECT_THAT(columnWidths({{1, 50}, {1, 50}, {0, 60}}, 400, 20), ElementsAre(170, 170, 60));
}

TEST(ColumnWidths, FillTheListWhereTheyDoNotDivideEvenly) {
  EXPECT_THAT(columnWidths({{1, 0}, {1, 0}, {1, 0}}, 400, 20), ElementsAre(133, 133, 134));
}

TEST(ColumnWidths, AreNeverLessThanTheLeast) {
  EXPECT_THAT(columnWidths({{1, 0}, {99, 0}}, 100, 20), ElementsAre(20, 80));
  EXPECT_THAT(columnWidths({{1, 0}, {1, 0}, {0, 90}}, 60, 20), ElementsAre(20, 20, 90));
}

TEST(ColumnWidths, OfNoColumnsAreNone) {
  EXPECT_THAT(columnWidths({}, 400, 20), IsEmpty());
}

}  // namespace
}  // namespace varnhold::ui::wx
