#include "ui/wx/layout.h"

#include "ui/wx/common_values.h"

namespace varnhold::ui::wx {

wxBoxSizer* dialogColumn(wxWindow& inside) {
  auto* margin = new wxBoxSizer(wxVERTICAL);
  auto* column = new wxBoxSizer(wxVERTICAL);
  margin->Add(column, wxSizerFlags(1).Expand().Border(wxALL, inside.FromDIP(kMargin)));
  inside.SetSizer(margin);
  return column;
}

void addButtons(wxBoxSizer& column, std::initializer_list<wxWindow*> buttons) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->AddStretchSpacer();
  for (auto* button : buttons) row->Add(button, wxSizerFlags().Border(wxLEFT, button->FromDIP(kGap)));
  column.Add(row, wxSizerFlags().Expand().Border(wxTOP, (*buttons.begin())->FromDIP(kMargin)));
}

FieldGrid::FieldGrid(const wxWindow& parent)
    : wxFlexGridSizer(2, parent.FromDIP(kGap), parent.FromDIP(kMargin)) {
  AddGrowableCol(1);
}

void FieldGrid::add(wxWindow* name, wxWindow* field) {
  Add(name, wxSizerFlags().CentreVertical());
  Add(field, wxSizerFlags().Expand().CentreVertical());
}

void FieldGrid::addTall(wxWindow* name, wxWindow* field) {
  Add(name, wxSizerFlags().Top());
  Add(field, wxSizerFlags(1).Expand());
  AddGrowableRow(static_cast<size_t>(GetEffectiveRowsCount()) - 1);
}

wxSize SharedPlace::CalcMin() {
  wxSize least;
  for (auto* part : m_children) least.IncTo(part->CalcMin());
  return least;
}

void SharedPlace::RepositionChildren(const wxSize&) {
  for (auto* part : m_children) {
    if (part->IsShown()) part->SetDimension(m_position, m_size);
  }
}

void coverWhileShown(wxWindow& below, wxWindow& above) {
  below.Show(!above.IsShown());
  // On Windows a window that goes away hides itself on the way, and the one below may have gone before it.
  above.Bind(wxEVT_SHOW, [covered = wxWeakRef<wxWindow>(&below)](wxShowEvent& event) {
    event.Skip();
    if (!covered) return;
    covered->Show(!event.IsShown());
    layoutSoon(*covered);
  });
}

void keepNarrow(wxWindow& widget, int leastWidth) {
  widget.SetMinSize(wxSize(widget.FromDIP(leastWidth), widget.GetMinSize().y));
}

}  // namespace varnhold::ui::wx
