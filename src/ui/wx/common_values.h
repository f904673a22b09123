#pragma once

#include <memory>
#include <string>

#include "ui/controls/control.h"

class wxWindow;

/// What all binders share.
namespace varnhold::ui::wx {

/// Shows on the widget what every control has: enabled, visible, tool tip, pointer, back colour. True when
/// the widget was enabled or disabled, or came or went, by it.
bool syncCommonValues(wxWindow& widget, const Control& control);

/// Shows the caption on the widget, which takes the room it needs.
void showCaption(wxWindow& widget, const std::string& caption);

/// Lays out the widget's form anew, once, on the next turn of the event loop: a widget came, went, or needs
/// another size. The form grows where it has become too small. `refit`: a form that the user can't size also
/// shrinks to what it then needs.
void layoutSoon(wxWindow& widget, bool refit = false);

/// Gives the view to the widget that it stands for: it goes when the widget goes.
void keepView(wxWindow& widget, Control& control, std::unique_ptr<ControlView> view);
/// The control that the widget was made for, or nothing. The control may be gone by now: only compare it.
[[nodiscard]] const Control* controlOf(const wxWindow& widget);

/// Sets the pointer over a widget or window; `Default` leaves it to what it stands in.
void setPointer(wxWindow& window, Pointer pointer);

/// The keyboard focus is in the widget.
[[nodiscard]] bool hasFocus(const wxWindow& widget);

}  // namespace varnhold::ui::wx
