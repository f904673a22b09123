#include <wx/dataview.h>

#include "ui/wx/bind_list_view.h"
#include "ui/wx/icons.h"
#include "ui/wx/list_view_binding.h"
#include "ui/wx/rows_model_gtk.h"
#include "ui/wx/selection_marks_gtk.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kTallestHead = 80, kPictureSpace = 22, kLeastWidth = 120,
              kLeastHeight = 80;  // at 100 %, in pixels

/// The list on GTK. Its data view is a GtkTreeView, whose rows assistive clients read.
class DataViewList : public wxDataViewCtrl, public ListWidget {
 public:
  DataViewList(wxWindow* parent, bool severalRows)
      : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       severalRows ? wxDV_MULTIPLE : wxDV_SINGLE),
        severalRows_(severalRows),
        model_(new RowsModel) {
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastHeight)));
    AssociateModel(model_.get());
    model_->pictureAppeared = [this] { CallAfter([this] { makeColumns(); }); };
  }

  void listen(ListNotices notices) override;
  void setSource(const ui::ListView* source) override;
  void showColumns(const std::vector<wxString>& heads) override;
  void showWidths(const std::vector<int>& widths) override;
  int cellWidth(int column) const override {
    return GetColumn(static_cast<unsigned>(column) - 1)->GetWidth();
  }
  void showSortArrow(int column, bool ascending) override;
  void showRows(int count) override;
  RowSelection selection() const override;
  void showSelection(const RowSelection& from, const RowSelection& to) override;
  void reveal(int row) override { EnsureVisible(itemOf(row)); }
  wxPoint menuPlace(int row) const override;

 private:
  void makeColumns();
  void listenToMouse();
  [[nodiscard]] ListPlace placeAt(wxPoint belowHeads) const;
  [[nodiscard]] ListPlace placeIn(int row, int x) const;
  [[nodiscard]] int rowAt(int belowHeads) const;
  [[nodiscard]] int headHeight() const;

  bool severalRows_;
  wxObjectDataPtr<RowsModel> model_;
  const ui::ListView* source_ = nullptr;
  ListNotices notices_;
  std::vector<wxString> heads_;
  std::vector<int> widths_;
  SelectionMarks marks_{*this};
  int arrow_ = 0;
  bool arrowAscends_ = true;
};

void DataViewList::listen(ListNotices notices) {
  notices_ = std::move(notices);
  Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    marks_.selectedByUser();
    notices_.selectionMoved();
  });
  Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED,
       [this](const wxDataViewEvent& event) { notices_.activated(rowOf(event.GetItem())); });
  Bind(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK,
       [this](const wxDataViewEvent& event) { notices_.headClicked(event.GetColumn() + 1); });
  listenToMouse();
}

// A GtkTreeView keeps presses for itself. It tells of the right one by the menu that is due, and of the left
// one when the button goes up.
void DataViewList::listenToMouse() {
  Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this](const wxDataViewEvent& event) {
    notices_.pressed(MouseButton::Right, placeIn(rowOf(event.GetItem()), event.GetPosition().x));
  });
  Bind(wxEVT_RIGHT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    notices_.released(MouseButton::Right, placeAt(event.GetPosition()));
  });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    event.Skip();
    notices_.hovered(placeAt(event.GetPosition()));
  });
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    const auto place = placeAt(event.GetPosition());
    notices_.pressed(MouseButton::Left, place);
    notices_.released(MouseButton::Left, place);
  });
}

void DataViewList::setSource(const ui::ListView* source) {
  source_ = source;
  model_->setSource(source);
}

void DataViewList::showColumns(const std::vector<wxString>& heads) {
  heads_ = heads;
  widths_.assign(heads.size(), 1);
  makeColumns();
}

void DataViewList::makeColumns() {
  const int arrow = arrow_;
  showSortArrow(0, arrowAscends_);  // the data view would remember a column that is gone
  ClearColumns();
  model_->setColumns(static_cast<int>(heads_.size()),
                     picturesOf(source_ == nullptr ? nullptr : source_->SmallIcons.get()));
  for (unsigned column = 0; column < heads_.size(); ++column) {
    wxDataViewRenderer* renderer = nullptr;
    if (model_->showsPictures(column)) {
      renderer = new wxDataViewIconTextRenderer;
    } else {
      renderer = new wxDataViewTextRenderer;
      renderer->EnableEllipsize(wxELLIPSIZE_END);
    }
    AppendColumn(new wxDataViewColumn(heads_[column], renderer, column, widths_[column], wxALIGN_LEFT));
  }
  showSortArrow(arrow, arrowAscends_);
}

