#include "deployment/service_account.h"

#include "base/text.h"
#include "base/unicode.h"
#include "core/program.h"
#include "deployment/frmTargets.h"
#include "deployment/run_log.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

using platform::OwnedServiceHandle;

constexpr const char* kAgentService = "Varnhold Agent";
constexpr const char* kReceiverService = "Varnhold Receiver";
constexpr const char* kBuiltInAccount = "LocalSystem";
constexpr std::size_t kLongestAccountName = 255;  // in characters

/// The texts of the log stand as they are, with their misspellings.
constexpr const char* kNoManager = "Could not open Sevice Control Manager because access was denied";

platform::ServiceHandle openLocalManager(core::Program& program) {
  return program.host.services.openSCManager(R"(\\)" + program.gLocalName);
}

platform::ServiceHandle openService(core::Program& program, const OwnedServiceHandle& manager,
                                    const char* service) {
  return program.host.services.openService(manager.get(), service, platform::kServiceAllAccess);
}

/// Says so in the log; the result of the routine that fails there.
bool logged(core::Program& program, const std::string& text) {
  AppendDeploymentLog(program, text);
  return false;
}

void lockBoxes(frmTargets& form, bool locked) {
  for (auto* const box : {&form.txtAccount, &form.txtPwd, &form.txtConfirmPwd}) {
    box->Locked = locked;
    box->BackColor = locked ? ui::SystemColor::ButtonFace : ui::SystemColor::Window;
  }
}

/// Shows what the host tells of the account; true for "LocalSystem" or none.
bool showStartName(frmTargets& form, const platform::ServiceConfig& config) {
  if (!config.serviceStartName) return true;
  const auto name = TrimAtNull(fromUtf16(toUtf16(*config.serviceStartName).substr(0, kLongestAccountName)));
  const bool isBuiltIn = name == kBuiltInAccount;
  if (!isBuiltIn) form.txtAccount.Text = name;
  lockBoxes(form, !isBuiltIn);
  return isBuiltIn;
}

/// The words of the two outcomes are told to the log; a failure stops nothing.
void grantAndLog(core::Program& program, const std::string& systemName, const std::string& account) {
  if (GrantLogonAsService(program, systemName, account)) {
    AppendDeploymentLog(
        program,
        "The user " + account + " has been given 'LogonAsService' rights on system " + program.gLocalName);
    return;
  }
  AppendDeploymentLog(program,
                      "The user " + account + " could not be given 'LogonAsService' rights on system " +
                          program.gLocalName +
                          " please ensure that you have administrator rights on the machine and it is "
                          "currently accessible.");
}

/// Only the one service is changed, in spite of the question's words.
bool wantsToGoOn(frmTargets& form, const std::string& systemName) {
  return form.screen().MsgBox({.text = "The account information was invalid on system '" + systemName +
                                       "'. Do you want to continue applying to other systems?",
                               .icon = ui::BoxIcon::Question,
                               .buttons = ui::BoxButtons::YesNo,
                               .preset = ui::Answer::No}) == ui::Answer::Yes;
}

/// False when the operator wants no more.
bool reportRefusal(core::Program& program, frmTargets& form, std::uint32_t error) {
  AppendDeploymentLog(program, "Could not change the service account On: " + program.gLocalName);
  if (error == platform::kErrorInvalidServiceAccount) {
    AppendDeploymentLog(program, "The account information is invalid.");
    return wantsToGoOn(form, form.lstSystems.List(0));
  }
  AppendDeploymentLog(program, "Error Code: " + std::to_string(error));
  return true;
}

void changeLocalService(core::Program& program, frmTargets& form) {
  const bool isAgentBased = form.OptAgentbased.Value;
  const auto& account = isAgentBased ? form.txtUserName.Text.get() : form.txtAccount.Text.get();
  const auto& password = isAgentBased ? form.txtPassword.Text.get() : form.txtPwd.Text.get();
  const char* const service = isAgentBased ? kReceiverService : kAgentService;

  OwnedServiceHandle manager(program.host.services, openLocalManager(program));
  if (!manager) return AppendDeploymentLog(program, kNoManager);
  grantAndLog(program, form.lstSystems.List(0), account);
  AppendDeploymentLog(program, std::string("Opening ") + service + " Service On: " + program.gLocalName);
  OwnedServiceHandle opened(program.host.services, openService(program, manager, service));
  // It is that name for either service.
  if (!opened)
    return AppendDeploymentLog(program, "Could not open Varnhold Receiver on " + program.gLocalName);

  std::uint32_t error = 0;
  if (SetServiceAccount(program, opened.get(), account, password, error))
    return AppendDeploymentLog(program, "Sucessfully changed the service account On: " + program.gLocalName);
  if (reportRefusal(program, form, error)) return;
  // An operator who stops here leaves both handles open, as documented.
  opened.leaveOpen();
  manager.leaveOpen();
}

}  // namespace

bool ShowAgentlessAccount(core::Program& program, frmTargets& form) {
  auto& services = program.host.services;
  const OwnedServiceHandle manager(services, openLocalManager(program));
  if (!manager) return logged(program, kNoManager);
  // The log names one service and the call opens the other, deliberately.
  AppendDeploymentLog(program, "Opening Varnhold Receiver Service On: " + program.gLocalName);
  const OwnedServiceHandle service(services, openService(program, manager, kAgentService));
  if (!service) return logged(program, "Could not open Varnhold Receiver on " + program.gLocalName);

  platform::ServiceConfig config;
  std::uint32_t size = 0;
  static_cast<void>(services.queryServiceConfig(service.get(), nullptr, 0, size, config));
  const platform::OwnedHeapMemory buffer(program.host.heap, size);
  if (!buffer) return logged(program, "Could not get heap memory.");
  if (!services.queryServiceConfig(service.get(), buffer.get(), size, size, config))
    return logged(program, "Could not query Sevice information");
  return showStartName(form, config);
}

void ChangeServiceAccount(core::Program& program, frmTargets& form) {
  try {
    changeLocalService(program, form);
  } catch (const RuntimeError& error) {
    form.screen().messageBox(error.description(), platform::MessageIcon::Critical);
  }
}

bool GrantLogonAsService(core::Program& program, const std::string& systemName, const std::string& account) {
  if (account == kBuiltInAccount) return true;
  auto& accounts = program.host.accounts;
  platform::AccountBuffers buffers;
  buffers.sid.resize(1);
  static_cast<void>(accounts.lookupAccountName(systemName, account, buffers));
  buffers.sid.assign(buffers.sidSize, 0);
  buffers.domain.assign(buffers.domainSize, '\0');
  if (!accounts.lookupAccountName(systemName, account, buffers)) return false;
  return program.host.libraries.fnLogRight(toUtf16(systemName), buffers.sid) == 0;
}

bool SetServiceAccount(core::Program& program, const platform::ServiceHandle& service,
                       const std::string& account, const std::string& password, std::uint32_t& error) {
  const auto refused = program.host.services.changeServiceConfig(
      service, platform::kServiceWin32OwnProcess, platform::kServiceNoChange, platform::kServiceNoChange,
      account, password);
  if (refused != 0) error = refused;
  return refused == 0;
}

}  // namespace varnhold::deployment
