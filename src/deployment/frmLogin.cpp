#include "deployment/frmLogin.h"

#include "base/secret.h"
#include "core/program.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {

frmLogin::frmLogin(core::Program& program, ui::Screen& screen) : Form(screen, "frmLogin"), program_(program) {
  Caption = "Login";
  lblInfo.Caption =
      "Please provide an account with sufficient privileges to access the network. Usually a Domain Admin "
      "account is "
      "required. Please enter the account name in \"DOMAIN\\USER\" format.";
  txtPassword.PasswordChar = "*";
  cmdLogin.Default = true;
  CmdCancel.Cancel = true;
  adopt({{"lblInfo", lblInfo},
         {"lblAccount", lblAccount},
         {"txtAccount", txtAccount},
         {"lblPassword", lblPassword},
         {"txtPassword", txtPassword},
         {"cmdLogin", cmdLogin},
         {"CmdCancel", CmdCancel}});
  cmdLogin.Click = [this] { cmdLogin_Click(); };
  CmdCancel.Click = [this] { CmdCancel_Click(); };
}

void frmLogin::cmdLogin_Click() {
  program_.gLoginOK = false;
  const std::string account = txtAccount.Text;
  const auto separator = account.find('\\');
  const auto domain = account.substr(0, separator);
  const auto user = separator == std::string::npos ? "" : account.substr(separator + 1);
  if (domain.empty() || user.empty()) {
    screen().messageBox("Please enter a valid Account Name in Domain\\UserName format.",
                        platform::MessageIcon::Exclamation);
    return;
  }
  program_.gLoginDomain = domain;
  program_.gLoginUser = user;
  wipe(program_.gLoginPassword);
  program_.gLoginPassword = txtPassword.Text;
  program_.gLoginOK = LoginAccepted = true;
  Unload();
}

void frmLogin::CmdCancel_Click() {
  program_.gLoginDomain.clear();
  program_.gLoginUser.clear();
  wipe(program_.gLoginPassword);
  Unload();
}

}  // namespace varnhold::deployment
