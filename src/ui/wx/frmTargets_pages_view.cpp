// The pages of the wizard that fill its whole place.
#include "deployment/frmTargets.h"
#include "ui/wx/bind_check_box.h"
#include "ui/wx/bind_combo_box.h"
#include "ui/wx/bind_command_button.h"
#include "ui/wx/bind_containers.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/bind_list_box.h"
#include "ui/wx/bind_list_view.h"
#include "ui/wx/bind_option_button.h"
#include "ui/wx/bind_progress_bar.h"
#include "ui/wx/bind_text_box.h"
#include "ui/wx/frmTargets_view.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kListWidth = 160, kListHeight = 90, kBoxEdges = 20;
constexpr const char* kDigits = "000";  // what a box for two digits has room for

wxSizer* moves(wxWindow& on, deployment::frmTargets& form) {
  auto* buttons = new wxBoxSizer(wxVERTICAL);
  for (auto* button : {&form.cmdAdd, &form.cmdRemove, &form.cmdselectall, &form.cmdremoveall}) {
    buttons->Add(bindCommandButton(&on, *button),
                 wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, on.FromDIP(kGap / 2)));
  }
  return buttons;
}

/// The group and its computers on the left, the chosen ones on the right.
wxWindow* selection(wxWindow& frame, deployment::frmTargets& form) {
  auto* panel = new wxPanel(&frame);
  const int gap = panel->FromDIP(kGap);
  auto* groups = bindComboBox(panel, form.cboGroups);
  auto* from = bindListView(panel, form.lvSelect);
  auto* to = bindListView(panel, form.lvSelected);
  keepNarrow(*groups, kListWidth / 2);
  for (auto* list : {from, to}) keepNarrow(*list, kListWidth);
  auto* grid = new wxFlexGridSizer(3, gap, gap);
  for (const size_t lists : {size_t{0}, size_t{2}}) grid->AddGrowableCol(lists, 1);
  grid->AddGrowableRow(1);
  grid->Add(groups, wxSizerFlags().Expand());
  grid->AddSpacer(0);
  grid->AddSpacer(0);
  grid->Add(from, wxSizerFlags().Expand());
  grid->Add(moves(*panel, form), wxSizerFlags().Centre());
  grid->Add(to, wxSizerFlags().Expand());
  panel->SetSizer(grid);
  return panel;
}

wxWindow* namesList(wxWindow* frame, ui::ListBox& list) {
  auto* widget = bindListBox(frame, list);
  widget->SetMinSize(widget->FromDIP(wxSize(kListWidth, kListHeight)));
  return widget;
}

/// A name, its list and what stands below, in one column; the list takes the room that is left.
wxWindow* listPage(wxWindow* frame, std::initializer_list<wxWindow*> parts) {
  const auto* const list = *(parts.begin() + 1);
  const auto* const last = *(parts.end() - 1);
  auto* column = new wxBoxSizer(wxVERTICAL);
  for (auto* part : parts) {
    const int gap = part == last ? 0 : frame->FromDIP(kGap);
    column->Add(part, wxSizerFlags(part == list ? 1 : 0).Expand().Border(wxBOTTOM, gap));
  }
  frame->SetSizer(column);
  return frame;
}

wxWindow* timeBox(wxWindow* group, ui::TextBox& box) {
  auto* widget = bindTextBox(group, box);
  keepNarrow(*widget, widget->ToDIP(widget->GetTextExtent(kDigits).x) + kBoxEdges);
  return widget;
}

wxWindow* polling(wxWindow* frame, deployment::frmTargets& form) {
  auto* group = bindPictureBox(frame, form.picPolling);
  const auto beside = wxSizerFlags().CentreVertical().Border(wxRIGHT, group->FromDIP(kGap));
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(bindLabel(group, form.lblPollFreq), beside);
  row->Add(bindComboBox(group, form.cboPollFreq), beside);
  row->AddSpacer(group->FromDIP(kMargin));
  row->Add(bindLabel(group, form.lblStartTime), beside);
  row->Add(timeBox(group, form.txtStartHour), beside);
  row->Add(bindLabel(group, form.lblStartColon), beside);
  row->Add(timeBox(group, form.txtStartMin), beside);
  group->SetSizer(row);
  return group;
}

