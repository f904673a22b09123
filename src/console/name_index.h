#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ui/controls/list_view.h"

namespace varnhold::console {

/// Finds the rows of a list by their names, case ignored, without looking at every row. The rows must not
/// come, go or change places while it lives. Made for 100,000 rows: a look-up touches one slot of a flat
/// table and the row that it finds.
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
  using Row = std::uint32_t;
  static constexpr Row kNone = ~Row{0};

  struct Slot {
    std::size_t hash = 0;
    Row row = kNone;
  };

  [[nodiscard]] Row first(std::string_view name) const;
  /// Where the name in upper case stands, or would stand, in `slots_`.
  [[nodiscard]] std::size_t placeOf(const std::string& folded, std::size_t hash) const;

  std::vector<ui::ListItem*> rows_;
  std::vector<Row> next_;    ///< the next row of the same name
  std::vector<Slot> slots_;  ///< the first row of each name; a power of two of them, half or more empty
};

}  // namespace varnhold::console
