#include "ui/wx/row_sets.h"

#include <algorithm>
#include <iterator>

namespace varnhold::ui::wx {

std::vector<int> without(const std::vector<int>& rows, const std::vector<int>& gone) {
  std::vector<int> left;
  std::set_difference(rows.begin(), rows.end(), gone.begin(), gone.end(), std::back_inserter(left));
  return left;
}

std::vector<int> united(const std::vector<int>& rows, const std::vector<int>& more) {
  std::vector<int> all;
  std::set_union(rows.begin(), rows.end(), more.begin(), more.end(), std::back_inserter(all));
  return all;
}

}  // namespace varnhold::ui::wx
