#include "console/frmWait.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/form_views.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {

void layOutWait(wxWindow& inside, console::frmWait& form) {
  const wxSize noSmaller(360, 72);
  auto* column = dialogColumn(inside);
  column->AddStretchSpacer();
  column->Add(bindLabel(&inside, form.lblTitle), wxSizerFlags().Centre());
  column->AddStretchSpacer();
  column->SetMinSize(inside.FromDIP(noSmaller));
}

}  // namespace varnhold::ui::wx
