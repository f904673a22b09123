#include "ui/wx/bind_list_box.h"

#include "ui/wx/bound_view.h"
#include "ui/wx/item_entries.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

bool holdsSeveral(const ui::ListBox& list) {
  return list.MultiSelect != MultiSelect::None;
}

class ListBoxView : public BoundView<ItemBoxView, ui::ListBox, wxListBox> {
 public:
  using BoundView::BoundView;

  void listen() override {
    widget().Bind(wxEVT_LISTBOX, [this](wxCommandEvent& event) {
      post([this, current = event.GetInt()](ui::ListBox& list) { chosen(list, current); });
    });
    widget().Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent& event) {
      post([index = event.GetInt()](ui::ListBox& list) { list.userDblClick(index); });
    });
  }

  void itemsChanged() override {
    lookSoon([this](ui::ListBox& list) { showItems(list); });
  }
  void scrollTo(int index) override {
    lookSoon([this](ui::ListBox& list) { showItems(list); });
    top_ = index;
  }
  [[nodiscard]] int textWidth(std::string_view text) const override {
    return widget().GetTextExtent(shown(std::string(text))).x;
  }

 private:
  void chosen(ui::ListBox& list, int current) {
    if (!holdsSeveral(list)) {
      if (widget().GetSelection() != wxNOT_FOUND) list.userClick(widget().GetSelection());
      return;
    }
    wxArrayInt selected;
    widget().GetSelections(selected);
    list.userSelection({selected.begin(), selected.end()}, current);
  }

  void show(const ui::ListBox&) override { itemsChanged(); }

  void showItems(const ui::ListBox& list) {
    showEntries(widget(), list);
    for (int i = 0; i < list.ListCount(); ++i) {
      if (widget().IsSelected(i) == list.Selected(i)) continue;
      if (list.Selected(i)) {
        widget().SetSelection(i);
      } else {
        widget().Deselect(i);
      }
    }
    if (top_ >= 0 && top_ < list.ListCount()) widget().SetFirstItem(top_);
    top_ = -1;
  }

  int top_ = -1;  // what to scroll to at the next look
};

long styleOf(const ui::ListBox& list) {
  switch (list.MultiSelect.get()) {
    case MultiSelect::Simple:
      return wxLB_MULTIPLE | wxLB_HSCROLL;
    case MultiSelect::Extended:
      return wxLB_EXTENDED | wxLB_HSCROLL;
    case MultiSelect::None:
      break;
  }
  return wxLB_SINGLE | wxLB_HSCROLL;
}

}  // namespace

wxWindow* bindListBox(wxWindow* parent, ui::ListBox& list) {
  return bind<ListBoxView>(
      new wxListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr, styleOf(list)), list);
}

}  // namespace varnhold::ui::wx
