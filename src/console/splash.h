#pragma once

#include <string>

#include "ui/controls/form.h"
#include "ui/controls/image.h"
#include "ui/controls/label.h"

namespace varnhold::core {
struct Program;
}

namespace varnhold::console {

/// What stands on the screen while the program starts: the product's picture and name, without a frame.
class SplashForm : public ui::Form {
 public:
  ui::Image imgLogo;
  ui::Label lblProduct;

 protected:
  SplashForm(core::Program& program, ui::Screen& screen, std::string name, const char* picture);
};

/// Of the title "Tessmark? Agent Manager".
class frmTKWSplash : public SplashForm {
 public:
  frmTKWSplash(core::Program& program, ui::Screen& screen);
};

/// Of every other title.
class frmSplash : public SplashForm {
 public:
  frmSplash(core::Program& program, ui::Screen& screen);
};

}  // namespace varnhold::console
