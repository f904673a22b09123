#pragma once

#include <vector>

namespace varnhold::ui::wx {

/// What a column of a list would like to have.
struct ColumnWish {
  double part = 1;   ///< its part next to the parts of the others; 0 wants `own` alone
  int ownWidth = 0;  ///< what its head needs, in pixels
};

/// The widths of a list's columns in pixels. Those with a part share what the others leave of `available`,
/// but get no less than `least`; together they fill the list, unless even that is too much for it.
[[nodiscard]] std::vector<int> columnWidths(const std::vector<ColumnWish>& wishes, int available, int least);

}  // namespace varnhold::ui::wx
