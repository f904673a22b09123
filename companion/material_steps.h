#pragma once

#include <functional>

#include "companion/job.h"

/// How the manager's files come to a computer, for an install and for an upgrade.
namespace varnhold::companion {

/// Does a file of that name, below the agent's folder, stay as it is where the computer has it?
using StaysAsItIs = std::function<bool(const std::string& name)>;

/// Brings the list of files and then the files.
[[nodiscard]] Win32Error bringMaterial(JobContext& context, const StaysAsItIs& staysAsItIs);

/// The custom configuration takes the place of the agent's; applies only when one was given.
[[nodiscard]] Win32Error copyConfigFile(JobContext& context);
[[nodiscard]] bool hasConfigFile(const JobContext& context);

}  // namespace varnhold::companion
