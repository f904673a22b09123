#pragma once

#include "tests/ui/wx/stage.h"

/// What a form's window must be: every control is there, and nothing is cut off.
namespace varnhold::ui::wx {

/// A computer whose name takes more room than most.
inline const std::string kLongName = "A-COMPUTER-WITH-A-LONG-NAME.of-a-long-domain.example.internal";

/// The window in which the toolkit shows `control`, or nothing: `top` itself and all that stands in it
/// searched.
[[nodiscard]] const wxWindow* widgetOf(const wxWindow& top, const Control& control);

/// A failure for each control of the form that has no widget in its window.
void expectWidgetOfEach(const Form& form, const wxWindow& window);
/// A failure for each shown text or picture that has less room than it needs.
void expectNothingIsCutOff(const wxWindow& window);

}  // namespace varnhold::ui::wx
