#pragma once

#include "inventory/console_parts.h"
#include "ui/controls/command_button.h"
#include "ui/controls/containers.h"
#include "ui/controls/control_array.h"
#include "ui/controls/label.h"
#include "ui/controls/text_box.h"

namespace varnhold::inventory {

/// Shows the computer that is selected in the console's list, whose description can be edited, or the group
/// that is selected in its tree, with its rule.
class frmDetails : public ConsoleForm {
 public:
  frmDetails(core::Program& program, ui::Screen& screen, ConsoleParts parts);

  /// A computer is shown, not a group. Set before the form is shown.
  bool ShowDetailsOfListItem = false;

  ui::Frame freInfo;
  ui::ControlArray<ui::Label, 5> lblName;  ///< what stands before the fields of a computer, from the top
  ui::Label lblIPA, lblSysType;
  ui::TextBox txtDes;
  ui::Label lblAgents, lblManagedPort;

  ui::Frame freGroup;
  ui::ControlArray<ui::Label, 4> lblGroupName;  ///< the same of a group
  ui::Label lblOS{"All"}, lblIPSubnet{"All"}, lblDomain{"All"};
  ui::TextBox txtGrDes;

  ui::CommandButton cmdOK{"&OK"};

 private:
  void Form_Activate() override;
  void showComputer();
  void showGroup();
  void showRule(const std::string& group);
  void cmdOK_Click();
  /// Runs under the policy of going on with the next statement.
  void storeDescription();

  void designComputer();
  void designGroup();

  bool DescriptionChanged = false;
};

}  // namespace varnhold::inventory
