#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ui/controls/list_view.h"

namespace varnhold::console {

/// Finds the rows of a list by their names, case ignored, without looking at every row. The rows must not
/// come, go or change places while it lives.
class NameIndex {
 public:
  /// Knows the rows from `startIndex` on.
  NameIndex(ui::ListView& list, int startIndex);

  /// Calls `deed` with each row of this name, in list order.
  template <class Deed>
  void forEach(std::string_view name, Deed deed) const {
    for (auto row = first(name); row != kNone; row = next_[row]) deed(*rows_[row]);
  }

 private:
  static constexpr std::size_t kNone = ~std::size_t{0};

  [[nodiscard]] std::size_t first(std::string_view name) const;

  std::vector<ui::ListItem*> rows_;
  std::vector<std::size_t> next_;  ///< the next row of the same name
  std::unordered_map<std::string, std::size_t> first_;
};

}  // namespace varnhold::console
