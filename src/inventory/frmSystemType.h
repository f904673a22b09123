#pragma once

#include "inventory/console_parts.h"
#include "ui/controls/combo_box.h"
#include "ui/controls/command_button.h"
#include "ui/controls/containers.h"
#include "ui/controls/control_array.h"
#include "ui/controls/label.h"
#include "ui/controls/text_box.h"

namespace varnhold::inventory {

/// Lets the operator correct the class of operating system of the computer that is selected in the console's
/// list.
class frmSystemType : public ConsoleForm {
 public:
  frmSystemType(core::Program& program, ui::Screen& screen, ConsoleParts parts);

  ui::Frame freInfo;
  ui::ControlArray<ui::Label, 4> lblName;  ///< what stands before the fields, from the top
  ui::Label lblIPA;
  ui::ComboBox cmbSysType;
  ui::TextBox txtDes;
  ui::Label lblAgents;
  ui::CommandButton cmdOK{"&OK"};

 private:
  void Form_Activate() override;
  void cmdOK_Click();
  /// Runs under the policy of going on with the next statement.
  void storeType();

  bool TypeChanged = false;
};

}  // namespace varnhold::inventory
