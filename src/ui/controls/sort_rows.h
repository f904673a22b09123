#pragma once

#include "ui/controls/constants.h"
#include "ui/controls/list_items.h"

namespace varnhold::ui {

/// Sorts rows by the text of a column (0 is the first), case ignored; rows of equal text keep their order,
/// whichever way it goes.
void sortRows(ListItems::Rows& rows, int column, SortOrder order);

}  // namespace varnhold::ui
