#pragma once

#include <string>

#include "core/program.h"

namespace varnhold::deployment {

/// True when the inventory holds a Varnhold agent of the system that is marked as agentless. False in every
/// other case, any run-time error included. The name is spliced into the filter as it stands. Main thread.
[[nodiscard]] bool IsAgentlessSystem(core::Program& program, const std::string& systemName);

}  // namespace varnhold::deployment
