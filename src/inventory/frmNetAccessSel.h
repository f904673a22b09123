#pragma once

#include "inventory/console_parts.h"
#include "ui/controls/command_button.h"
#include "ui/controls/label.h"
#include "ui/controls/option_button.h"

namespace varnhold::inventory {

/// Lets the operator choose who finds computers, the program or himself. Whenever the form is unloaded the
/// choice stands in `AutoDiscover` and is stored by the closed library.
class frmNetAccessSel : public ConsoleForm {
 public:
  frmNetAccessSel(core::Program& program, ui::Screen& screen, ConsoleParts parts);

  /// The program finds computers by itself.
  bool AutoDiscover = false;

  ui::Label lblInfo;
  ui::OptionButton optAutomatic, optManual;
  ui::CommandButton cmdOK{"&OK"};

 private:
  void Form_Load() override;
  void Form_Unload() override;
  void cmdOK_Click();

  void tellOfManualMode();

  bool ManualClicked = false;  ///< the operator clicked `optManual` since loading
};

}  // namespace varnhold::inventory
