#include "ui/controls/item_box.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "base/text.h"
#include "ui/controls/collection_errors.h"

namespace varnhold::ui {

ItemBox::ItemBox() : ListIndex(*this, -1, [this](const int& index) { checkListIndex(index); }) {}

void ItemBox::checkListIndex(int index) const {
  if (index < -1 || index >= ListCount()) {
    raiseInvalidValue("ListIndex",
                      "there is no entry " + std::to_string(index) + " among " + std::to_string(ListCount()));
  }
}

void ItemBox::checkEntry(int index) const {
  if (holds(index)) return;
  throw RuntimeError(kInvalidPropertyIndex, "Invalid property array index: there is no entry " +
                                                std::to_string(index) + " among " +
                                                std::to_string(ListCount()) + ".");
}

std::string ItemBox::List(int index) const {
  return holds(index) ? entries_[static_cast<std::size_t>(index)].text : std::string();
}

int ItemBox::ItemData(int index) const {
  return holds(index) ? entries_[static_cast<std::size_t>(index)].data : 0;
}

void ItemBox::SetItemData(int index, int data) {
  checkEntry(index);
  entries_[static_cast<std::size_t>(index)].data = data;
}

int ItemBox::sortedPlace(std::string_view text) const {
  const auto key = toUpper(text);
  const auto place =
      std::upper_bound(entries_.begin(), entries_.end(), key,
                       [](const auto& k, const Entry& entry) { return k < toUpper(entry.text); });
  return static_cast<int>(place - entries_.begin());
}

void ItemBox::AddItem(const std::string& text, int index) {
  if (index == -1) index = Sorted ? sortedPlace(text) : ListCount();
  if (index != ListCount()) checkEntry(index);
  entries_.insert(entries_.begin() + index, Entry{text});
  newIndex_ = index;
  if (ListIndex >= index) ListIndex.settle(ListIndex + 1);
  itemsChanged();
}

void ItemBox::RemoveItem(int index) {
  checkEntry(index);
  entries_.erase(entries_.begin() + index);
  if (ListIndex > index) {
    ListIndex.settle(ListIndex - 1);
  } else if (ListIndex == index) {
    entryRemoved(index);
  }
  itemsChanged();
}

void ItemBox::Clear() {
  entries_.clear();
  if (ListIndex != -1) {
    ListIndex.settle(-1);
    entryRemoved(-1);
  }
  itemsChanged();
}

int ItemBox::findString(int after, std::string_view text) const {
  const auto beginning = toUpper(text);
  const int count = ListCount();
  for (int step = 1; step <= count; ++step) {
    const int index = (after + step) % count;
    if (toUpper(entries_[static_cast<std::size_t>(index)].text).starts_with(beginning)) return index;
  }
  return -1;
}

void ItemBox::changed(const PropertyBase& property) {
  if (&property != &ListIndex) {
    Control::changed(property);
    return;
  }
  currentChanged();
  itemsChanged();
  Click.raise();
}

void ItemBox::itemsChanged() {
  if (view() != nullptr) view()->itemsChanged();
}

void ItemBox::keepDesign() {
  Control::keepDesign();
  designEntries_ = entries_;
}

void ItemBox::restoreDesign() {
  entries_ = designEntries_;
  newIndex_ = -1;
  Control::restoreDesign();
  itemsChanged();
}

}  // namespace varnhold::ui
