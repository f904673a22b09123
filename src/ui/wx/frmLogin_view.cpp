#include "deployment/frmLogin.h"

#include "ui/wx/bind_command_button.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/bind_text_box.h"
#include "ui/wx/form_views.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {

void layOutLogin(wxWindow& inside, deployment::frmLogin& form) {
  auto* fields = new FieldGrid(inside);
  fields->add(bindLabel(&inside, form.lblAccount), bindTextBox(&inside, form.txtAccount));
  fields->add(bindLabel(&inside, form.lblPassword), bindTextBox(&inside, form.txtPassword));

  auto* column = dialogColumn(inside);
  column->Add(bindLabel(&inside, form.lblInfo, LabelRoom::Wrap),
              wxSizerFlags().Border(wxBOTTOM, inside.FromDIP(kMargin)));
  column->Add(fields, wxSizerFlags().Expand());
  column->AddStretchSpacer();
  addButtons(*column,
             {bindCommandButton(&inside, form.cmdLogin), bindCommandButton(&inside, form.CmdCancel)});
}

}  // namespace varnhold::ui::wx
