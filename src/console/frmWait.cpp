#include "console/frmWait.h"

#include "core/program.h"

namespace varnhold::console {

frmWait::frmWait(core::Program& program, ui::Screen& screen) : Form(screen, "frmWait"), program_(program) {
  Caption = program.AppTitle;
  adopt({{"lblTitle", lblTitle}});
}

}  // namespace varnhold::console
