#pragma once

#include "ui/controls/check_box.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A box to tick, made in `parent`, which owns it.
wxWindow* bindCheckBox(wxWindow* parent, ui::CheckBox& box);

}  // namespace varnhold::ui::wx
