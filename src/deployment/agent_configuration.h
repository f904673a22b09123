#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/program.h"
#include "platform/closed_libraries.h"

/// Which agent configuration file is prepared, in which folder, for which mode, and when. The files' contents
/// are written by the closed library. Main thread; errors as for `ClosedLibraries`.
namespace varnhold::deployment {

/// Folder of the installation material below the folder of a product.
[[nodiscard]] std::string libraryPath(const std::string& productFolder);
/// Folder of the manager's copy of the agent.
[[nodiscard]] std::string agentFolder(const std::string& installerDir);
/// The agent's library in its folder, without extension, as the closed library takes it.
[[nodiscard]] std::string agentLibraryPath(const std::string& folder);
/// The agent's settings in its folder.
[[nodiscard]] std::string agentIniPath(const std::string& folder);

/// The ways an agent gets to a target, as far as its settings differ.
enum class DeploymentPath {
  Install,  ///< agent based Varnhold agent, by wizard or command line
  UpgradeOverDomain,
  UpgradeOverIP,
  Agentless,
  Tessmark,
};

/// The mode that `vhaconfig.ini` is edited for before a deployment; nothing where the file is not touched.
[[nodiscard]] std::optional<std::int32_t> agentIniMode(DeploymentPath path, bool highPerformance);

/// Edits the manager's `vhaconfig.ini` for a mode; false when the library could not.
[[nodiscard]] bool prepareAgentIni(platform::ClosedLibraries& libraries, const std::string& installerDir,
                                   std::int32_t mode);

/// What stands before the start of an install.
struct Preparation {
  bool ready = false;     ///< the job may start
  std::int32_t code = 0;  ///< the result code that is set already when it may not; 0 is none
};

/// Before an agent based Varnhold install: the agent's settings and then, only when that worked,
/// `vhsetup.ins` for the target. The library may write `systemName` and `installDirectory` back. Code 801
/// when `vhsetup.ins` was not written; no code when the settings were not.
[[nodiscard]] Preparation prepareAgentInstall(platform::ClosedLibraries& libraries,
                                              const std::string& installerDir, std::string& systemName,
                                              std::string& installDirectory, std::int32_t agentMode,
                                              bool highPerformance);

/// Before a Tessmark install: `vhsetup.ins` for the target, below the Tessmark product's folder. As above.
[[nodiscard]] Preparation prepareTessmarkInstall(platform::ClosedLibraries& libraries,
                                                 const std::string& changesRoot, std::string& systemName,
                                                 std::string& installDirectory);

/// The mode of the agents that an over-IP upgrade is for; only this path hands out high performance.
/// `chkHPMode` is the value of that check box, which counts only for agents that are not agentless.
[[nodiscard]] std::int32_t overIPAgentMode(bool optAgentbased, std::int32_t chkHPMode);

/// Once per run before an over-IP upgrade: `vhsetup.ins` with the manager's own name and folder, and the mode
/// of `overIPAgentMode`. False ends the run.
[[nodiscard]] bool prepareOverIPUpgrade(core::Program& program, bool optAgentbased, std::int32_t chkHPMode);

/// Where agents report back to: writes this computer's address as `ConfigIPAddr` and then `enableprotection`.
/// A step that fails skips all the rest, in silence.
void writeConfigIPAddr(core::Host& host);

}  // namespace varnhold::deployment
