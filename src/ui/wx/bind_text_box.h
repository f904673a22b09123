#pragma once

#include "ui/controls/text_box.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A box of text, made in `parent`, which owns it. Several lines and a password are as the design says.
wxWindow* bindTextBox(wxWindow* parent, ui::TextBox& box);

}  // namespace varnhold::ui::wx
