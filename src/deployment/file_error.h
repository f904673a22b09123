#pragma once

#include <string_view>

#include "base/runtime_error.h"
#include "platform/files.h"

namespace varnhold::deployment {

/// The run-time error for a file operation that did not end with Done: kFileNotFound, kPermissionDenied,
/// kDiskFull, or kPathFileAccess for a file that must not be there. `task` completes "Could not ...", such as
/// "write"; the description names the path and what to do. It never holds what was to be written.
[[nodiscard]] RuntimeError fileError(platform::FileOutcome outcome, std::string_view task,
                                     std::string_view path);

}  // namespace varnhold::deployment