wxWindow* account(wxWindow* frame, deployment::frmTargets& form) {
  auto* group = bindPictureBox(frame, form.picAccount);
  auto* fields = new FieldGrid(*group);
  fields->add(bindLabel(group, form.lblAccount), bindTextBox(group, form.txtAccount));
  fields->add(bindLabel(group, form.lblPwd), bindTextBox(group, form.txtPwd));
  fields->add(bindLabel(group, form.lblConfirmPwd), bindTextBox(group, form.txtConfirmPwd));
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(fields, wxSizerFlags(1));
  row->Add(bindCommandButton(group, form.cmdEditAccount),
           wxSizerFlags().Bottom().Border(wxLEFT, group->FromDIP(kGap)));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(bindLabel(group, form.lblAccInfo, LabelRoom::Wrap),
              wxSizerFlags().Border(wxBOTTOM, group->FromDIP(kGap)));
  column->Add(row, wxSizerFlags().Expand());
  group->SetSizer(column);
  return group;
}

}  // namespace

wxWindow* computersPage(wxWindow& inside, deployment::frmTargets& form) {
  auto* frame = bindPlainFrame(&inside, form.freMain);
  const int gap = inside.FromDIP(kGap);
  auto* lists = new SharedPlace;
  auto* choice = selection(*frame, form);
  auto* systems = bindListView(frame, form.lvSystems);
  coverWhileShown(*choice, *systems);
  lists->Add(choice);
  lists->Add(systems);

  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(bindLabel(frame, form.lblInfo, LabelRoom::Wrap), wxSizerFlags().Expand().Border(wxBOTTOM, gap));
  column->Add(lists, wxSizerFlags(1).Expand());
  column->Add(bindProgressBar(frame, form.pbProgress), wxSizerFlags().Expand().Border(wxTOP, gap));
  frame->SetSizer(column);
  return frame;
}

wxWindow* agentTypePage(wxWindow& inside, deployment::frmTargets& form) {
  auto* frame = bindPlainFrame(&inside, form.freSelectAgent);
  auto* type = bindFrame(frame, form.fraAgentType);
  auto* box = type->GetStaticBox();
  const int gap = inside.FromDIP(kGap), inset = 2 * gap;
  const auto line = wxSizerFlags().Border(wxALL & ~wxTOP, gap);
  // What belongs to a choice is set in under it.
  const auto part = [&](wxWindow* widget) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->AddSpacer(inset);
    row->Add(widget);
    type->Add(row, line);
  };
  type->Add(bindLabel(box, form.lblAgentType), line);
  type->Add(bindOptionButton(box, form.OptAgentbased), line);
  part(bindCheckBox(box, form.chkHPMode));
  part(bindCheckBox(box, form.chkCopyRemedialActionScripts));
  type->Add(bindOptionButton(box, form.OptAgentless), line);
  for (auto* help : {&form.lblAgenthelp, &form.lblAgenthelp1, &form.lblAgenthelp2, &form.lblAgenthelp3,
                     &form.lblAgenthelp4})
    part(bindLabel(box, *help, LabelRoom::Wrap));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(type, wxSizerFlags().Expand());
  frame->SetSizer(column);
  return frame;
}

wxWindow* agentsPage(wxWindow& inside, deployment::frmTargets& form) {
  auto* frame = bindPlainFrame(&inside, form.freAgents);
  return listPage(
      frame,
      {bindLabel(frame, form.lblAgentSys, LabelRoom::Wrap), namesList(frame, form.lstSystems),
       bindLabel(frame, form.lblAgentInfo, LabelRoom::Wrap), bindOptionButton(frame, form.optClient(0)),
       bindOptionButton(frame, form.optClient(1)), bindLabel(frame, form.lblAgentLast, LabelRoom::Wrap)});
}

wxWindow* pathPage(wxWindow& inside, deployment::frmTargets& form) {
  auto* frame = bindPlainFrame(&inside, form.frePath);
  return listPage(
      frame, {bindLabel(frame, form.lblPathSystems, LabelRoom::Wrap), namesList(frame, form.lstPathSystems),
              bindLabel(frame, form.lblPathInfo, LabelRoom::Wrap), bindTextBox(frame, form.txtPathVHW),
              bindTextBox(frame, form.txtPathTKW), polling(frame, form), account(frame, form),
              bindLabel(frame, form.lblPathLast, LabelRoom::Wrap)});
}

}  // namespace varnhold::ui::wx
