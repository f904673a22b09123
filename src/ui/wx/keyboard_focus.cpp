#include "ui/wx/keyboard_focus.h"

#include <algorithm>

#include "ui/controls/form.h"
#include "ui/wx/common_values.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {
namespace {

bool keysAreHeard() {
  const auto* focus = wxWindow::FindFocus();
  return focus != nullptr && focus->IsEnabled() && focus->IsShownOnScreen();
}

wxWindow* widgetIn(wxWindow& place, const Control& control) {
  if (controlOf(place) == &control) return &place;
  for (auto* child : place.GetChildren()) {
    if (auto* found = widgetIn(*child, control)) return found;
  }
  return nullptr;
}

Control* nextInTabOrder(const Form& form, const Control* dark) {
  if (auto* behind = dark == nullptr ? nullptr : form.focusableBehind(*dark)) return behind;
  const auto& all = form.controls();
  const auto first = std::find_if(all.begin(), all.end(), [](const Control* control) {
    return control->takesFocus() && control->isReachable();
  });
  return first == all.end() ? nullptr : *first;
}

}  // namespace

void keepKeysHeard(wxWindow& widget, const Form& form, const Control* dark) {
  auto& top = dynamic_cast<wxTopLevelWindow&>(*wxGetTopLevelParent(&widget));
  if (!form.acceptsInput() || !top.IsActive()) return;
  if (const auto* active = form.ActiveControl()) {
    auto* focused = keysAreHeard() ? nullptr : widgetIn(top, *active);
    if (focused != nullptr) focused->SetFocus();
  } else if (auto* next = nextInTabOrder(form, dark)) {
    next->userFocus();
  }
}

}  // namespace varnhold::ui::wx
