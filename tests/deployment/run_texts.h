#pragma once

#include <string>

/// What runs say, in the status column and in the log, and call.
namespace varnhold::deployment {

inline const std::string kTessmarkRemins = R"(C:\TESSMARK\remins)";
inline const std::string kSnapshotsKept =
    "Installed successfully - Previous snapshots found and retained. If you do not want to retain the "
    "previous snapshots, please uninstall the existing agent along with it's snapshots and reinstall. You "
    "can also remove the snapshots when you install Agent manually on the system.";
inline const std::string kTessmark180 =
    "Failed to create service. This may be due to insufficient premissions or network problems. Please "
    "verify network connectivity.";
inline const std::string kServiceNotStarted =
    "Installed successfully - Could not start the service automatically. Please try manually.";
inline const std::string kInaccessible = "Not Accessible, will be skipped.";
inline const std::string kRestart = "qrvRestartService MANAGER Varnhold Agent -> 1";
inline const std::string kFailed180 =
    "Failed to create service. This may be due to insufficient permission or network problems.";
inline const std::string kNotStarted =
    "Unknown error. This may be due to insufficient permission or network problems.";
inline const std::string kStandard = "Managed - Standard Mode";
inline const std::string kUpgraded = "Upgraded successfully";
inline const std::string kAgentless = "Managed - Agentless Mode";
inline const std::string kUninstalled = "Agent uninstalled successfully";
inline const std::string kNoService = "Agent service does not exist.";

}  // namespace varnhold::deployment
