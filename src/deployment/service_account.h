#pragma once

#include <cstdint>
#include <string>

#include "platform/service_control.h"

namespace varnhold::core {
struct Program;
}

/// The account that the agent service of this computer logs on with: agentless monitoring reads the logs of
/// other computers under it. What goes wrong is told in `AILog.txt`; it neither sets `ErrorsSeen` nor stops
/// the wizard. Main thread.
namespace varnhold::deployment {

class frmTargets;

/// Shows the account on the agentless page: a named one locked, "LocalSystem" as open boxes. True when it is
/// "LocalSystem" or none is told; false for a named one, and where it cannot be read. Raises the errors of
/// `AppendDeploymentLog`.
bool ShowAgentlessAccount(core::Program& program, frmTargets& form);

/// Gives the typed account the right to log on as a service, and the service that account. A run-time error
/// is shown.
void ChangeServiceAccount(core::Program& program, frmTargets& form);

/// True when the account holds the service logon right on the system, an empty name being this computer.
/// "LocalSystem", in exactly these letters, needs none. Raises the errors of `ClosedLibraries`.
[[nodiscard]] bool GrantLogonAsService(core::Program& program, const std::string& systemName,
                                       const std::string& account);

/// True when the service has the account from its next start on; otherwise `error` is the host's number.
[[nodiscard]] bool SetServiceAccount(core::Program& program, const platform::ServiceHandle& service,
                                     const std::string& account, const std::string& password,
                                     std::uint32_t& error);

}  // namespace varnhold::deployment
