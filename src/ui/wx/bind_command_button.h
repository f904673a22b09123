#pragma once

#include "ui/controls/command_button.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A push button, made in `parent`, which owns it.
wxWindow* bindCommandButton(wxWindow* parent, ui::CommandButton& button);

}  // namespace varnhold::ui::wx
