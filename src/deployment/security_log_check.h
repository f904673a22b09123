#pragma once

#include <cstdint>

#include "core/program.h"
#include "deployment/run_screen.h"

namespace varnhold::deployment {

/// Can the Security log of the system in a row (from 1) be opened? The engines ask before agentless work.
/// When it cannot, the log and the row's status column say why and `ErrorsSeen` is set. Raises the errors of
/// `AppendDeploymentLog`; the status column is not set then. Main thread.
[[nodiscard]] bool CheckRemoteSecurityLog(core::Program& program, RunScreen& screen, std::int32_t row);

}  // namespace varnhold::deployment
