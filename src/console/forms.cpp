#include "console/forms.h"

namespace varnhold::console {

Forms::Forms(core::Program& program, ui::Screen& screen)
    : frmSplash(program, screen),
      frmTKWSplash(program, screen),
      frmWait(program, screen),
      frmMain(program, screen, *this) {}

}  // namespace varnhold::console
