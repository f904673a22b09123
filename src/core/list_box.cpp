#include "core/list_box.h"

#include <algorithm>
#include <cmath>

namespace varnhold::core {
namespace {

constexpr double kTwipsPerPixel = 15;

}  // namespace

bool FindInList(ListBox& list, std::string_view text) {
  if (text.empty()) {
    list.setTopIndex(0);
    list.setCurSel(-1);
    return false;
  }
  const auto found = list.findString(-1, text);
  list.setTopIndex(found);
  list.setCurSel(found);
  return found != -1;
}

void FitListExtent(ListBox& list) {
  double widest = 0;
  for (std::int32_t i = 0; i < list.count(); ++i) widest = std::max(widest, list.textWidth(list.entry(i)));
  if (list.isScaledInTwips()) widest /= kTwipsPerPixel;
  list.setHorizontalExtent(static_cast<std::int32_t>(std::nearbyint(widest)));
}

}  // namespace varnhold::core
