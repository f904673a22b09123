#include "startup/mdMain.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "core/mdCommon.h"
#include "startup/command_line_installer.h"
#include "store/data_source.h"

namespace varnhold::startup {
namespace {

constexpr int kDone = 0, kFailed = 1;

bool readMachineValue(core::Program& program, const char* key, const char* name, std::string& value) {
  return core::RegReadValue(program.host.registry, platform::RegistryHive::LocalMachine, key, name, value);
}

bool enterProgramFolder(core::Program& program) {
  program.gAppPath = program.host.environment.programFolder();
  return program.host.environment.setCurrentDirectory(program.gAppPath);
}

/// A value that is there but empty counts: database paths are then relative to the root.
void readDatabaseFolder(core::Program& program) {
  if (!readMachineValue(program, core::kQuorvaneKey, "DBPath", program.gDbPath)) {
    program.gDbPath = program.gAppPath;
  }
}

void readInstallPath(core::Program& program) {
  std::string installPath;
  if (!readMachineValue(program, core::kManagerKey, "INSTALLPATH", installPath)) return;
  program.gEventsConsole = "\"" + installPath + "\\VHConsole.exe\"";
  program.gInstallerDir = installPath + "\\RemoteInstaller";
}

void readLocalName(core::Program& program) {
  const auto filled = program.host.environment.getComputerName();
  program.gLocalName = filled ? TrimAtNull(*filled) : "LocalHost";
}

void runCommandLineMode(core::Program& program) {
  program.gConn.Open(std::string(store::kDataSourceName), "", "", -1);
  readInstallPath(program);
  readLocalName(program);
  RunCommandLine(program);
}

}  // namespace

int Main(core::Program& program, const ConsoleMode& console) {
  const auto commandLine = program.host.environment.commandLine();
  if (!enterProgramFolder(program)) {
    program.host.ui.messageBox("Could not set the working directory. Aborting...",
                               platform::MessageIcon::Critical);
    return kFailed;
  }
  readDatabaseFolder(program);
  if (commandLine.empty()) return console(program);
  runCommandLineMode(program);
  return kDone;
}

int runProcess(core::Program& program, const ConsoleMode& console) {
  try {
    return Main(program, console);
  } catch (const RuntimeError& error) {
    program.host.ui.messageBox(
        "Run-time error " + std::to_string(error.number()) + ": " + error.description(),
        platform::MessageIcon::Critical);
    return kFailed;
  }
}

}  // namespace varnhold::startup
