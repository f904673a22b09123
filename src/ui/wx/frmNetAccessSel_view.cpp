#include "inventory/frmNetAccessSel.h"

#include "ui/wx/bind_command_button.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/bind_option_button.h"
#include "ui/wx/form_views.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {

void layOutNetAccessSel(wxWindow& inside, inventory::frmNetAccessSel& form) {
  const auto below = wxSizerFlags().Border(wxBOTTOM, inside.FromDIP(kGap));
  auto* column = dialogColumn(inside);
  column->Add(bindLabel(&inside, form.lblInfo, LabelRoom::Wrap), below);
  column->Add(bindOptionButton(&inside, form.optAutomatic), below);
  column->Add(bindOptionButton(&inside, form.optManual), below);
  column->AddStretchSpacer();
  addButtons(*column, {bindCommandButton(&inside, form.cmdOK)});
}

}  // namespace varnhold::ui::wx
