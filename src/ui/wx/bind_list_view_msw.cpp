#include <wx/listctrl.h>
#include <wx/msw/wrapcctl.h>

#include <numeric>
#include <utility>

#include "ui/wx/bind_list_view.h"
#include "ui/wx/icons.h"
#include "ui/wx/list_view_binding.h"
#include "ui/wx/row_sets.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

// At 100 %, in pixels.
constexpr int kLeastWidth = 120, kLeastHeight = 80;
constexpr int kEveryRow = 0;  // to the native list, -1

/// The list on Windows: the native list view, in the mode in which it asks for its rows. Other programs read
/// them with its messages, screen readers through it.
class NativeList : public wxListView, public ListWidget {
 public:
  NativeList(wxWindow* parent, bool severalRows)
      : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                   wxLC_REPORT | wxLC_VIRTUAL | (severalRows ? 0L : wxLC_SINGLE_SEL)),
        severalRows_(severalRows) {
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastHeight)));
  }

  void listen(ListNotices notices) override;
  void setSource(const ui::ListView* source) override { source_ = source; }
  void showColumns(const std::vector<wxString>& heads) override;
  void showWidths(const std::vector<int>& widths) override;
  int cellWidth(int column) const override { return GetColumnWidth(column - 1); }
  void showSortArrow(int column, bool ascending) override;
  void showRows(int count) override;
  RowSelection selection() const override;
  void showSelection(const RowSelection& from, const RowSelection& to) override;
  void reveal(int row) override { EnsureVisible(row - 1); }
  wxPoint menuPlace(int row) const override;

 private:
  void listenToMouse();
  [[nodiscard]] ListPlace placeAt(wxPoint position) const;
  void leftReleased(const ListPlace& place);
  void select(int row, bool selected) {
    SetItemState(row - 1, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
  }
  void selectEvery(bool selected) { select(kEveryRow, selected); }
  [[nodiscard]] const ListItem* rowAt(long row) const;

  wxString OnGetItemText(long row, long column) const override;
  int OnGetItemColumnImage(long row, long column) const override;
  int OnGetItemImage(long row) const override { return OnGetItemColumnImage(row, 0); }
  bool MSWOnNotify(int id, WXLPARAM lParam, WXLPARAM* result) override;

  bool severalRows_;
  const ui::ListView* source_ = nullptr;
  ListNotices notices_;
  bool leftIsDown_ = false;
};

void NativeList::listen(ListNotices notices) {
  notices_ = std::move(notices);
  for (const auto& type : {wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_DESELECTED, wxEVT_LIST_ITEM_FOCUSED}) {
    Bind(type, [this](wxListEvent&) { notices_.selectionMoved(); });
  }
  Bind(wxEVT_LIST_COL_CLICK, [this](const wxListEvent& event) {
    if (event.GetColumn() >= 0) notices_.headClicked(event.GetColumn() + 1);
  });
  listenToMouse();
}

void NativeList::listenToMouse() {
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    event.Skip();
    leftIsDown_ = true;
    notices_.pressed(MouseButton::Left, placeAt(event.GetPosition()));
  });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    event.Skip();
    notices_.hovered(placeAt(event.GetPosition()));
  });
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    leftReleased(placeAt(event.GetPosition()));
  });
  Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
    event.Skip();
    notices_.activated(placeAt(event.GetPosition()).row);
  });
  // Not passed on: the native list would turn the selection round.
  const auto rightPress = [this](wxMouseEvent& event) {
    notices_.pressed(MouseButton::Right, placeAt(event.GetPosition()));
  };
  Bind(wxEVT_RIGHT_DOWN, rightPress);
  Bind(wxEVT_RIGHT_DCLICK, rightPress);
  Bind(wxEVT_RIGHT_UP,
       [this](wxMouseEvent& event) { notices_.released(MouseButton::Right, placeAt(event.GetPosition())); });
}

// The native list waits for the button itself while it is held down, and then tells of a click instead.
bool NativeList::MSWOnNotify(int id, WXLPARAM lParam, WXLPARAM* result) {
  const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
  if (header.code == static_cast<UINT>(NM_CLICK)) {
    const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(header);
    leftReleased(placeAt(wxPoint(click.ptAction.x, click.ptAction.y)));
  }
  return wxListView::MSWOnNotify(id, lParam, result);
}

