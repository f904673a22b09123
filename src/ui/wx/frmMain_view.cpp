#include "console/frmMain.h"
#include "ui/wx/bind_label.h"
#include "ui/wx/bind_list_view.h"
#include "ui/wx/bind_splitter.h"
#include "ui/wx/bind_status_bar.h"
#include "ui/wx/bind_tool_bar.h"
#include "ui/wx/bind_tree_view.h"
#include "ui/wx/form_views.h"
#include "ui/wx/layout.h"

namespace varnhold::ui::wx {
namespace {

/// A part of the form: a title over what it is the title of.
wxWindow* titled(wxWindow& inside, ui::Label& title, const std::function<wxWindow*(wxWindow*)>& make) {
  auto* part = new wxPanel(&inside);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(bindLabel(part, title, LabelRoom::Ellipsize),
              wxSizerFlags().Expand().Border(wxALL, part->FromDIP(kGap / 2)));
  auto* content = make(part);
  content->SetMinSize(wxSize(1, 1));
  column->Add(content, wxSizerFlags(1).Expand());
  part->SetSizer(column);
  return part;
}

wxSizer* toolBars(wxWindow& inside, console::frmMain& form) {
  auto* row = new wxBoxSizer(wxVERTICAL);
  for (auto* bar : {&form.tbOptToolBar, &form.tbClientManager}) {
    row->Add(bindToolBar(&inside, *bar), wxSizerFlags().Expand());
  }
  return row;
}

}  // namespace

void layOutMain(wxWindow& inside, console::frmMain& form) {
  auto* groups =
      titled(inside, form.lblTitle(0), [&](wxWindow* part) { return bindTreeView(part, form.tvTreeView); });
  auto* computers =
      titled(inside, form.lblTitle(1), [&](wxWindow* part) { return bindListView(part, form.lvListView); });
  auto* parts = new wxBoxSizer(wxHORIZONTAL);
  parts->Add(groups, wxSizerFlags().Expand());
  parts->Add(bindSplitter(groups, form.imgSplitter), wxSizerFlags().Expand());
  parts->Add(computers, wxSizerFlags(1).Expand());
  bindSplitterGhost(groups, form.picSplitter);

  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(toolBars(inside, form), wxSizerFlags().Expand());
  column->Add(parts, wxSizerFlags(1).Expand());
  column->Add(bindStatusBar(&inside, form.sbStatusBar), wxSizerFlags().Expand());
  inside.SetSizer(column);
}

}  // namespace varnhold::ui::wx
