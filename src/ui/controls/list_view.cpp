#include "ui/controls/list_view.h"

#include <algorithm>

#include "base/text.h"

namespace varnhold::ui {

ListView::SortSwitch& ListView::SortSwitch::operator=(bool sorted) {
  if (sorted) {
    list_.ListItems.orderIsStale();
    list_.rowsChanged();
  } else {
    // Rows that are to be in order by now come into it first, and stay so.
    list_.ListItems.settleOrder();
  }
  value_ = sorted;
  return *this;
}

void ListView::SetSelectedItem(ListItem* row) {
  if (row == nullptr) {
    focused_ = nullptr;
    rowsChanged();
  } else {
    row->Selected.settle(true);
    rowSelectionSet(*row);
  }
}

ListItem* ListView::FindItem(std::string_view text) const {
  const auto wanted = toUpper(text);
  for (auto& row : ListItems) {
    if (toUpper(row.Text.get()) == wanted) return &row;
  }
  return nullptr;
}

void ListView::changed(const PropertyBase& property) {
  if (Sorted && (&property == &SortKey || &property == &SortOrder)) {
    ListItems.orderIsStale();
    rowsChanged();
  }
  Control::changed(property);
}

void ListView::rowSelectionSet(ListItem& row) {
  if (row.Selected) {
    if (!MultiSelect) {
      for (auto& other : ListItems) {
        if (&other == &row || !other.Selected) continue;
        other.Selected.settle(false);
        rowChanged(other);
      }
    }
    focused_ = &row;
  }
  rowChanged(row);
}

void ListView::rowRemoved(const ListItem& gone, std::size_t place) {
  if (focused_ == &gone) {
    const int next = std::min(static_cast<int>(place) + 1, ListItems.Count());
    focused_ = next == 0 ? nullptr : &ListItems(next);
  }
  rowsChanged();
}

void ListView::rowsCleared() {
  focused_ = nullptr;
  rowsChanged();
}

void ListView::rowsChanged() {
  if (updates_ > 0) {
    changedMeanwhile_ = true;
  } else if (view() != nullptr) {
    view()->rowsChanged();
  }
}

void ListView::rowChanged(const ListItem& row) {
  if (updates_ > 0) {
    changedMeanwhile_ = true;
  } else if (view() != nullptr) {
    view()->rowChanged(row);
  }
}

void ListView::columnsChanged() {
  if (view() != nullptr) view()->columnsChanged();
}

void ListView::showRow(const ListItem& row) {
  if (view() != nullptr) view()->ensureVisible(row);
}

void ListView::endUpdate() {
  if (--updates_ > 0 || !changedMeanwhile_) return;
  changedMeanwhile_ = false;
  rowsChanged();
}

void ListView::keepDesign() {
  Control::keepDesign();
  ColumnHeaders.keepDesign();
}

void ListView::restoreDesign() {
  // Rows are never part of a design.
  ListItems.Clear();
  ColumnHeaders.restoreDesign();
  Control::restoreDesign();
}

}  // namespace varnhold::ui
