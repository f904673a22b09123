#include "deployment/frmTargets.h"

#include "ui/wx/bind_check_box.h"
#include "ui/wx/bind_command_button.h"
#include "ui/wx/bind_containers.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/bind_option_button.h"
#include "ui/wx/bind_text_box.h"
#include "ui/wx/form_views.h"
#include "ui/wx/frmTargets_view.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kWizardWidth = 640, kWizardHeight = 480;

wxWindow* upgradeOptions(wxWindow& inside, deployment::frmTargets& form) {
  auto* frame = bindPlainFrame(&inside, form.freUpgradeOpts);
  const auto below = wxSizerFlags().Border(wxBOTTOM, inside.FromDIP(kGap));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(bindLabel(frame, form.lblUptOptInfo, LabelRoom::Wrap), below);
  column->Add(bindOptionButton(frame, form.optWinDom), below);
  column->Add(bindOptionButton(frame, form.optOverIP), below);
  column->Add(bindCheckBox(frame, form.chkUpgradeRemedialActionScripts), below);
  frame->SetSizer(column);
  return frame;
}

wxSizer* configuration(wxWindow& inside, deployment::frmTargets& form) {
  auto* frame = bindFrame(&inside, form.freConfig);
  auto* box = frame->GetStaticBox();
  const auto around = wxSizerFlags().Expand().Border(wxALL & ~wxTOP, inside.FromDIP(kGap));
  for (auto& config : form.optConfig) frame->Add(bindOptionButton(box, config), around);
  auto* file = new wxBoxSizer(wxHORIZONTAL);
  file->Add(bindTextBox(box, form.txtTemplate), wxSizerFlags(1).CentreVertical());
  file->Add(bindCommandButton(box, form.cmdBrowse), wxSizerFlags().Border(wxLEFT, inside.FromDIP(kGap)));
  frame->Add(file, around);
  frame->Add(bindLabel(box, form.lblConfig, LabelRoom::Wrap), around);
  return frame;
}

wxSizer* logonAccount(wxWindow& inside, deployment::frmTargets& form) {
  auto* frame = bindFrame(&inside, form.freLogon);
  auto* box = frame->GetStaticBox();
  const auto around = wxSizerFlags().Expand().Border(wxALL & ~wxTOP, inside.FromDIP(kGap));
  for (auto& account : form.optAccounts) frame->Add(bindOptionButton(box, account), around);
  auto* fields = new FieldGrid(*box);
  fields->add(bindLabel(box, form.lblUserName), bindTextBox(box, form.txtUserName));
  fields->add(bindLabel(box, form.lblPassword), bindTextBox(box, form.txtPassword));
  fields->add(bindLabel(box, form.lblConfirmPassword), bindTextBox(box, form.txtConfirmPassword));
  frame->Add(fields, around);
  frame->Add(bindLabel(box, form.lblServiceAccount, LabelRoom::Wrap), around);
  return frame;
}

/// What a page may have beside another one, from the top down.
wxSizer* options(wxWindow& inside, deployment::frmTargets& form) {
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(upgradeOptions(inside, form), wxSizerFlags().Expand().Border(wxBOTTOM, inside.FromDIP(kGap)));
  column->Add(configuration(inside, form), wxSizerFlags().Expand());
  column->Add(logonAccount(inside, form), wxSizerFlags().Expand());
  return column;
}

}  // namespace

void layOutTargets(wxWindow& inside, deployment::frmTargets& form) {
  auto* pages = new SharedPlace;
  for (const auto page : {computersPage, agentTypePage, agentsPage, pathPage}) pages->Add(page(inside, form));
  pages->Add(options(inside, form));

  auto* column = dialogColumn(inside);
  column->Add(pages, wxSizerFlags(1).Expand());
  column->Add(bindLabel(&inside, form.lblProgress, LabelRoom::Wrap),
              wxSizerFlags().Expand().Border(wxTOP, inside.FromDIP(kGap)));
  addButtons(*column,
             {bindCommandButton(&inside, form.cmdBack), bindCommandButton(&inside, form.cmdNext),
              bindCommandButton(&inside, form.cmdAdvanced), bindCommandButton(&inside, form.cmdInstall),
              bindCommandButton(&inside, form.cmdCancel)});
  column->SetMinSize(inside.FromDIP(wxSize(kWizardWidth, kWizardHeight)));
}

}  // namespace varnhold::ui::wx
