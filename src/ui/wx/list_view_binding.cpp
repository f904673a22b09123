#include "ui/wx/list_view_binding.h"

#include <algorithm>
#include <utility>

#include "ui/wx/column_widths.h"
#include "ui/wx/popup_place.h"
#include "ui/wx/row_sets.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

// At 100 %, in pixels.
constexpr int kHeadPadding = 28, kLeastWidth = 24, kEdges = 4;

RowSelection selectionOf(const ui::ListView& list) {
  RowSelection selection;
  int place = 0;
  for (const auto& row : list.ListItems) {
    ++place;
    if (row.Selected) selection.rows.push_back(place);
  }
  if (const auto focused = list.SelectedItem()) selection.focused = focused->Index();
  return selection;
}

std::vector<wxString> headsOf(const ui::ListView& list) {
  std::vector<wxString> heads;
  for (int column = 1; column <= list.ColumnHeaders.Count(); ++column) {
    heads.push_back(shown(list.ColumnHeaders(column).Text));
  }
  return heads;
}

std::vector<int> widthsOf(const ui::ListView& list, const wxWindow& window) {
  std::vector<ColumnWish> wishes;
  for (int column = 1; column <= list.ColumnHeaders.Count(); ++column) {
    const auto& head = list.ColumnHeaders(column);
    const int text = window.GetTextExtent(shown(head.Text)).x;
    wishes.push_back({head.Width, text + window.FromDIP(kHeadPadding)});
  }
  const int bar = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, &window);
  const int available = window.GetSize().x - (bar > 0 ? bar : 0) - window.FromDIP(kEdges);
  return columnWidths(wishes, available, window.FromDIP(kLeastWidth));
}

/// The row that was chosen when `before` became `now`. An assistive client selects a row and leaves the focus
/// where it is.
int chosenRow(const RowSelection& before, const RowSelection& now) {
  if (now.focused != before.focused) return now.focused;
  const auto come = without(now.rows, before.rows);
  const bool isFocusAmongThem = std::binary_search(come.begin(), come.end(), now.focused);
  return come.empty() || isFocusAmongThem ? now.focused : come.back();
}

}  // namespace

ListViewBinding::ListViewBinding(wxWindow& window, ui::ListView& list, ListWidget& rows)
    : BoundView(window, list), rows_(rows) {
  rows_.setSource(&list);
}

void ListViewBinding::released() {
  BoundView::released();
  rows_.setSource(nullptr);
}

void ListViewBinding::columnsChanged() {
  widthsStale_ = true;
  lookLater();
}

void ListViewBinding::ensureVisible(const ListItem& row) {
  revealed_ = row.Index();
  lookLater();
}

void ListViewBinding::show(const ui::ListView&) {
  lookLater();
}

void ListViewBinding::lookLater() {
  lookSoon([this](const ui::ListView& list) { look(list); });
}

void ListViewBinding::look(const ui::ListView& list) {
  if (readPending_) {
    lookLater();  // what the user has done comes first, lest it be taken back unheard
    return;
  }
  lookAtColumns(list);
  lookAtRows(list);
  lookAtSelection(list);
  if (const int row = std::exchange(revealed_, 0); row >= 1 && row <= list.ListItems.Count())
    rows_.reveal(row);
}

void ListViewBinding::lookAtColumns(const ui::ListView& list) {
  auto heads = headsOf(list);
  if (heads != heads_ || list.SmallIcons != pictures_) {
    heads_ = std::move(heads);
    pictures_ = list.SmallIcons;
    rows_.showColumns(heads_);
    widthsStale_ = true;
  }
  if (std::exchange(widthsStale_, false)) rows_.showWidths(widthsOf(list, widget()));
  rows_.showSortArrow(list.Sorted ? list.SortKey + 1 : 0, list.SortOrder == SortOrder::Ascending);
}

void ListViewBinding::lookAtRows(const ui::ListView& list) {
  if (std::exchange(revision_, list.ListItems.revision()) == list.ListItems.revision()) return;
  rows_.showRows(list.ListItems.Count());
  selection_ = rows_.selection();
}

void ListViewBinding::lookAtSelection(const ui::ListView& list) {
  auto wanted = selectionOf(list);
  // No focused row means that the widget's own stays: no list can take it away.
  if (wanted.focused == 0) wanted.focused = selection_.focused;
  if (wanted.rows == selection_.rows && wanted.focused == selection_.focused) return;
  rows_.showSelection(selection_, wanted);
  selection_ = std::move(wanted);
}

void ListViewBinding::selectionMoved() {
  // A list that gets the focus may select a row by itself. Nobody chose it, so it is taken back.
  if (focusArrives_) {
    selection_ = rows_.selection();
    lookLater();
  } else {
    readSelectionSoon(false);
  }
}

void ListViewBinding::readSelectionSoon(bool chosen) {
  if (isQuiet()) return;
  chosen_ = chosen_ || chosen;
  if (std::exchange(readPending_, true)) return;
  post([this](ui::ListView& list) {
    readPending_ = false;
    readSelection(list);
  });
}

void ListViewBinding::readSelection(ui::ListView& list) {
  const bool chosen = std::exchange(chosen_, false);
  // Where rows have changed meanwhile, nobody knows which ones the user meant.
  if (revision_ != list.ListItems.revision()) return;
  const auto before = std::exchange(selection_, rows_.selection());
  const bool isSame = selection_.rows == before.rows && selection_.focused == before.focused;
  if (isSame && !chosen) return;
  if (selection_.rows.empty() && !chosen) {
    list.userClick(0);  // beside the rows
  } else {
    list.userSelection(selection_.rows, chosenRow(before, selection_));
  }
}

}  // namespace varnhold::ui::wx
