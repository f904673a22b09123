#pragma once

#include "platform/ui.h"
#include "store/connection.h"
#include "ui/controls/list_view.h"

/// The status of a computer: words made from the agents that the inventory knows on it. The words in the
/// list are the program's working record of what is installed; commands decide by them.
namespace varnhold::console {

/// The columns of the computer list behind the name, as `SubItems` counts them.
enum ComputerColumn : int { kTypeColumn = 1, kDescriptionColumn = 2, kStatusColumn = 3, kPortColumn = 4 };

/// Writes status and port into the rows of `list` from `startIndex` on, whose names and types are there and
/// whose status is empty. One pass over `Module_Table`; an agent's row counts for every list row of its name,
/// case ignored. A `Module_Table` without the column `SystemType` and empty ports are tolerated. At any other
/// error of the database: false, its description in a critical box, and the rows as far as they came. Main
/// thread.
[[nodiscard]] bool LoadAgentStatus(store::Connection& connection, ui::ListView& list, int startIndex,
                                   platform::Ui& ui);

}  // namespace varnhold::console
