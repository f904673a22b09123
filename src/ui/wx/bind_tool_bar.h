#pragma once

#include "ui/controls/tool_bar.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A bar of buttons with captions and pictures, made in `parent`, which owns it.
wxWindow* bindToolBar(wxWindow* parent, ui::ToolBar& bar);

}  // namespace varnhold::ui::wx
