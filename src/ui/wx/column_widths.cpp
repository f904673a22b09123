#include "ui/wx/column_widths.h"

#include <algorithm>

namespace varnhold::ui::wx {

std::vector<int> columnWidths(const std::vector<ColumnWish>& wishes, int available, int least) {
  double parts = 0;
  int left = available;
  for (const auto& wish : wishes) {
    parts += wish.part;
    if (wish.part <= 0) left -= wish.ownWidth;
  }
  std::vector<int> widths;
  for (const auto& wish : wishes) {
    if (wish.part <= 0) {
      widths.push_back(wish.ownWidth);
      continue;
    }
    // What is left is shared anew at each column, so that nothing is lost by rounding.
    const int width = std::max(least, static_cast<int>(left * wish.part / parts));
    widths.push_back(width);
    left -= width;
    parts -= wish.part;
  }
  return widths;
}

}  // namespace varnhold::ui::wx
