#pragma once

#include "ui/controls/label.h"

class wxWindow;

namespace varnhold::ui::wx {

/// What a label does with a caption that is longer than its room: `Grow` takes more room, `Ellipsize` shows
/// as much as there is room for, `Wrap` breaks lines at 72 characters or so and takes the height it needs.
enum class LabelRoom { Grow, Ellipsize, Wrap };

/// A text, made in `parent`, which owns it.
wxWindow* bindLabel(wxWindow* parent, ui::Label& label, LabelRoom room = LabelRoom::Grow);

}  // namespace varnhold::ui::wx
