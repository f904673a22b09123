#include "ui/wx/tab_order.h"

#include <algorithm>
#include <vector>

#include "ui/controls/form.h"
#include "ui/wx/common_values.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {
namespace {

struct Placed {
  std::ptrdiff_t place;
  wxWindow* widget;
};

/// Where the first control of the widget, or of what stands in it, comes; behind all others where there is
/// none.
std::ptrdiff_t placeOf(const wxWindow& widget, const std::vector<Control*>& controls) {
  auto place = std::find(controls.begin(), controls.end(), controlOf(widget)) - controls.begin();
  for (const auto* child : widget.GetChildren()) place = std::min(place, placeOf(*child, controls));
  return place;
}

}  // namespace

void putInTabOrder(wxWindow& parent, const Form& form) {
  const auto behindAll = static_cast<std::ptrdiff_t>(form.controls().size());
  std::vector<Placed> placed;
  for (auto* child : parent.GetChildren()) {
    if (child->IsTopLevel()) continue;
    placed.push_back({placeOf(*child, form.controls()), child});
    putInTabOrder(*child, form);
  }
  // What is no control's, such as the head of a group of options, stays in front of what it was made for.
  for (std::size_t i = placed.size(); i-- > 1;) {
    if (placed[i - 1].place == behindAll) placed[i - 1].place = placed[i].place;
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const Placed& left, const Placed& right) { return left.place < right.place; });
  for (std::size_t i = 1; i < placed.size(); ++i) {
    placed[i].widget->MoveAfterInTabOrder(placed[i - 1].widget);
  }
}

}  // namespace varnhold::ui::wx
