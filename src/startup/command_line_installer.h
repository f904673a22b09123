#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/program.h"
#include "platform/closed_libraries.h"
#include "platform/threads.h"

/// The unattended twin of the deployment wizard: installs or uninstalls the Varnhold agent on the computers
/// that the command line names and tells the outcome in `AILog.txt` alone. `gConn` is open and `gAppPath`,
/// `gInstallerDir` and `gLocalName` are set before. One computer after the other, main thread; nothing waits
/// for a person.
///
/// A log that cannot be written raises the error of `deployment::fileError`. Where that happens while an
/// error is being logged, it leaves all routines here and ends the process.
namespace varnhold::startup {

/// Does what the command line says. Logs its own run-time errors as "Error : [<number>] : <description>".
void RunCommandLine(core::Program& program);

/// One computer's install for `gCliAction`. A run-time error is logged, costs the statement it happened in,
/// and the next one runs; a call that fails so counts as one with the result 0.
void CliInstall(core::Program& program, std::string systemName, std::string installPath);

/// One computer's uninstall. A run-time error is logged and ends the work on this computer.
void CliUninstall(core::Program& program, std::string systemName);

/// Adds a line with date and time to `AILog.txt` in `gAppPath`.
void WriteAILog(core::Program& program, std::string_view message);

/// Adds the usage block to the log.
void WriteUsage(core::Program& program);

/// 1 when the computer is in the inventory, or was found in the network and stored there; -1 when it can't be
/// found. Unlike the wizard's `EnsureSystemRegistered` it doesn't look again. Errors as for
/// `store::Recordset` and `ClosedLibraries`.
[[nodiscard]] std::int16_t CliRegisterSystem(core::Program& program, const std::string& systemName);

/// Starts the job that `gCliAction` names: 1 install, 2 uninstall; 0 for every other action and when no
/// thread was started. The job's strings may come back changed.
[[nodiscard]] platform::ThreadHandle CliStartJob(core::Program& program, platform::DeploymentJob& job);

}  // namespace varnhold::startup
