#include "deployment/frmRemedialActionHelp.h"

#include "ui/wx/bind_command_button.h"
#include "ui/wx/bind_containers.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/form_views.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {

void layOutRemedialActionHelp(wxWindow& inside, deployment::frmRemedialActionHelp& form) {
  auto* words = new wxBoxSizer(wxVERTICAL);
  words->Add(bindLabel(&inside, form.lblLoadText));
  words->Add(bindLabel(&inside, form.lblRemedialHelpLink),
             wxSizerFlags().Border(wxTOP | wxBOTTOM, inside.FromDIP(kMargin)));
  words->Add(bindLabel(&inside, form.lblSure));

  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(bindPictureBox(&inside, form.picWarning),
           wxSizerFlags().Top().Border(wxRIGHT, inside.FromDIP(kMargin)));
  row->Add(words, wxSizerFlags(1));

  auto* column = dialogColumn(inside);
  column->Add(row, wxSizerFlags(1).Expand());
  addButtons(*column,
             {bindCommandButton(&inside, form.YesButton), bindCommandButton(&inside, form.NoButton)});
}

}  // namespace varnhold::ui::wx
