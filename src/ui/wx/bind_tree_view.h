#pragma once

#include "ui/controls/tree_view.h"

class wxWindow;

namespace varnhold::ui::wx {

/// A widget that shows the tree, made in `parent`, which owns it.
wxWindow* bindTreeView(wxWindow* parent, ui::TreeView& tree);

}  // namespace varnhold::ui::wx