void NativeList::leftReleased(const ListPlace& place) {
  if (std::exchange(leftIsDown_, false)) notices_.released(MouseButton::Left, place);
}

ListPlace NativeList::placeAt(wxPoint position) const {
  int flags = 0;
  long column = 0;
  const long row = HitTest(position, flags, &column);
  if (row == wxNOT_FOUND) return {0, 0, kOnNothing};
  if (column > 0) return {static_cast<int>(row) + 1, static_cast<int>(column), kOnCell};
  return {static_cast<int>(row) + 1, 0, (flags & wxLIST_HITTEST_ONITEMICON) != 0 ? kOnIcon : kOnLabel};
}

void NativeList::showColumns(const std::vector<wxString>& heads) {
  SetSmallImages(picturesOf(source_ == nullptr ? nullptr : source_->SmallIcons.get()));
  DeleteAllColumns();
  for (const auto& head : heads) AppendColumn(head);
}

void NativeList::showWidths(const std::vector<int>& widths) {
  for (int column = 0; column < static_cast<int>(widths.size()); ++column) {
    SetColumnWidth(column, widths[static_cast<std::size_t>(column)]);
  }
}

// By messages of its own, since the toolkit draws no arrow where it takes the host for too old.
void NativeList::showSortArrow(int column, bool ascending) {
  const auto heads = ListView_GetHeader(static_cast<HWND>(GetHandle()));
  for (int place = 0; place < GetColumnCount(); ++place) {
    HDITEMW head = {};
    head.mask = HDI_FORMAT;
    Header_GetItem(heads, place, &head);
    const int before = head.fmt;
    head.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (place == column - 1) head.fmt |= ascending ? HDF_SORTUP : HDF_SORTDOWN;
    if (head.fmt != before) Header_SetItem(heads, place, &head);
  }
}

void NativeList::showRows(int count) {
  if (count != GetItemCount()) SetItemCount(count);
  Refresh();
}

RowSelection NativeList::selection() const {
  RowSelection selected;
  for (long row = GetFirstSelected(); row != wxNOT_FOUND; row = GetNextSelected(row)) {
    selected.rows.push_back(static_cast<int>(row) + 1);
  }
  selected.focused = static_cast<int>(GetFocusedItem()) + 1;
  return selected;
}

// A message for each row that differs, or one for all of them and one for each that is then wrong.
void NativeList::showSelection(const RowSelection& from, const RowSelection& to) {
  const auto gone = without(from.rows, to.rows), come = without(to.rows, from.rows);
  const auto count = static_cast<std::size_t>(GetItemCount()), differing = gone.size() + come.size();
  if (severalRows_ && count - to.rows.size() + 1 < differing) {
    selectEvery(true);
    std::vector<int> all(count);
    std::iota(all.begin(), all.end(), 1);
    for (const int row : without(all, to.rows)) select(row, false);
  } else if (to.rows.size() + 1 < differing) {
    selectEvery(false);
    for (const int row : to.rows) select(row, true);
  } else {
    for (const int row : gone) select(row, false);
    for (const int row : come) select(row, true);
  }
  if (to.focused != 0) SetItemState(to.focused - 1, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
}

wxPoint NativeList::menuPlace(int row) const {
  wxRect place;
  if (row == 0 || !GetItemRect(row - 1, place, wxLIST_RECT_LABEL)) return {0, 0};
  return {place.x, place.y + place.height};
}

const ListItem* NativeList::rowAt(long row) const {
  // The rows may be other ones than those that the native list has been told of.
  const bool isThere = source_ != nullptr && row < source_->ListItems.Count();
  return isThere ? &source_->ListItems(static_cast<int>(row) + 1) : nullptr;
}

wxString NativeList::OnGetItemText(long row, long column) const {
  const auto* item = rowAt(row);
  return item == nullptr ? wxString() : shown(item->column(static_cast<int>(column)));
}

int NativeList::OnGetItemColumnImage(long row, long column) const {
  const auto* item = rowAt(row);
  if (item == nullptr) return -1;
  return (column == 0 ? item->SmallIcon.get() : item->ReportIcon(static_cast<int>(column))) - 1;
}

}  // namespace

wxWindow* bindListView(wxWindow* parent, ui::ListView& list) {
  auto* widget = new NativeList(parent, list.MultiSelect);
  return bind<ListViewBinding>(static_cast<wxWindow*>(widget), list, *widget);
}

}  // namespace varnhold::ui::wx
