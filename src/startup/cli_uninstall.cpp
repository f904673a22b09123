#include "base/runtime_error.h"
#include "base/text.h"
#include "deployment/agent_rows.h"
#include "deployment/job.h"
#include "deployment/result_catalogue.h"
#include "startup/command_line_installer.h"
#include "store/command.h"
#include "store/statements.h"

namespace varnhold::startup {
namespace {

platform::DeploymentJob newJob(core::Program& program, const std::string& systemName) {
  platform::DeploymentJob job;
  job.SystemName = R"(\\)" + systemName;
  job.AgentKind = deployment::IsAgentlessSystem(program, systemName) ? 1 : 0;
  return job;
}

void forgetAgent(core::Program& program, const std::string& systemName) {
  store::Command command;
  command.ActiveConnection = &program.gConn;
  command.CommandText =
      store::statements::fill(store::statements::kForgetVarnholdAgent, {{"name", systemName}});
  command.Execute();
}

void uninstall(core::Program& program, std::string& systemName) {
  if (equalsIgnoringCase(systemName, program.gLocalName)) {
    return WriteAILog(program, "Uninstallation skipped for " + systemName +
                                   ". Because Varnhold Manager is running on this system.");
  }
  std::string address;
  if (program.host.libraries.qrvGetSystemIPAddress(systemName, address)) systemName = TrimAtNull(systemName);
  auto job = newJob(program, systemName);
  const auto thread = CliStartJob(program, job);
  // A missing thread leaves the result at 0 here, deliberately unlike the install's 710.
  const auto result =
      thread == 0 ? 0 : deployment::waitForThread(program.host.threads, program.host.clock, thread);
  if (result == deployment::kResultUninstalled) {
    forgetAgent(program, systemName);
    return WriteAILog(program, systemName + ": Agent uninstalled successfully.");
  }
  WriteAILog(program, "Could not uninstall Varnhold Agent on " + systemName +
                          ". Error: " + deployment::VarnholdResultText(result, systemName));
}

}  // namespace

void CliUninstall(core::Program& program, std::string systemName) {
  try {
    uninstall(program, systemName);
  } catch (const RuntimeError& error) {
    // "installing" is the word of this path too.
    WriteAILog(program,
               "Error occurred while installing agent on " + systemName + ". Error:" + error.description());
  }
}

}  // namespace varnhold::startup
