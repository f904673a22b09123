#include "console/name_index.h"

#include <utility>

#include "base/text.h"

namespace varnhold::console {

NameIndex::NameIndex(ui::ListView& list, int startIndex) {
  const int count = list.ListItems.Count();
  for (int i = startIndex; i <= count; ++i) rows_.push_back(&list.ListItems(i));
  next_.resize(rows_.size(), kNone);
  first_.reserve(rows_.size());
  // From the last to the first, so that each name's rows are chained in list order.
  for (auto row = rows_.size(); row-- > 0;) {
    const auto [known, isNew] = first_.try_emplace(toUpper(rows_[row]->Text.get()), row);
    if (!isNew) next_[row] = std::exchange(known->second, row);
  }
}

std::size_t NameIndex::first(std::string_view name) const {
  const auto known = first_.find(toUpper(name));
  return known == first_.end() ? kNone : known->second;
}

}  // namespace varnhold::console
