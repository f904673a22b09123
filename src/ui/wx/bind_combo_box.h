#pragma once

#include "ui/controls/combo_box.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A list that drops down, made in `parent`, which owns it.
wxWindow* bindComboBox(wxWindow* parent, ui::ComboBox& combo);

}  // namespace varnhold::ui::wx
