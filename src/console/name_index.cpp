#include "console/name_index.h"

#include <bit>
#include <functional>

#include "base/text.h"

namespace varnhold::console {

NameIndex::NameIndex(ui::ListView& list, int startIndex) {
  const int count = list.ListItems.Count();
  for (int i = startIndex; i <= count; ++i) rows_.push_back(&list.ListItems(i));
  next_.resize(rows_.size(), kNone);
  slots_.resize(std::bit_ceil(2 * rows_.size() + 1));
  // From the last to the first, so that each name's rows are chained in list order.
  for (auto row = static_cast<Row>(rows_.size()); row-- > 0;) {
    const auto folded = toUpper(rows_[row]->Text.get());
    const auto hash = std::hash<std::string>()(folded);
    auto& slot = slots_[placeOf(folded, hash)];
    next_[row] = slot.row;
    slot = {hash, row};
  }
}

std::size_t NameIndex::placeOf(const std::string& folded, std::size_t hash) const {
  const auto mask = slots_.size() - 1;
  auto place = hash & mask;
  while (slots_[place].row != kNone &&
         (slots_[place].hash != hash || toUpper(rows_[slots_[place].row]->Text.get()) != folded)) {
    place = (place + 1) & mask;
  }
  return place;
}

NameIndex::Row NameIndex::first(std::string_view name) const {
  const auto folded = toUpper(name);
  return slots_[placeOf(folded, std::hash<std::string>()(folded))].row;
}

}  // namespace varnhold::console
