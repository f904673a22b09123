#include "ui/controls/list_box.h"

#include <algorithm>

#include "base/runtime_error.h"

namespace varnhold::ui {

bool ListBox::Selected(int index) const {
  return holds(index) && entries_[static_cast<std::size_t>(index)].selected;
}

void ListBox::SetSelected(int index, bool selected) {
  if (!holds(index)) {
    throw RuntimeError(kInvalidPropertyIndex,
                       "Invalid property array index: there is no entry " + std::to_string(index) + ".");
  }
  if (Selected(index) == selected) return;
  if (!severalAllowed()) {
    ListIndex = selected ? index : -1;
    return;
  }
  entries_[static_cast<std::size_t>(index)].selected = selected;
  if (selected) ListIndex.settle(index);
  itemsChanged();
  Click.raise();
}

int ListBox::SelCount() const {
  return static_cast<int>(
      std::count_if(entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.selected; }));
}

void ListBox::setTopIndex(int index) {
  if (!holds(index)) return;
  topIndex_ = index;
  if (view() != nullptr) view()->scrollTo(index);
}

void ListBox::setCurSel(int index) {
  ListIndex.settle(holds(index) ? index : -1);
  selectOnly(ListIndex, ListIndex);
  itemsChanged();
}

int ListBox::textWidth(std::string_view text) const {
  return view() == nullptr ? 0 : view()->textWidth(text);
}

void ListBox::selectOnly(int first, int last) {
  for (int i = 0; i < ListCount(); ++i)
    entries_[static_cast<std::size_t>(i)].selected = i >= first && i <= last;
}

void ListBox::currentChanged() {
  if (!severalAllowed()) selectOnly(ListIndex, ListIndex);
}

void ListBox::entryRemoved(int) {
  // In a list of several the focus rectangle stays where it was; in a list of one the selection is gone.
  ListIndex.settle(severalAllowed() ? std::min(ListIndex.get(), ListCount() - 1) : -1);
}

void ListBox::userClick(int index, int modifiers) {
  act([&] {
    if (!holds(index)) return;
    const bool turnsOver =
        MultiSelect == ui::MultiSelect::Simple || (severalAllowed() && (modifiers & kControl) != 0);
    const bool extends = severalAllowed() && (modifiers & kShift) != 0 && ListIndex >= 0;
    if (turnsOver) {
      auto& entry = entries_[static_cast<std::size_t>(index)];
      entry.selected = !entry.selected;
    } else {
      const int from = extends ? ListIndex.get() : index;
      selectOnly(std::min(from, index), std::max(from, index));
    }
    ListIndex.settle(index);
    itemsChanged();
    Click.raise();
  });
}

void ListBox::userDblClick(int index) {
  userClick(index);
  act([&] { DblClick.raise(); });
}

void ListBox::userSelection(const std::vector<int>& selected, int current) {
  act([&] {
    selectOnly(0, -1);
    for (const int index : selected) {
      if (holds(index)) entries_[static_cast<std::size_t>(index)].selected = true;
    }
    ListIndex.settle(holds(current) ? current : -1);
    itemsChanged();
    Click.raise();
  });
}

void ListBox::restoreDesign() {
  topIndex_ = 0;
  ItemBox::restoreDesign();
}

}  // namespace varnhold::ui
