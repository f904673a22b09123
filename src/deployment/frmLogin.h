#pragma once

#include "ui/controls/command_button.h"
#include "ui/controls/form.h"
#include "ui/controls/label.h"
#include "ui/controls/text_box.h"

namespace varnhold::core {
struct Program;
}

namespace varnhold::deployment {

/// Asks for the account that reaches the computers of a run. It stands in the program's `gLoginDomain`,
/// `gLoginUser` and `gLoginPassword` until the next answer; a refusal empties them.
class frmLogin : public ui::Form {
 public:
  frmLogin(core::Program& program, ui::Screen& screen);

  /// An account was entered at least once; nothing takes it back.
  bool LoginAccepted = false;

  ui::Label lblInfo, lblAccount{"&Account:"}, lblPassword{"&Password:"};
  ui::TextBox txtAccount, txtPassword;
  ui::CommandButton cmdLogin{"&Login"}, CmdCancel{"&Cancel"};

 private:
  void cmdLogin_Click();
  void CmdCancel_Click();

  core::Program& program_;
};

}  // namespace varnhold::deployment
