#pragma once

#include <string_view>

namespace varnhold::companion {

/// What tells one kind of agent from another on a computer.
struct AgentProduct {
  std::string_view serviceName;
  std::string_view serviceDescription;
  std::string_view serviceProgram;  ///< file in the agent's folder
  std::string_view registryKey;     ///< below HKEY_LOCAL_MACHINE
  std::string_view fileFolder;      ///< beside "remins" on the manager: the files of the agent itself
  std::string_view configuration;   ///< the agent's settings in its folder
  std::string_view snapshotFolder;  ///< in the agent's folder, what it has recorded; empty: nothing
};

inline constexpr AgentProduct kVarnholdAgent{
    "Varnhold Agent",
    "Watches the event logs of this computer and reports to the Varnhold manager.",
    "vhagent.exe",
    R"(SOFTWARE\Kelmont Works\Varnhold\Agent)",
    "Agent",
    "vhaconfig.ini",
    "",
};

inline constexpr AgentProduct kTessmarkAgent{
    "TkwService",     "Records snapshots of this computer and reports changes to the Tessmark manager.",
    "TkwService.exe", R"(SOFTWARE\Kelmont Works\Tessmark\Agent)",
    "Agent",          "tkwconfig.ini",
    "Snapshots",
};

/// The folder of the installation material, on the manager and below the agent's folder.
inline constexpr std::string_view kMaterialFolder = "remins";
/// The setup information among the installation material.
inline constexpr std::string_view kSetupFile = "vhsetup.ins";
/// The remedial action scripts, in the agent's folder.
inline constexpr std::string_view kScriptsFolder = "scripts";

}  // namespace varnhold::companion
