#pragma once

#include <string>

#include "core/program.h"
#include "deployment/run_screen.h"

/// The administrative shares of a target under the account that the operator logged in with. Both do nothing
/// at all unless `gLoginDomain` and `gLoginUser` are set. What the host's command answers is not looked at.
/// Main thread.
namespace varnhold::deployment {

/// Connects C$ and then D$. The command holds the password: it stands in a batch file that only its owner may
/// read, that lives for as long as the command needs, and nowhere else. A batch file that cannot be made
/// raises the RuntimeError of `fileError`.
void ConnectAdminShares(core::Program& program, RunScreen& screen, const std::string& systemName);

/// Disconnects C$ and then D$ in the same way.
void DisconnectAdminShares(core::Program& program, RunScreen& screen, const std::string& systemName);

/// Removes the batch file that a killed console has left, unless a console runs, whose it may be. Says
/// nothing of a file that cannot be removed.
void removeLeftBatchFile(core::Program& program);

}  // namespace varnhold::deployment
