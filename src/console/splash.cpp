#include "console/splash.h"

#include "console/icons.h"
#include "core/program.h"

namespace varnhold::console {

SplashForm::SplashForm(core::Program& program, ui::Screen& screen, std::string name, const char* picture)
    : Form(screen, std::move(name)) {
  BorderStyle = ui::BorderStyle::None;
  imgLogo.Picture = picture;
  lblProduct.Caption = program.AppTitle;
  adopt({{"imgLogo", imgLogo}, {"lblProduct", lblProduct}});
}

frmTKWSplash::frmTKWSplash(core::Program& program, ui::Screen& screen)
    : SplashForm(program, screen, "frmTKWSplash", icons::kSplashTessmark) {}

frmSplash::frmSplash(core::Program& program, ui::Screen& screen)
    : SplashForm(program, screen, "frmSplash", icons::kSplashVarnhold) {}

}  // namespace varnhold::console
