#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/program.h"
#include "deployment/run_screen.h"
#include "platform/clock.h"
#include "platform/closed_libraries.h"
#include "platform/threads.h"

/// Starting a deployment job and waiting for it. All work on a target is done by a worker thread of the
/// closed library; at most one is alive at a time. Main thread.
namespace varnhold::deployment {

/// The time between two looks at a job's thread.
inline constexpr std::uint32_t kPollPeriodMs = 200;
/// A job's thread ends with this plus its result code.
inline constexpr std::uint32_t kResultCodeOffset = 1000;

/// What a run does; the number that the menu command sets before the wizard opens.
enum DeploymentOperation : std::int32_t {
  kOperationInstall = 1,
  kOperationUninstall = 2,
  kOperationUpgrade = 3,
};

/// The wizard's choices that decide how a job starts, under the names of its controls. A check box holds 0
/// unchecked, 1 checked, 2 greyed.
struct JobChoices {
  std::int32_t Operation = 0;  ///< a DeploymentOperation; any other number starts nothing
  bool optClient0 = false;     ///< the Varnhold agent, else the Tessmark agent
  std::int32_t chkCopyRemedialActionScripts = 0;
  std::int32_t chkUpgradeRemedialActionScripts = 0;
  bool optWinDom = false;  ///< upgrade over the Windows domain
  bool optOverIP = false;  ///< upgrade over IP; looked at only when `optWinDom` is not set
};

/// Starts the job that `choices.Operation` names and sets the job's `RemedialFlag` and `UseDefaultConfig`
/// where that operation uses them. The library may change the job's strings. 0 when no thread was started.
/// Errors as for `ClosedLibraries` and, for an upgrade over IP, `RegReadValue`.
[[nodiscard]] platform::ThreadHandle StartDeploymentJob(core::Program& program, const JobChoices& choices,
                                                        platform::DeploymentJob& job);

/// The agent library of an upgrade over IP: that of the agent on this computer, or, where there is none, one
/// below `materialFolder`, "remins" included.
[[nodiscard]] std::string agentLibraryOverIP(core::Program& program, const std::string& materialFolder);

/// Polls a worker thread every `kPollPeriodMs` until it has ended, closes its handle, and gives its exit
/// value less `kResultCodeOffset`. There is no time-out: a hung library call hangs the run. When a poll
/// itself fails, the handle stays open and the exit value is the one that was last read, at first 0 (which
/// gives -1000). `betweenPolls` runs before each sleep. `thread` must not be 0.
[[nodiscard]] std::int32_t waitForThread(platform::Threads& threads, platform::Clock& clock,
                                         platform::ThreadHandle thread,
                                         const std::function<void()>& betweenPolls = {});

/// The result code where no thread was started: the one that was set on the way there, else 710.
[[nodiscard]] std::int32_t resultWithoutThread(std::int32_t codeAlreadySet);

/// Waits as `waitForThread`, moving the progress bar by 1 towards `progressTarget` and pumping events between
/// polls. With thread 0 gives `resultWithoutThread(codeAlreadySet)`; the code is looked at only then.
[[nodiscard]] std::int32_t WaitForJob(core::Host& host, RunScreen& screen, platform::ThreadHandle thread,
                                      std::int32_t codeAlreadySet, std::int32_t progressTarget);

/// How far one system moves the progress bar: 100 divided by their number, rounded to a whole number (a half
/// to the even one); 0 for no systems.
[[nodiscard]] std::int32_t progressStep(std::int32_t systemCount);
/// Where the progress bar stands when the system at hand is done: at most 99.
[[nodiscard]] std::int32_t progressTarget(std::int32_t progress, std::int32_t step);

}  // namespace varnhold::deployment
