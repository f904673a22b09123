#pragma once

#include "ui/controls/splitter.h"

class wxWindow;

namespace varnhold::ui::wx {

/// The bar between `left` and what stands to the right of it, made in their common parent, which owns it: it
/// keeps `left` as wide as the bar's position says. The caller puts it between them.
wxWindow* bindSplitter(wxWindow* left, ui::Splitter& splitter);

/// What shows where a bar beside `beside` would come while it is dragged: it lies over the others, in no
/// sizer.
wxWindow* bindSplitterGhost(wxWindow* beside, ui::Splitter& splitter);

}  // namespace varnhold::ui::wx
