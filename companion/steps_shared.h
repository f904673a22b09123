#pragma once

#include "companion/agent_files.h"
#include "companion/job.h"

/// Steps and parts of steps that the jobs share.
namespace varnhold::companion {

/// Reaches the computer's share. Where the computer demands an account, its shares must be connected, or the
/// job must carry that account.
[[nodiscard]] Win32Error reach(JobContext& context);
[[nodiscard]] Win32Error openRegistry(JobContext& context);
[[nodiscard]] Win32Error openServiceManager(JobContext& context);
/// Stops the agent's service; applies only while it runs.
[[nodiscard]] Win32Error stopService(JobContext& context);
[[nodiscard]] bool serviceRuns(const JobContext& context);
/// One that runs already will do.
[[nodiscard]] Win32Error startService(JobContext& context);

[[nodiscard]] NamedValue textValue(const std::string& name, const std::string& text);
[[nodiscard]] NamedValue numberValue(const std::string& name, std::int32_t number);

[[nodiscard]] bool isVarnholdAgent(const JobContext& context);
/// Reads what the computer knows of an agent on it: its folder from the registry, its service.
void readEarlierAgent(JobContext& context);
/// A text value of the agent's key, up to its first NUL.
[[nodiscard]] std::optional<std::string> agentValue(JobContext& context, std::string_view name);

/// The list of an agent's files in its folder; where there is none, the names of the material.
[[nodiscard]] AgentFiles agentFilesIn(JobContext& context, const std::string& folder);
/// Removes the files of the list, the list, and the folders that are empty then.
[[nodiscard]] Win32Error removeAgentFiles(JobContext& context, const std::string& folder);

}  // namespace varnhold::companion
