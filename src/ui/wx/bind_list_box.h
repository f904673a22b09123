#pragma once

#include "ui/controls/list_box.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A list of entries, made in `parent`, which owns it.
wxWindow* bindListBox(wxWindow* parent, ui::ListBox& list);

}  // namespace varnhold::ui::wx
