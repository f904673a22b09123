#pragma once

#include <functional>
#include <map>
#include <string>

class wxWindow;

namespace varnhold::ui {
class Form;
}

namespace varnhold::ui::wx {

/// Lays out a form: makes the widgets of its controls in `inside`, binds them, and gives `inside` a sizer.
/// Menus and timers are nobody's business here.
using View = std::function<void(wxWindow& inside, Form& form)>;

/// Views by the name of the form that they lay out.
using Views = std::map<std::string, View>;

/// The view of a form of the class `FormKind`.
template <class FormKind>
[[nodiscard]] View viewOf(void (*layOut)(wxWindow& inside, FormKind& form)) {
  return [layOut](wxWindow& inside, Form& form) { layOut(inside, static_cast<FormKind&>(form)); };
}

/// The views of all forms of the program.
[[nodiscard]] Views allViews();

}  // namespace varnhold::ui::wx
