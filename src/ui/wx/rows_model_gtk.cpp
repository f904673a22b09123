#include "ui/wx/rows_model_gtk.h"

#include <algorithm>

#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

// Up to so many rows are added or taken away one by one, which keeps the place that the list is scrolled to.
constexpr int kFewRows = 500;

}  // namespace

void RowsModel::setSource(const ui::ListView* source) {
  source_ = source;
}

void RowsModel::show(int count) {
  const int before = static_cast<int>(GetCount());
  const auto asked = std::exchange(asked_, std::vector<bool>(static_cast<std::size_t>(count)));
  if (std::abs(count - before) > kFewRows || before == 0 || count == 0) {
    Reset(static_cast<unsigned>(count));
    return;
  }
  for (int row = before; row < count; ++row) RowAppended();
  for (int row = before; row > count; --row) RowDeleted(static_cast<unsigned>(row) - 1);
  const auto common = static_cast<std::size_t>(std::min(before, count));
  for (std::size_t row = 0; row < std::min(common, asked.size()); ++row) {
    if (asked[row]) RowChanged(static_cast<unsigned>(row));
  }
}

const ListItem* RowsModel::rowAt(unsigned row) const {
  // The rows may be other ones than those that the widget has been told of.
  const bool isThere = source_ != nullptr && row < static_cast<unsigned>(source_->ListItems.Count());
  return isThere ? &source_->ListItems(static_cast<int>(row) + 1) : nullptr;
}

int RowsModel::pictureOf(unsigned row, unsigned column) const {
  const auto* item = rowAt(row);
  if (item == nullptr) return 0;
  const int picture = column == 0 ? item->SmallIcon.get() : item->ReportIcon(static_cast<int>(column));
  return picture <= static_cast<int>(pictures_.size()) ? picture : 0;
}

void RowsModel::setColumns(int count, const wxVector<wxBitmapBundle>& pictures) {
  pictures_ = pictures;
  hasPictures_.resize(static_cast<std::size_t>(count));
  if (count > 0 && !pictures.empty()) hasPictures_[0] = true;
  showsPictures_ = hasPictures_;
}

void RowsModel::GetValueByRow(wxVariant& value, unsigned row, unsigned column) const {
  if (row < asked_.size()) asked_[row] = true;
  const auto* item = rowAt(row);
  const auto text = item == nullptr ? wxString() : shown(item->column(static_cast<int>(column)));
  const int picture = pictureOf(row, column);
  if (showsPictures(column)) {
    value << wxDataViewIconText(
        text, picture > 0 ? pictures_[static_cast<std::size_t>(picture) - 1] : wxBitmapBundle());
    return;
  }
  value = text;
  if (picture == 0 || hasPictures_[column]) return;
  hasPictures_[column] = true;
  pictureAppeared();
}

}  // namespace varnhold::ui::wx
