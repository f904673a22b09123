#include "ui/wx/selection_marks_gtk.h"

#include <algorithm>

#include "ui/wx/row_sets.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {
namespace {

constexpr std::size_t kRowsOfATurn = 1000;

}  // namespace

wxDataViewItem itemOf(int row) {
  return wxDataViewItem(wxUIntToPtr(static_cast<unsigned>(row)));
}

int rowOf(const wxDataViewItem& item) {
  return static_cast<int>(wxPtrToUInt(item.GetID()));
}

SelectionMarks::SelectionMarks(wxDataViewCtrl& list) : list_(list) {
  list_.Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    if (!isMarking()) return;
    markOfATurn();
    extendFromFocus();
    event.RequestMore(isMarking());
  });
}

void SelectionMarks::show(const std::vector<int>& from, const std::vector<int>& to) {
  const auto now = isMarking() ? marked() : from;
  wanted_ = to;
  toSelect_ = without(to, now);
  toUnselect_ = without(now, to);
  markOfATurn();
  wxWakeUpIdle();
}

std::vector<int> SelectionMarks::rows() const {
  return united(without(marked(), toUnselect_), toSelect_);
}

void SelectionMarks::forget() {
  toSelect_.clear();
  toUnselect_.clear();
}

// A click with Ctrl, or an assistive client, turns one row over; the others stay what they are to become. All
// else makes a selection of its own.
void SelectionMarks::selectedByUser() {
  if (!isMarking()) return;
  const auto expected = united(without(wanted_, toSelect_), toUnselect_), now = marked();
  if (without(now, expected).size() + without(expected, now).size() > 1) forget();
}

std::vector<int> SelectionMarks::marked() const {
  wxDataViewItemArray items;
  list_.GetSelections(items);
  std::vector<int> rows;
  for (const auto& item : items) rows.push_back(rowOf(item));
  return rows;
}

// What is seen comes first, wherever the list has been scrolled to by now.
void SelectionMarks::markOfATurn() {
  markSeen(toUnselect_, false);
  markSeen(toSelect_, true);
  const auto gone = std::min(toUnselect_.size(), kRowsOfATurn);
  markSome(toUnselect_, false, gone);
  markSome(toSelect_, true, kRowsOfATurn - gone);
}

void SelectionMarks::markSeen(std::vector<int>& rows, bool selected) {
  if (rows.empty()) return;
  const int top = rowOf(list_.GetTopItem());
  const auto first = std::lower_bound(rows.begin(), rows.end(), top);
  const auto last = std::upper_bound(first, rows.end(), top + list_.GetCountPerPage());
  std::vector<int> seen(first, last);
  rows.erase(first, last);
  markSome(seen, selected, seen.size());
}

void SelectionMarks::markSome(std::vector<int>& rows, bool selected, std::size_t most) {
  for (std::size_t left = std::min(most, rows.size()); left > 0; --left) {
    const auto item = itemOf(rows.back());
    rows.pop_back();
    if (selected) {
      list_.Select(item);
    } else {
      list_.Unselect(item);
    }
  }
}

// A GtkTreeView takes the row that was marked last for the one that Shift extends from.
void SelectionMarks::extendFromFocus() {
  const auto focused = list_.GetCurrentItem();
  if (!list_.HasFlag(wxDV_MULTIPLE) || !focused.IsOk()) return;
  if (list_.IsSelected(focused)) {
    list_.Unselect(focused);
    list_.Select(focused);
  } else {
    list_.Select(focused);
    list_.Unselect(focused);
  }
}

}  // namespace varnhold::ui::wx
