#include "deployment/job.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/mdCommon.h"
#include "deployment/agent_configuration.h"
#include "deployment/result_catalogue.h"

namespace varnhold::deployment {
namespace {

constexpr std::int32_t kHighestTarget = 99;

platform::ThreadHandle startUpgrade(core::Program& program, const JobChoices& choices,
                                    platform::DeploymentJob& job, const std::string& materialFolder) {
  job.RemedialFlag = static_cast<std::uint8_t>(choices.chkUpgradeRemedialActionScripts);
  job.UseDefaultConfig = job.ConfigFile.empty() ? 1 : 0;
  if (choices.optWinDom) return program.host.libraries.qrvCUpgradeAgent(job, materialFolder);
  if (!choices.optOverIP) return 0;
  return program.host.libraries.qrvCUpgradeAgentOverIP(agentLibraryOverIP(program, materialFolder), job);
}

}  // namespace

std::string agentLibraryOverIP(core::Program& program, const std::string& materialFolder) {
  std::string folder = materialFolder;
  if (!core::RegReadValue(program.host.registry, platform::RegistryHive::LocalMachine, core::kAgentKey,
                          "InstallPath", folder)) {
    folder = materialFolder;
  }
  return agentLibraryPath(folder);
}

platform::ThreadHandle StartDeploymentJob(core::Program& program, const JobChoices& choices,
                                          platform::DeploymentJob& job) {
  const auto materialFolder = libraryPath(choices.optClient0 ? program.gInstallerDir : program.gChangesRoot);
  switch (choices.Operation) {
    case kOperationInstall:
      job.RemedialFlag = choices.chkCopyRemedialActionScripts == 1 ? 1 : 0;
      return program.host.libraries.qrvCInstall(job, materialFolder);
    case kOperationUninstall:
      return program.host.libraries.qrvCUninstall(job, materialFolder);
    case kOperationUpgrade:
      return startUpgrade(program, choices, job, materialFolder);
    default:
      return 0;
  }
}

std::int32_t waitForThread(platform::Threads& threads, platform::Clock& clock, platform::ThreadHandle thread,
                           const std::function<void()>& betweenPolls) {
  std::uint32_t exitValue = 0;
  while (threads.getExitCodeThread(thread, exitValue)) {
    if (exitValue != platform::kStillActive) {
      threads.closeHandle(thread);
      break;
    }
    if (betweenPolls) betweenPolls();
    clock.sleep(kPollPeriodMs);
  }
  return static_cast<std::int32_t>(exitValue - kResultCodeOffset);
}

std::int32_t resultWithoutThread(std::int32_t codeAlreadySet) {
  return codeAlreadySet == 0 ? kResultNotStarted : codeAlreadySet;
}

std::int32_t WaitForJob(core::Host& host, RunScreen& screen, platform::ThreadHandle thread,
                        std::int32_t codeAlreadySet, std::int32_t progressTarget) {
  if (thread == 0) return resultWithoutThread(codeAlreadySet);
  return waitForThread(host.threads, host.clock, thread, [&] {
    if (screen.progress() < progressTarget) screen.setProgress(screen.progress() + 1);
    screen.pumpEvents();
  });
}

std::int32_t progressStep(std::int32_t systemCount) {
  return systemCount > 0 ? static_cast<std::int32_t>(std::lrint(100.0 / systemCount)) : 0;
}

std::int32_t progressTarget(std::int32_t progress, std::int32_t step) {
  return std::min(progress + step, kHighestTarget);
}

}  // namespace varnhold::deployment
