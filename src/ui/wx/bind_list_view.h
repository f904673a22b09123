#pragma once

#include "ui/controls/list_view.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A widget that shows the list, made in `parent`, which owns it.
wxWindow* bindListView(wxWindow* parent, ui::ListView& list);

}  // namespace varnhold::ui::wx
