#include <algorithm>
#include <array>

#include "base/runtime_error.h"
#include "base/text.h"
#include "deployment/agent_configuration.h"
#include "deployment/job.h"
#include "deployment/result_catalogue.h"
#include "startup/command_line.h"
#include "startup/command_line_installer.h"
#include "store/command.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

namespace varnhold::startup {
namespace {

namespace statements = store::statements;

constexpr std::array kSuccesses = {deployment::kResultInstalled, deployment::kResultInstalledNotStarted,
                                   deployment::kResultInstalledWithoutSecurity};
constexpr std::int32_t kStandardMode = 1, kHighPerformanceMode = 5;
constexpr std::int32_t kConfigurationWritten = 1;
constexpr int kVarnholdModule = 1;  ///< of the row that is written, deliberately for high performance too

/// The install of one computer. The name and the path may be changed by the library on the way. Each
/// statement that can fail runs under `next_`; what it sets beforehand is what a failing one leaves behind:
/// the result 0, which is never taken for leave to go on with the target.
class Installation {
 public:
  Installation(core::Program& program, std::string systemName, std::string installPath)
      : program_(program), name_(std::move(systemName)), path_(std::move(installPath)) {}

  void run();

 private:
  [[nodiscard]] platform::DeploymentJob newJob() const;
  void resolveName();
  [[nodiscard]] bool isRegistered();
  [[nodiscard]] platform::ThreadHandle start(platform::DeploymentJob& job);
  [[nodiscard]] std::int32_t waitFor(platform::ThreadHandle thread);
  void tellResult();
  void recordAgent();
  [[nodiscard]] bool hasAgentRow();
  void execute(std::string statement);
  void log(const std::string& message);
  void logError(const RuntimeError& error);

  core::Program& program_;
  std::string name_, path_, address_;
  std::int32_t result_ = 0;
  ResumeNext next_{[this](const RuntimeError& error) { logError(error); }};
};

void Installation::run() {
  if (equalsIgnoringCase(name_, program_.gLocalName)) {
    return log("Skipped: " + name_ +
               " - Manager (local computer). Varnhold Agent cannot be installed on local system. Because "
               "Manager is running on this system.");
  }
  auto job = newJob();
  resolveName();
  if (!isRegistered()) return log("Failed to install on " + name_ + ". System not responding.");
  const auto thread = start(job);
  result_ = thread == 0 ? deployment::resultWithoutThread(result_) : waitFor(thread);
  tellResult();
}

platform::DeploymentJob Installation::newJob() const {
  platform::DeploymentJob job;
  job.SystemName = name_;
  job.InstallDirectory = path_;
  // AgentKind stays 0 here, deliberately unlike the wizard's 2.
  if (program_.gCliAction == kCliInstall) job.AgentMode = kStandardMode;
  if (program_.gCliAction == kCliInstallHighPerformance) job.AgentMode = kHighPerformanceMode;
  return job;
}

void Installation::resolveName() {
  next_.step([&] { static_cast<void>(program_.host.libraries.qrvGetSystemIPAddress(name_, address_)); });
  name_ = TrimAtNull(name_);
  address_ = TrimAtNull(address_);
}

bool Installation::isRegistered() {
  std::int16_t registered = 0;
  next_.step([&] { registered = CliRegisterSystem(program_, name_); });
  return registered == 1;
}

platform::ThreadHandle Installation::start(platform::DeploymentJob& job) {
  auto& libraries = program_.host.libraries;
  bool resolves = false;
  next_.step([&] { resolves = libraries.qrvGetSystemIPAddress(name_, address_); });
  if (!resolves) {
    result_ = deployment::kResultNameNotResolved;
    return 0;
  }
  const auto iniMode =
      program_.gCliAction == kCliInstallHighPerformance ? kHighPerformanceMode : kStandardMode;
  bool isIniReady = false;
  next_.step([&] { isIniReady = deployment::prepareAgentIni(libraries, program_.gInstallerDir, iniMode); });
  if (!isIniReady) return 0;  // no code of its own: this ends in 710
  std::int32_t written = 0;
  next_.step([&] {
    written = libraries.qrvCCreateConfigurationFile(deployment::libraryPath(program_.gInstallerDir), name_,
                                                    path_, job.AgentMode);
  });
  if (written != kConfigurationWritten) {
    result_ = deployment::kResultNoConfiguration;
    return 0;
  }
  platform::ThreadHandle thread = 0;
  next_.step([&] { thread = CliStartJob(program_, job); });
  return thread;
}

std::int32_t Installation::waitFor(platform::ThreadHandle thread) {
  std::int32_t result = 0;
  next_.step([&] { result = deployment::waitForThread(program_.host.threads, program_.host.clock, thread); });
  return result;
}

void Installation::tellResult() {
  const auto words = deployment::VarnholdResultText(result_, name_);
  if (std::find(kSuccesses.begin(), kSuccesses.end(), result_) == kSuccesses.end()) {
    return log("Failed to install on " + name_ + ". Error: " + words);
  }
  log(name_ + ": Installed successfully" +
      (result_ == deployment::kResultInstalled ? std::string() : ". Warning: " + words));
  recordAgent();
}

void Installation::recordAgent() {
  const auto path = TrimAtNull(path_);
  // A look-up that failed has found no row.
  const auto text = hasAgentRow() ? statements::kChangeAgent : statements::kAddVarnholdAgent;
  next_.step([&] {
    execute(statements::fill(
        text, {{"name", name_}, {"module", kVarnholdModule}, {"path", path}, {"agentless", 0}}));
  });
}

bool Installation::hasAgentRow() {
  store::Recordset agents;
  bool found = false;
  next_.step([&] {
    agents.Open(std::string(store::mdDataBase::kModuleTable), program_.gConn, store::CursorType::ForwardOnly,
                store::LockType::ReadOnly);
  });
  next_.step([&] {
    agents.setFilter(
        statements::fill(statements::kAgentFilter, {{"name", name_}, {"module", kVarnholdModule}}));
  });
  next_.step([&] { found = !agents.Bof() && !agents.Eof(); });
  return found;
}

void Installation::execute(std::string statement) {
  store::Command command;
  command.ActiveConnection = &program_.gConn;
  command.CommandText = std::move(statement);
  command.Execute();
}

void Installation::log(const std::string& message) {
  next_.step([&] { WriteAILog(program_, message); });
}

void Installation::logError(const RuntimeError& error) {
  WriteAILog(program_, "Error occurred while installing agent on " + name_ +
                           ". ERROR : " + std::to_string(error.number()) + " Descr: " + error.description());
}

}  // namespace

void CliInstall(core::Program& program, std::string systemName, std::string installPath) {
  Installation(program, std::move(systemName), std::move(installPath)).run();
}

}  // namespace varnhold::startup
