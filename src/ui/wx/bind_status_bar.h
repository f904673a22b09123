#pragma once

#include "ui/controls/status_bar.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A bar of panels, made in `parent`, which owns it.
wxWindow* bindStatusBar(wxWindow* parent, ui::StatusBar& bar);

}  // namespace varnhold::ui::wx
