#pragma once

#include "companion/job.h"

/// Parts of steps that the upgrade over the domain, the one over IP and the version check share.
namespace varnhold::companion {

/// The version that the manager brings along, from its own registry; kFileMissing without one.
[[nodiscard]] Win32Error readOwnVersion(JobContext& context);

/// Reads the agent on the computer, whose folder is the one to work in; false when there is none.
[[nodiscard]] bool readAgentToUpgrade(JobContext& context);
/// An agent that names no manager belongs to any.
[[nodiscard]] bool belongsToManager(JobContext& context);

enum class AgentAge { FirstVersion, Older, Same, Newer };
/// The agent's version beside the manager's; one that cannot be read counts as older.
[[nodiscard]] AgentAge compareVersions(JobContext& context);

/// Is that the mode that the agent is registered with?
[[nodiscard]] bool isInMode(JobContext& context, std::int32_t mode);
/// What the agent's configuration says there, and the manager's own for agents here.
[[nodiscard]] bool isHighPerformanceThere(JobContext& context);
[[nodiscard]] bool isHighPerformanceHere(JobContext& context);

enum class SetupInformationGoes { No, Yes };
/// Replaces the agent's files, all but its configuration and, unless the job asks for them, its remedial
/// action scripts.
[[nodiscard]] Win32Error replaceAgentFiles(JobContext& context, SetupInformationGoes setupInformationGoes);

/// Sets the mode in the agent's configuration, all else in it stays.
[[nodiscard]] Win32Error setModeThere(JobContext& context, bool isHighPerformance);

/// Version, mode and, when they came along, the remedial actions.
[[nodiscard]] Win32Error writeUpgradedValues(JobContext& context);

}  // namespace varnhold::companion
