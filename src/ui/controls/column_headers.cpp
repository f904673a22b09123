#include "ui/controls/column_headers.h"

#include "ui/controls/collection_errors.h"
#include "ui/controls/list_view.h"

namespace varnhold::ui {

ColumnHeader::ColumnHeader(ListView& list, std::string text) : list_(list) {
  Text.settle(std::move(text));
}

int ColumnHeader::Index() const {
  int index = 1;
  while (&list_.ColumnHeaders(index) != this) ++index;
  return index;
}

void ColumnHeader::changed(const PropertyBase&) {
  list_.columnsChanged();
}

void ColumnHeader::runHandler(const std::function<void()>& handler) const {
  handler();
}

ColumnHeader& ColumnHeaders::Add(const std::string& text) {
  columns_.push_back(std::make_unique<ColumnHeader>(list_, text));
  list_.columnsChanged();
  return *columns_.back();
}

void ColumnHeaders::Remove(int index) {
  checkIndex("column", index, columns_.size());
  columns_.erase(columns_.begin() + (index - 1));
  list_.columnsChanged();
}

ColumnHeader& ColumnHeaders::operator()(int index) const {
  checkIndex("column", index, columns_.size());
  return *columns_[static_cast<std::size_t>(index) - 1];
}

void ColumnHeaders::keepDesign() {
  design_.clear();
  for (const auto& column : columns_) design_.push_back({column->Text, column->Width});
}

void ColumnHeaders::restoreDesign() {
  columns_.clear();
  for (const auto& column : design_) Add(column.text).Width.settle(column.width);
}

}  // namespace varnhold::ui
