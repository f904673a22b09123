#pragma once

#include <vector>

/// Rows of a list that stand in their order, as sets.
namespace varnhold::ui::wx {

[[nodiscard]] std::vector<int> without(const std::vector<int>& rows, const std::vector<int>& gone);
[[nodiscard]] std::vector<int> united(const std::vector<int>& rows, const std::vector<int>& more);

}  // namespace varnhold::ui::wx
