// What a user does to a list view.
#include <algorithm>

#include "ui/controls/list_view.h"

namespace varnhold::ui {

ListItem* ListView::rowAt(int row) {
  return row >= 1 && row <= ListItems.Count() ? &ListItems(row) : nullptr;
}

void ListView::selectRange(int first, int last) {
  int place = 0;
  for (auto& row : ListItems) {
    ++place;
    row.Selected.settle(place >= first && place <= last);
  }
  rowsChanged();
}

void ListView::chooseByUser(ListItem& row, int modifiers) {
  const int index = row.Index();
  if (MultiSelect && (modifiers & kControl) != 0) {
    row.Selected.settle(!row.Selected);
    rowChanged(row);
  } else if (MultiSelect && (modifiers & kShift) != 0 && focused_ != nullptr) {
    const int from = focused_->Index();
    selectRange(std::min(from, index), std::max(from, index));
  } else {
    selectRange(index, index);
  }
  focused_ = &row;
}

void ListView::userClick(int row, int modifiers) {
  act([&] {
    auto* item = rowAt(row);
    if (item == nullptr) {
      selectRange(0, 0);
      return;
    }
    chooseByUser(*item, modifiers);
    ItemClick.raise(*item);
  });
}

void ListView::userDblClick(int row) {
  userClick(row);
  act([&] { DblClick.raise(); });
}

void ListView::userSelectAll() {
  act([&] {
    if (MultiSelect) selectRange(1, ListItems.Count());
  });
}

void ListView::userSelection(const std::vector<int>& rows, int focused) {
  act([&] {
    selectRange(0, 0);
    for (const int row : rows) {
      if (auto* item = rowAt(row)) item->Selected.settle(true);
    }
    focused_ = rowAt(focused);
    if (focused_ != nullptr) ItemClick.raise(*focused_);
  });
}

void ListView::userKeyPress(int key) {
  act([&] { KeyPress.raise(key); });
}

void ListView::userColumnClick(int column) {
  act([&] {
    if (column >= 1 && column <= ColumnHeaders.Count()) ColumnClick.raise(ColumnHeaders(column));
  });
}

void ListView::userMouseDown(MouseButton button, int row, int subItem, int flags) {
  act([&] { MouseDown.raise(button, ListHit{rowAt(row), subItem, flags}); });
}

void ListView::userMouseUp(MouseButton button, int row, int subItem, int flags) {
  act([&] { MouseUp.raise(button, ListHit{rowAt(row), subItem, flags}); });
}

}  // namespace varnhold::ui
