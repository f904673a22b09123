#include "deployment/account_validation.h"

#include <string>

#include "deployment/frmTargets.h"
#include "deployment/ssp_logon.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

/// Where an account is typed.
struct AccountBoxes {
  const ui::TextBox &account, &password, &confirmation;
};

bool refuse(ui::Screen& screen, const std::string& text) {
  screen.messageBox(text, platform::MessageIcon::Exclamation);
  return false;
}

bool wantsBlankPassword(ui::Screen& screen) {
  return screen.MsgBox({.text = "Do you want to continue with a blank password?",
                        .icon = ui::BoxIcon::Question,
                        .buttons = ui::BoxButtons::YesNo}) == ui::Answer::Yes;
}

bool isGenuine(core::Program& program, ui::Screen& screen, const std::string& account,
               const std::string& password) {
  const auto separator = account.find('\\');
  screen.MousePointer = ui::Pointer::Hourglass;
  const bool accepted =
      SSPLogon(program, account.substr(separator + 1), account.substr(0, separator), password);
  screen.MousePointer = ui::Pointer::Default;
  return accepted;
}

bool validate(core::Program& program, frmTargets& form, const AccountBoxes& boxes) {
  auto& screen = form.screen();
  const auto& account = boxes.account.Text.get();
  const auto& password = boxes.password.Text.get();
  if (account.empty()) return refuse(screen, "No username.");
  if (password != boxes.confirmation.Text.get()) return refuse(screen, "Passwords mismatch.");
  if (password.empty() && !wantsBlankPassword(screen)) return false;
  // Deliberately so spelled, and it stays there after the check.
  form.lblProgress.Caption = "Checking user credientials...";
  if (account.find('\\') == std::string::npos)
    return refuse(screen, R"(Please enter user name in the 'DOMAINNAME\USERNAME' format.)");
  if (!isGenuine(program, screen, account, password))
    return refuse(screen,
                  "The user credentials failed. Please ensure that you have entered the user name in "
                  "the 'DOMAINNAME\\USERNAME' format and the password is correct.");
  return true;
}

}  // namespace

bool ValidateLogonAccount(core::Program& program, frmTargets& form) {
  if (!form.optAccounts(1).Value) return true;
  return validate(program, form, {form.txtUserName, form.txtPassword, form.txtConfirmPassword});
}

bool ValidateAgentlessAccount(core::Program& program, frmTargets& form) {
  return validate(program, form, {form.txtAccount, form.txtPwd, form.txtConfirmPwd});
}

}  // namespace varnhold::deployment
