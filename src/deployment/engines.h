#pragma once

namespace varnhold::core {
struct Program;
}

/// The five engines of the wizard. Each works down the rows of `lvSystems`, one system at a time, and leaves
/// its outcome in the rows' second column, in `AILog.txt`, in the inventory and in the wizard's `ErrorsSeen`.
/// They pump events while they wait, so that `StopRequested` can be set; it is read between two systems. Main
/// thread.
namespace varnhold::deployment {

class frmTargets;

/// Installs the Varnhold agent, agent based or agentless. An error of a step is passed over, and the next
/// step runs.
void InstallAgents(core::Program& program, frmTargets& form);
/// Installs the Tessmark agent. Errors as above; in the engines below one is shown and ends the run.
void InstallChangeAgents(core::Program& program, frmTargets& form);
/// Takes the agent of the chosen product off.
void UninstallAgents(core::Program& program, frmTargets& form);
/// Upgrades over the Windows network.
void UpgradeAgents(core::Program& program, frmTargets& form);
/// Upgrades through the running agents, over a socket.
void UpgradeAgentsOverIP(core::Program& program, frmTargets& form);

}  // namespace varnhold::deployment
