#include "deployment/frmTargets.h"

#include <utility>

#include "deployment/agent_polling.h"

namespace varnhold::deployment {

frmTargets::frmTargets(core::Program& program, ui::Screen& screen, ConsoleOfWizard console, frmLogin& login,
                       frmRemedialActionHelp& remedialHelp)
    : Form(screen, "frmTargets"),
      program_(program),
      console_(std::move(console)),
      login_(login),
      remedialHelp_(remedialHelp) {
  designPages();
  adoptControls();
}

}  // namespace varnhold::deployment
