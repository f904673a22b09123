#pragma once

#include <wx/arrstr.h>
#include <wx/ctrlsub.h>

#include "ui/controls/item_box.h"

namespace varnhold::ui::wx {

/// Makes the widget hold the control's entries. True where they were others before, so that the widget's
/// selection is gone.
bool showEntries(wxItemContainer& widget, const ItemBox& box);

}  // namespace varnhold::ui::wx
