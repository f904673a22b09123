#include "startup/command_line_installer.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "deployment/agent_configuration.h"
#include "deployment/file_error.h"
#include "deployment/run_log.h"
#include "startup/command_line.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

namespace varnhold::startup {
namespace {

std::vector<std::string> computersOfFile(core::Program& program, const std::string& path) {
  const auto content = program.host.files.read(path);
  if (!content) throw deployment::fileError(platform::FileOutcome::Refused, "read", path);
  return computersOfList(*content);
}

void handleComputers(core::Program& program, const std::vector<std::string>& computers,
                     const std::string& path) {
  for (const auto& computer : computers) {
    if (trimBlanks(computer).empty()) continue;
    // The untrimmed name goes on, deliberately.
    if (program.gCliAction == kCliInstall || program.gCliAction == kCliInstallHighPerformance) {
      CliInstall(program, computer, path);
    }
    if (program.gCliAction == kCliUninstall) CliUninstall(program, computer);
  }
}

void runOnFile(core::Program& program, const CommandLine& line) {
  const auto path = program.host.environment.programFolder() + "\\" + trimBlanks(line.value);
  if (!program.host.files.exists(path)) {
    return WriteAILog(program, "File not found. Unable to load system list.");
  }
  handleComputers(program, computersOfFile(program, path), line.path);
}

void run(core::Program& program) {
  const auto line = parseCommandLine(program.host.environment.commandLine());
  program.gCliAction = line.action;
  if (line.kind == CommandLineKind::Usage) return WriteUsage(program);
  const bool isFile = line.target == TargetKind::File;
  if (line.kind == CommandLineKind::EmptyValue) {
    return WriteAILog(program, isFile ? "No file name specified." : "No system name specified.");
  }
  if (isFile) return runOnFile(program, line);
  handleComputers(program, {line.value}, line.path);
}

}  // namespace

void RunCommandLine(core::Program& program) {
  try {
    run(program);
  } catch (const RuntimeError& error) {
    WriteAILog(program, "Error : [" + std::to_string(error.number()) + "] : " + error.description());
  }
}

void WriteAILog(core::Program& program, std::string_view message) {
  deployment::appendLogLines(program.host.files, program.gAppPath,
                             {deployment::stampedLine(program.host.clock.getLocalTime(), message)});
}

void WriteUsage(core::Program& program) {
  deployment::appendLogLines(
      program.host.files, program.gAppPath,
      {deployment::stampedLine(program.host.clock.getLocalTime(), "Invalid command line parameter."),
       "Usage: AgentInstaller.exe -I/-U -N:<System>/-F:<FileName> [-P:<Install Path>]",
       "-I : Agent Installation(Agent based)", "-U : Agent Uninstallation", "-N : System Name or IP address",
       "-F : Filename Containing System List", "-P : Install path. Applicable only for agent installation."});
}

std::int16_t CliRegisterSystem(core::Program& program, const std::string& systemName) {
  store::Recordset systems;
  systems.Open(std::string(store::mdDataBase::kSystemTable), program.gConn, store::CursorType::ForwardOnly,
               store::LockType::ReadOnly);
  systems.setFilter(store::statements::fill(store::statements::kSystemNameFilter, {{"name", systemName}}));
  const bool isKnown = !systems.Bof() && !systems.Eof();
  systems.Close();
  if (isKnown) return 1;
  platform::SystemDetails details;
  details.SystemName = systemName;
  if (!program.host.libraries.qrvFindSystemAndReturnDetails(details)) return -1;
  return program.host.libraries.qrvUpdateSystemDetailsInDB(details) ? 1 : -1;
}

platform::ThreadHandle CliStartJob(core::Program& program, platform::DeploymentJob& job) {
  const auto libraryPath = deployment::libraryPath(program.gInstallerDir);
  if (program.gCliAction == kCliInstall) return program.host.libraries.qrvCInstall(job, libraryPath);
  if (program.gCliAction == kCliUninstall) return program.host.libraries.qrvCUninstall(job, libraryPath);
  return 0;
}

}  // namespace varnhold::startup