void DataViewList::showWidths(const std::vector<int>& widths) {
  widths_ = widths;
  for (unsigned column = 0; column < widths.size(); ++column) GetColumn(column)->SetWidth(widths[column]);
}

void DataViewList::showSortArrow(int column, bool ascending) {
  if (column > static_cast<int>(GetColumnCount())) column = 0;
  if (column == arrow_ && ascending == arrowAscends_) return;
  if (arrow_ != 0) GetColumn(static_cast<unsigned>(arrow_) - 1)->UnsetAsSortKey();
  if (column != 0) GetColumn(static_cast<unsigned>(column) - 1)->SetSortOrder(ascending);
  arrow_ = column;
  arrowAscends_ = ascending;
}

void DataViewList::showRows(int count) {
  marks_.forget();
  model_->show(count);
}

RowSelection DataViewList::selection() const {
  return {marks_.rows(), rowOf(GetCurrentItem())};
}

void DataViewList::showSelection(const RowSelection& from, const RowSelection& to) {
  if (to.rows != from.rows) marks_.show(from.rows, to.rows);
  // In a list of one selection, the data view takes the selected row for the focused one.
  if (!severalRows_ || to.focused == 0 || to.focused == rowOf(GetCurrentItem())) return;
  SetCurrentItem(itemOf(to.focused));
}

ListPlace DataViewList::placeIn(int row, int x) const {
  if (row == 0) return {0, 0, kOnNothing};
  unsigned column = 0;
  int left = GetItemRect(itemOf(row), GetColumn(0)).x;
  while (column + 1 < GetColumnCount() && x >= left + GetColumn(column)->GetWidth()) {
    left += GetColumn(column++)->GetWidth();
  }
  if (column > 0) return {row, static_cast<int>(column), kOnCell};
  const bool onPicture =
      x < left + FromDIP(kPictureSpace) && model_->pictureOf(static_cast<unsigned>(row) - 1, 0) != 0;
  return {row, 0, onPicture ? kOnIcon : kOnLabel};
}

// The position of a mouse event counts from the corner of the rows, all else from the corner of the heads.
ListPlace DataViewList::placeAt(wxPoint belowHeads) const {
  const int row = rowAt(belowHeads.y);
  return row == 0 ? placeIn(0, 0) : placeIn(row, belowHeads.x + GetItemRect(itemOf(row), GetColumn(0)).x);
}

int DataViewList::rowAt(int belowHeads) const {
  const int count = static_cast<int>(model_->GetCount());
  const int top = rowOf(GetTopItem());
  if (top == 0) return 0;
  const auto first = GetItemRect(itemOf(top));
  const auto second = top < count ? GetItemRect(itemOf(top + 1)) : wxRect();
  const int height = second.IsEmpty() ? first.height + 2 : second.y - first.y;
  const int row = top + (belowHeads + headHeight() - first.y + 1) / height;
  return row <= count ? row : 0;
}

// Found by asking for the first height at which there is a row.
int DataViewList::headHeight() const {
  for (int height = 0; height < FromDIP(kTallestHead); ++height) {
    wxDataViewItem item;
    wxDataViewColumn* column = nullptr;
    HitTest({1, height}, item, column);
    if (item.IsOk()) return height;
  }
  return GetItemRect(itemOf(1)).y;  // a single row is lower than the heads
}

wxPoint DataViewList::menuPlace(int row) const {
  const auto place = row == 0 ? wxRect() : GetItemRect(itemOf(row));
  return {place.x + FromDIP(kPictureSpace), place.y + place.height};
}

}  // namespace

wxWindow* bindListView(wxWindow* parent, ui::ListView& list) {
  auto* widget = new DataViewList(parent, list.MultiSelect);
  return bind<ListViewBinding>(static_cast<wxWindow*>(widget), list, *widget);
}

}  // namespace varnhold::ui::wx
