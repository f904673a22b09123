#pragma once

#include "ui/controls/progress_bar.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A bar that fills, made in `parent`, which owns it.
wxWindow* bindProgressBar(wxWindow* parent, ui::ProgressBar& bar);

}  // namespace varnhold::ui::wx
