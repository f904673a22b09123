#pragma once

#include <wx/bmpbndl.h>
#include <wx/dataview.h>

#include <functional>
#include <vector>

#include "ui/controls/list_view.h"

namespace varnhold::ui::wx {

/// A list view's rows as the data view asks for them. It holds none of them.
class RowsModel : public wxDataViewVirtualListModel {
 public:
  /// Nothing: every cell is empty.
  void setSource(const ui::ListView* source);
  /// There are `count` rows now, and all may show something else.
  void show(int count);
  /// The pictures that rows speak of, and how many columns are to be made now.
  void setColumns(int count, const wxVector<wxBitmapBundle>& pictures);

  /// Whether the column is to show pictures beside its texts; columns count from 0.
  [[nodiscard]] bool showsPictures(unsigned column) const { return showsPictures_[column]; }
  /// The number of a cell's picture, from 1; 0 for none.
  [[nodiscard]] int pictureOf(unsigned row, unsigned column) const;
  /// Called when a column that shows no pictures gets one: the columns are to be made anew.
  std::function<void()> pictureAppeared;

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override;
  bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

 private:
  [[nodiscard]] const ListItem* rowAt(unsigned row) const;

  const ui::ListView* source_ = nullptr;
  wxVector<wxBitmapBundle> pictures_;
  // Whom the rows were shown to: the widget draws them anew, and assistive clients forget what they have
  // read, when told that the row has changed. All others cost nothing.
  mutable std::vector<bool> asked_;
  std::vector<bool> showsPictures_;
  mutable std::vector<bool> hasPictures_;
};

}  // namespace varnhold::ui::wx
