#pragma once

#include <cstdint>
#include <string>

#include "core/program.h"

namespace varnhold::deployment {

/// Makes sure that the system has its row in the inventory before any remote work: looks it up and, where it
/// is not there, has the closed library find and store it, and looks again. 1 when the row is there, -1
/// ("System not responding") when it is not. The name is spliced into the filter as it stands. Errors as for
/// `store::Recordset` and `ClosedLibraries`. Main thread.
[[nodiscard]] std::int32_t EnsureSystemRegistered(core::Program& program, const std::string& systemName);

}  // namespace varnhold::deployment
