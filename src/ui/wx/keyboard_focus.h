#pragma once

class wxWindow;

namespace varnhold::ui {
class Control;
class Form;
}  // namespace varnhold::ui

namespace varnhold::ui::wx {

/// Sees to it that someone hears the keys where the widget that had the focus went dark or away: the host may
/// let it keep the focus, or leave it to nobody, and then not even the form hears them. The control that the
/// form holds for the focused one gets it back; where there is none, the next behind `dark` in tab order
/// takes it as if the user had moved it there, the first one where `dark` is nothing. Nothing while the form
/// can't be worked on: it is done again when the form's window becomes the active one. `widget` is any widget
/// of the form. Runs handlers: called from the event loop, as an act.
void keepKeysHeard(wxWindow& widget, const Form& form, const Control* dark);

}  // namespace varnhold::ui::wx
