// What the operator chooses on the wizard's pages.
#include "core/program.h"
#include "deployment/frmRemedialActionHelp.h"
#include "deployment/frmTargets.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {

std::int32_t frmTargets::ShowRemedialDialogBox() {
  remedialHelp_.Load();
  auto& link = remedialHelp_.lblRemedialHelpLink;
  link.Caption = "Click here for more information.";
  link.Link = true;
  link.MouseIcon = "hand";
  remedialHelp_.ShowModal(this);
  return static_cast<std::int32_t>(remedialHelp_.Accepted ? ui::Answer::Yes : ui::Answer::No);
}

PollingControls frmTargets::pollingControls() const {
  return {cboPollFreq.ListIndex, txtStartHour.Text, txtStartMin.Text};
}

void frmTargets::SavePollingSettings() {
  deployment::SavePollingSettings(program_.host.registry, screen(), pollingControls());
}

}  // namespace varnhold::deployment
