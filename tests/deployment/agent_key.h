#pragma once

namespace varnhold::deployment {

/// The Varnhold agent's key in the manager's registry.
inline constexpr const char* kAgentKey = R"(SOFTWARE\Kelmont Works\Varnhold\Agent)";

}  // namespace varnhold::deployment
