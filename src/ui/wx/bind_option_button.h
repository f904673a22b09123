#pragma once

#include "ui/controls/option_button.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A round button of a group, made in `parent`, which owns it and is the widget of the control's container.
wxWindow* bindOptionButton(wxWindow* parent, ui::OptionButton& option);

}  // namespace varnhold::ui::wx
