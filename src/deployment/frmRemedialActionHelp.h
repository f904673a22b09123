#pragma once

#include "ui/controls/command_button.h"
#include "ui/controls/containers.h"
#include "ui/controls/form.h"
#include "ui/controls/label.h"

namespace varnhold::core {
struct Program;
}

namespace varnhold::deployment {

/// The remedial actions guide, which the link opens: an address of whoever runs the support site.
inline constexpr const char* kRemedialActionsGuide = "https://support.example.com/remedial_actions_guide.pdf";

/// Asks whether remedial actions, which run scripts on agents' computers, are really wanted.
class frmRemedialActionHelp : public ui::Form {
 public:
  frmRemedialActionHelp(core::Program& program, ui::Screen& screen);

  /// The operator said yes, this time.
  bool Accepted = false;

  ui::PictureBox picWarning;
  ui::Label lblLoadText, lblRemedialHelpLink, lblSure{"Are you sure?"};
  ui::CommandButton YesButton{"Yes"}, NoButton{"No"};

 private:
  void Form_Load() override;
  void YesButton_Click();
  void lblRemedialHelpLink_MouseDown();
  void lblRemedialHelpLink_MouseMove(bool inside);

  core::Program& program_;
};

}  // namespace varnhold::deployment
