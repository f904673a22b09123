// Probes of one computer, and starting programs as somebody else.
#include "base/runtime_error.h"
#include "core/mdCommon.h"
#include "deployment/engine_run.h"
#include "deployment/frmTargets.h"
#include "deployment/run_log.h"
#include "deployment/security_log_check.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

void showFailure(ui::Screen& screen, const char* call, std::uint32_t error) {
  screen.messageBox(std::string(call) + "() failed with error " + std::to_string(error),
                    platform::MessageIcon::Exclamation);
}

}  // namespace

bool frmTargets::CheckRemoteAccess(const std::int32_t& index) {
  const ResumeNext resume;
  WizardRunScreen run(*this);
  std::string name;
  std::uint32_t error = 0;
  bool isReached = false;
  resume.step([&] { name = run.systemName(index); });
  resume.step([&] { isReached = core::CanReachComputer(program_.host, name, error); });
  if (!isReached) {
    run.setErrorsSeen();
    const auto report = skipReport(program_, name, error);
    resume.step([&] { AppendDeploymentLog(program_, report.logged); });
    resume.step([&] { run.setStatus(index, report.status); });
  }
  resume.step([&] { run.pumpEvents(); });
  resume.step([&] { run.refresh(); });
  return isReached;
}

bool frmTargets::CheckRemoteRegistryAccess(const std::int32_t& index) {
  return core::CanWriteAdminShare(program_.host, lvSystems.ListItems(index).Text);
}

bool frmTargets::AccessClientEventLog(const std::int32_t& index) {
  return core::CanAccessEventLog(program_.host.eventLog, lvSystems.ListItems(index).Text);
}

std::uintptr_t frmTargets::fnRunAsUser(const std::string& user, const std::string& password,
                                       const std::string& domain, const std::string& commandLine,
                                       const std::string& currentDirectory) {
  const auto version = program_.host.environment.getVersionEx();
  const bool isWindows2000 = version.majorVersion >= 5 && version.platformId == platform::kPlatformWin32Nt;
  return isWindows2000 ? W2KRunAsUser(user, password, domain, commandLine, currentDirectory)
                       : NT4RunAsUser(user, password, domain, commandLine, currentDirectory);
}

std::uintptr_t frmTargets::W2KRunAsUser(const std::string& user, const std::string& password,
                                        const std::string& domain, const std::string& commandLine,
                                        const std::string& currentDirectory) {
  platform::ProcessInformation started;
  const auto error = program_.host.processes.createProcessWithLogon(
      user, domain, password, platform::kLogonWithProfile, commandLine, platform::kCreateDefaultErrorMode,
      currentDirectory, started);
  if (error == 0) return started.thread;
  showFailure(screen(), "CreateProcessWithLogonW", error);
  return 0;
}

std::uintptr_t frmTargets::NT4RunAsUser(const std::string& user, const std::string& password,
                                        const std::string& domain, const std::string& commandLine,
                                        const std::string& currentDirectory) {
  auto& processes = program_.host.processes;
  platform::TokenHandle token = 0;
  const auto logonError = processes.logonUser(user, domain, password, platform::kLogonInteractive,
                                              platform::kLogonProviderDefault, token);
  // Deliberately no end: without a token the start fails too, and says so.
  if (logonError != 0) showFailure(screen(), "LogonUser", logonError);
  platform::ProcessInformation started;
  const auto error = processes.createProcessAsUser(token, commandLine, platform::kCreateDefaultErrorMode,
                                                   currentDirectory, started);
  if (error == 0) return started.thread;
  showFailure(screen(), "CreateProcessAsUser", error);
  processes.closeHandle(token);
  return 0;
}

}  // namespace varnhold::deployment
