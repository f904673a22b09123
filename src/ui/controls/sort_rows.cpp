#include "ui/controls/sort_rows.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/text.h"

namespace varnhold::ui {
namespace {

/// What a row is sorted by. All texts stand in one block, and the bytes with which they begin to differ stand
/// in the key itself: with 100,000 rows, most comparisons then touch nothing but two keys.
struct Key {
  std::uint64_t head = 0;
  std::size_t begin = 0, end = 0;  // in the block
  std::size_t row = 0;
};

/// The first eight bytes of `text`, so that numbers compare as the bytes do.
std::uint64_t headOf(std::string_view text) {
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < sizeof head; ++i) {
    head = head << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0);
  }
  return head;
}

class Keys {
 public:
  Keys(const ListItems::Rows& rows, int column) {
    keys_.reserve(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
      const auto begin = block_.size();
      block_ += toUpper(rows[row]->column(column));
      keys_.push_back({0, begin, block_.size(), row});
    }
    const auto common = commonBeginning();
    for (auto& key : keys_) {
      key.begin += common;
      key.head = headOf(textOf(key));
    }
  }

  /// The rows in their new order, by the place that they have now.
  std::vector<Key> sorted(SortOrder order) && {
    const auto before = [this](const Key& a, const Key& b) {
      return a.head != b.head ? a.head < b.head : textOf(a) < textOf(b);
    };
    if (order == SortOrder::Ascending) {
      std::stable_sort(keys_.begin(), keys_.end(), before);
    } else {
      std::stable_sort(keys_.begin(), keys_.end(), [&](const Key& a, const Key& b) { return before(b, a); });
    }
    return std::move(keys_);
  }

 private:
  [[nodiscard]] std::string_view textOf(const Key& key) const {
    return std::string_view(block_).substr(key.begin, key.end - key.begin);
  }

  /// How many bytes all texts begin with alike.
  [[nodiscard]] std::size_t commonBeginning() const {
    if (keys_.empty()) return 0;
    auto common = textOf(keys_.front());
    for (const auto& key : keys_) {
      const auto text = textOf(key);
      const auto shorter = std::min(common.size(), text.size());
      const auto differ =
          std::mismatch(common.begin(), common.begin() + static_cast<std::ptrdiff_t>(shorter), text.begin());
      common = common.substr(0, static_cast<std::size_t>(differ.first - common.begin()));
    }
    return common.size();
  }

  std::string block_;
  std::vector<Key> keys_;
};

}  // namespace

void sortRows(ListItems::Rows& rows, int column, SortOrder order) {
  ListItems::Rows sorted;
  sorted.reserve(rows.size());
  for (const auto& key : Keys(rows, column).sorted(order)) sorted.push_back(std::move(rows[key.row]));
  rows = std::move(sorted);
}

}  // namespace varnhold::ui
