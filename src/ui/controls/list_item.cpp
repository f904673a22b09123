#include "ui/controls/list_item.h"

#include <algorithm>

#include "ui/controls/list_view.h"

namespace varnhold::ui {

ListItem::ListItem(ListItems& rows, std::string text) : Text(*this, std::move(text)), rows_(rows) {}

int ListItem::Index() const {
  return rows_.indexOf(*this);
}

void ListItem::EnsureVisible() {
  rows_.list().showRow(*this);
}

void ListItem::changed(const void* value) {
  if (value == &Selected) {
    rows_.list().rowSelectionSet(*this);
  } else if (value != &Tag) {
    rows_.contentChanged(*this);
  }
}

const ListItem::Cell* ListItem::cell(int column) const {
  if (column < 1) raiseInvalidValue("SubItems", "columns behind the first count from 1");
  const auto place = static_cast<std::size_t>(column) - 1;
  return place < cells_.size() ? &cells_[place] : nullptr;
}

ListItem::Cell& ListItem::cellToSet(int column) {
  if (cell(column) == nullptr) {
    // Room for the whole row at once: most rows are filled column by column.
    const auto columns = static_cast<std::size_t>(std::max(column, rows_.list().ColumnHeaders.Count() - 1));
    cells_.reserve(columns);
    cells_.resize(static_cast<std::size_t>(column));
  }
  return cells_[static_cast<std::size_t>(column) - 1];
}

ListItem::CellExtra& ListItem::extraToSet(int column) {
  auto& extra = cellToSet(column).extra;
  if (extra == nullptr) extra = std::make_unique<CellExtra>();
  return *extra;
}

const std::string& ListItem::cellText(int column) const {
  static const std::string empty;
  const auto* found = cell(column);
  return found == nullptr ? empty : found->text;
}

void ListItem::setCellText(int column, const std::string& text) {
  if (cellText(column) == text) return;
  cellToSet(column).text = text;
  rows_.contentChanged(*this);
}

const std::string& ListItem::cellTag(int column) const {
  static const std::string empty;
  const auto* found = cell(column);
  return found == nullptr || found->extra == nullptr ? empty : found->extra->tag;
}

void ListItem::setCellTag(int column, const std::string& tag) {
  extraToSet(column).tag = tag;
}

const int& ListItem::cellIcon(int column) const {
  static const int none = 0;
  const auto* found = cell(column);
  return found == nullptr || found->extra == nullptr ? none : found->extra->icon;
}

void ListItem::setCellIcon(int column, const int& icon) {
  extraToSet(column).icon = icon;
  rows_.contentChanged(*this);
}

}  // namespace varnhold::ui
