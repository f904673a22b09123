#include "ui/wx/type_ahead.h"

#include "base/text.h"

namespace varnhold::ui::wx {
namespace {

constexpr std::int64_t kPauseMs = 1000;

}  // namespace

int TypeAhead::find(const ui::ListView& list, const std::string& letter, std::int64_t nowMs) {
  if (nowMs - lastMs_ > kPauseMs) typed_.clear();
  lastMs_ = nowMs;
  typed_ += toUpper(letter);
  const bool isFirst = typed_ == toUpper(letter);
  const auto focused = list.SelectedItem();
  const int from = focused ? focused->Index() + (isFirst ? 0 : -1) : 0;
  const int count = list.ListItems.Count();
  for (int step = 0; step < count; ++step) {
    const int row = (from + step) % count + 1;
    if (toUpper(list.ListItems(row).Text.get()).starts_with(typed_)) return row;
  }
  return 0;
}

}  // namespace varnhold::ui::wx
