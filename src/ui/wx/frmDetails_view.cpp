#include "inventory/frmDetails.h"

#include "ui/wx/bind_command_button.h"
#include "ui/wx/bind_containers.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/bind_text_box.h"
#include "ui/wx/form_views.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {
namespace {

wxStaticBoxSizer* computer(wxWindow& inside, inventory::frmDetails& form) {
  auto* frame = bindFrame(&inside, form.freInfo);
  auto* box = frame->GetStaticBox();
  auto* fields = new FieldGrid(*box);
  fields->add(bindLabel(box, form.lblName(0)), bindLabel(box, form.lblIPA));
  fields->add(bindLabel(box, form.lblName(1)), bindLabel(box, form.lblSysType));
  fields->add(bindLabel(box, form.lblName(2)), bindTextBox(box, form.txtDes));
  fields->add(bindLabel(box, form.lblName(3)), bindLabel(box, form.lblAgents));
  fields->add(bindLabel(box, form.lblName(4)), bindLabel(box, form.lblManagedPort));
  frame->Add(fields, wxSizerFlags(1).Expand().Border(wxALL, inside.FromDIP(kGap)));
  return frame;
}

wxStaticBoxSizer* group(wxWindow& inside, inventory::frmDetails& form) {
  auto* frame = bindFrame(&inside, form.freGroup);
  auto* box = frame->GetStaticBox();
  auto* fields = new FieldGrid(*box);
  fields->add(bindLabel(box, form.lblGroupName(0)), bindLabel(box, form.lblOS));
  fields->add(bindLabel(box, form.lblGroupName(1)), bindLabel(box, form.lblIPSubnet));
  fields->add(bindLabel(box, form.lblGroupName(2)), bindLabel(box, form.lblDomain));
  fields->addTall(bindLabel(box, form.lblGroupName(3)), bindTextBox(box, form.txtGrDes));
  frame->Add(fields, wxSizerFlags(1).Expand().Border(wxALL, inside.FromDIP(kGap)));
  return frame;
}

}  // namespace

void layOutDetails(wxWindow& inside, inventory::frmDetails& form) {
  // One of the two is seen at a time, in the same place.
  auto* column = dialogColumn(inside);
  column->Add(computer(inside, form), wxSizerFlags(1).Expand());
  column->Add(group(inside, form), wxSizerFlags(1).Expand());
  addButtons(*column, {bindCommandButton(&inside, form.cmdOK)});
  column->SetMinSize(inside.FromDIP(wxSize(kDialogWidth, -1)));
}

}  // namespace varnhold::ui::wx
