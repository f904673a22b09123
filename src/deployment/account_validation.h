#pragma once

namespace varnhold::core {
struct Program;
}

/// The wizard's checks of a typed account: the boxes, and then a logon on this computer, which sends nothing
/// to any target and does not prove that the account is an administrator anywhere. What is wrong is shown in
/// an exclamation box and the answer is false. Main thread.
namespace varnhold::deployment {

class frmTargets;

/// The account of the page "Log on as", where a named account is selected; true at once where it is not.
[[nodiscard]] bool ValidateLogonAccount(core::Program& program, frmTargets& form);

/// The account of the agentless page, always.
[[nodiscard]] bool ValidateAgentlessAccount(core::Program& program, frmTargets& form);

}  // namespace varnhold::deployment
