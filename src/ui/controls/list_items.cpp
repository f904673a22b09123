#include "ui/controls/list_items.h"

#include <algorithm>

#include "base/text.h"
#include "ui/controls/list_view.h"
#include "ui/controls/sort_rows.h"

namespace varnhold::ui {

void ListItems::settleOrder() const {
  if (!sortPending_) return;
  sortPending_ = false;
  sortRows(rows_, list_.SortKey, list_.SortOrder);
  numbered_ = 0;
}

const ListItems::Rows& ListItems::rows() const {
  settleOrder();
  return rows_;
}

std::size_t ListItems::placeOfNew(const ListItem& row) const {
  if (!list_.Sorted.get()) return rows_.size();
  const int column = list_.SortKey;
  const bool ascending = list_.SortOrder == SortOrder::Ascending;
  const auto key = toUpper(row.column(column));
  const auto isBehind = [&](const std::string& newKey, const std::unique_ptr<ListItem>& other) {
    const auto otherKey = toUpper(other->column(column));
    return ascending ? newKey < otherKey : otherKey < newKey;
  };
  return static_cast<std::size_t>(std::upper_bound(rows_.begin(), rows_.end(), key, isBehind) -
                                  rows_.begin());
}

ListItem& ListItems::Add(const std::string& text) {
  settleOrder();
  auto row = std::make_unique<ListItem>(*this, text);
  auto& added = *row;
  const auto place = placeOfNew(added);
  rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(place), std::move(row));
  numbered_ = std::min(numbered_, place);
  ++revision_;
  list_.rowsChanged();
  return added;
}

void ListItems::Remove(int index) {
  settleOrder();
  checkIndex("row", index, rows_.size());
  const auto place = static_cast<std::size_t>(index) - 1;
  const auto gone = std::move(rows_[place]);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
  numbered_ = std::min(numbered_, place);
  ++revision_;
  list_.rowRemoved(*gone, place);
}

void ListItems::contentChanged(const ListItem& row) {
  ++revision_;
  list_.rowChanged(row);
}

void ListItems::Clear() {
  rows_.clear();
  sortPending_ = false;
  numbered_ = 0;
  ++revision_;
  list_.rowsCleared();
}

ListItem& ListItems::operator()(int index) {
  checkIndex("row", index, rows_.size());
  return *rows()[static_cast<std::size_t>(index) - 1];
}

const ListItem& ListItems::operator()(int index) const {
  checkIndex("row", index, rows_.size());
  return *rows()[static_cast<std::size_t>(index) - 1];
}

void ListItems::renumberFrom(std::size_t place) const {
  for (; place < rows_.size(); ++place) rows_[place]->index_ = static_cast<int>(place) + 1;
  numbered_ = rows_.size();
}

int ListItems::indexOf(const ListItem& row) const {
  settleOrder();
  if (numbered_ < rows_.size()) renumberFrom(numbered_);
  return row.index_;
}

}  // namespace varnhold::ui
