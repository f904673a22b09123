#include "deployment/frmRemedialActionHelp.h"

#include "core/online_help.h"
#include "core/program.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {

frmRemedialActionHelp::frmRemedialActionHelp(core::Program& program, ui::Screen& screen)
    : Form(screen, "frmRemedialActionHelp"), program_(program) {
  Caption = "Remedial Action Configuration.";
  picWarning.Picture = "warning";
  adopt({{"picWarning", picWarning},
         {"lblLoadText", lblLoadText},
         {"lblRemedialHelpLink", lblRemedialHelpLink},
         {"lblSure", lblSure},
         {"YesButton", YesButton},
         {"NoButton", NoButton}});
  YesButton.Click = [this] { YesButton_Click(); };
  NoButton.Click = [this] { Unload(); };
  lblRemedialHelpLink.MouseDown = [this](ui::MouseButton) { lblRemedialHelpLink_MouseDown(); };
  lblRemedialHelpLink.MouseMove = [this](bool inside) { lblRemedialHelpLink_MouseMove(inside); };
}

void frmRemedialActionHelp::Form_Load() {
  Accepted = false;
  lblLoadText.Caption =
      "Caution!\r\n\r\nThis feature permits the execution of scripts on agent systems.\r\n"
      "Carefully review the risks and benefits before enabling this feature.";
}

void frmRemedialActionHelp::YesButton_Click() {
  Accepted = true;
  Unload();
}

void frmRemedialActionHelp::lblRemedialHelpLink_MouseDown() {
  if (core::openWebPage(program_.host.processes, kRemedialActionsGuide)) return;
  // The text speaks of another site than the one that was tried, deliberately.
  screen().messageBox(
      "Failed to launch the default web browser. You can use the following URL to open the Findlore "
      "website.\r" +
          std::string(kRemedialActionsGuide),
      platform::MessageIcon::Information);
}

void frmRemedialActionHelp::lblRemedialHelpLink_MouseMove(bool inside) {
  lblRemedialHelpLink.MousePointer = inside ? ui::Pointer::Custom : ui::Pointer::Arrow;
}

}  // namespace varnhold::deployment
