#include "inventory/frmSystemType.h"

#include "ui/wx/bind_combo_box.h"
#include "ui/wx/bind_command_button.h"
#include "ui/wx/bind_containers.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/bind_text_box.h"
#include "ui/wx/form_views.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {

void layOutSystemType(wxWindow& inside, inventory::frmSystemType& form) {
  auto* frame = bindFrame(&inside, form.freInfo);
  auto* box = frame->GetStaticBox();
  auto* fields = new FieldGrid(*box);
  fields->add(bindLabel(box, form.lblName(0)), bindLabel(box, form.lblIPA));
  fields->add(bindLabel(box, form.lblName(1)), bindComboBox(box, form.cmbSysType));
  fields->add(bindLabel(box, form.lblName(2)), bindTextBox(box, form.txtDes));
  fields->add(bindLabel(box, form.lblName(3)), bindLabel(box, form.lblAgents));
  frame->Add(fields, wxSizerFlags(1).Expand().Border(wxALL, inside.FromDIP(kGap)));

  auto* column = dialogColumn(inside);
  column->Add(frame, wxSizerFlags(1).Expand());
  addButtons(*column, {bindCommandButton(&inside, form.cmdOK)});
  column->SetMinSize(inside.FromDIP(wxSize(kDialogWidth, -1)));
}

}  // namespace varnhold::ui::wx
