#include "startup/mdMain.h"

#include "base/runtime_error.h"
#include "core/registry_values.h"
#include "startup/command_line_installer.h"
#include "startup/surroundings.h"

namespace varnhold::startup {
namespace {

constexpr int kDone = 0, kFailed = 1;

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

void leaveToPreviousInstance(core::Program& program) {
  if (SwitchToPreviousInstance(program)) return;
  program.host.ui.messageBox(
      "You are already running an instance of 'Quorvane Management Console'. Please switch to it manually "
      "as error was encountered while trying to switch to the previous instance.",
      platform::MessageIcon::Exclamation);
}

void runCommandLineMode(core::Program& program) {
  openInventory(program);
  readInstallPath(program);
  readLocalName(program);
  RunCommandLine(program);
}

}  // namespace

int Main(core::Program& program, const ConsoleMode& console) {
  program.gClosing = false;
  const auto commandLine = program.host.environment.commandLine();
  if (commandLine.empty() && program.host.desktop.isPreviousInstanceRunning(program.AppTitle)) {
    leaveToPreviousInstance(program);
    return kDone;
  }
  if (!enterProgramFolder(program)) {
    program.host.ui.systemModalBox("Could not set the working directory. Aborting...",
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

bool SwitchToPreviousInstance(core::Program& program) {
  auto& desktop = program.host.desktop;
  // The blank tells the console's window from others that bear the bare title.
  const auto window = desktop.findWindow(program.AppTitle + " ");
  if (window == 0) return false;
  if (!desktop.setForegroundWindow(window)) return false;
  // A window that was not visible before counts as a failure too.
  return desktop.showWindow(window, platform::ShowState::Maximised);
}

}  // namespace varnhold::startup
