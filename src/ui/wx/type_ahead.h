#pragma once

#include <cstdint>
#include <string>

#include "ui/controls/list_view.h"

namespace varnhold::ui::wx {

/// Finds a row by the beginning of its text, as it is typed.
class TypeAhead {
 public:
  /// `letter` was typed at `nowMs`: the next row from the focused one on, and then from the first, whose text
  /// begins with what was typed without a pause, case ignored; 0 for none. A letter behind a pause looks
  /// behind the focused row.
  [[nodiscard]] int find(const ui::ListView& list, const std::string& letter, std::int64_t nowMs);

 private:
  std::string typed_;
  std::int64_t lastMs_ = 0;
};

}  // namespace varnhold::ui::wx
