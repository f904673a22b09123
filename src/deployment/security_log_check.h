#pragma once

#include <cstdint>
#include <string>

#include "core/program.h"
#include "deployment/run_screen.h"

namespace varnhold::deployment {

/// What is told of a system that is skipped: the log's record and the text of the row's status column.
struct SkipReport {
  std::string logged, status;
};
/// With the host's words for the error number, or without any.
[[nodiscard]] SkipReport skipReport(core::Program& program, const std::string& systemName,
                                    std::uint32_t error);

/// Can the Security log of the system in a row (from 1) be opened? The engines ask before agentless work.
/// When it cannot, the log and the row's status column say why and `ErrorsSeen` is set. Raises the errors of
/// `AppendDeploymentLog`; the status column is not set then. Main thread.
[[nodiscard]] bool CheckRemoteSecurityLog(core::Program& program, RunScreen& screen, std::int32_t row);

}  // namespace varnhold::deployment
