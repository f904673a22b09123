#include "console/splash.h"
#include "ui/wx/bind_containers.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/form_views.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {

void layOutSplash(wxWindow& inside, console::SplashForm& form) {
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(bindImage(&inside, form.imgLogo), wxSizerFlags().Centre());
  column->Add(bindLabel(&inside, form.lblProduct),
              wxSizerFlags().Centre().Border(wxALL, inside.FromDIP(kMargin)));
  inside.SetSizer(column);
}

}  // namespace varnhold::ui::wx
