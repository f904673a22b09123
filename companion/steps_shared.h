#pragma once

#include "companion/agent_files.h"
#include "companion/job.h"

/// Steps and parts of steps that an install and an uninstall share.
namespace varnhold::companion {

[[nodiscard]] Win32Error reach(JobContext& context);
[[nodiscard]] Win32Error openRegistry(JobContext& context);
[[nodiscard]] Win32Error openServiceManager(JobContext& context);
/// Stops the agent's service; applies only while it runs.
[[nodiscard]] Win32Error stopService(JobContext& context);
[[nodiscard]] bool serviceRuns(const JobContext& context);

/// Reads what the computer knows of an agent on it: its folder from the registry, its service.
void readEarlierAgent(JobContext& context);
/// A text value of the agent's key, up to its first NUL.
[[nodiscard]] std::optional<std::string> agentValue(JobContext& context, std::string_view name);

/// The list of an agent's files in its folder; where there is none, the names of the material.
[[nodiscard]] AgentFiles agentFilesIn(JobContext& context, const std::string& folder);
/// Removes the files of the list, the list, and the folders that are empty then.
[[nodiscard]] Win32Error removeAgentFiles(JobContext& context, const std::string& folder);

}  // namespace varnhold::companion
