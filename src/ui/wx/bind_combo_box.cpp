#include "ui/wx/bind_combo_box.h"

#include "ui/wx/bound_view.h"
#include "ui/wx/item_entries.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

/// What both styles share.
template <class Widget>
class DropDownView : public BoundView<ItemBoxView, ui::ComboBox, Widget> {
 public:
  using Base = BoundView<ItemBoxView, ui::ComboBox, Widget>;
  using Base::Base;

  void itemsChanged() override {
    this->lookSoon([this](ui::ComboBox& combo) { showItems(combo); });
  }
  [[nodiscard]] int textWidth(std::string_view text) const override {
    return this->widget().GetTextExtent(shown(std::string(text))).x;
  }

 protected:
  virtual void showItems(const ui::ComboBox& combo) = 0;

  void showCurrent(const ui::ComboBox& combo) {
    if (showEntries(this->widget(), combo)) layoutSoon(this->widget());
    if (this->widget().GetSelection() != combo.ListIndex) this->widget().SetSelection(combo.ListIndex);
  }

 private:
  void show(const ui::ComboBox& combo) override { showItems(combo); }
};

class ListOnlyView : public DropDownView<wxChoice> {
 public:
  using DropDownView::DropDownView;

  void listen() override {
    widget().Bind(wxEVT_CHOICE, [this](wxCommandEvent&) {
      post([this](ui::ComboBox& combo) { combo.userSelect(widget().GetSelection()); });
    });
  }

 private:
  void showItems(const ui::ComboBox& combo) override { showCurrent(combo); }
};

class FreeTextView : public DropDownView<wxComboBox> {
 public:
  using DropDownView::DropDownView;

  void listen() override {
    const auto look = [this](wxCommandEvent&) { post([this](ui::ComboBox& combo) { changed(combo); }); };
    widget().Bind(wxEVT_COMBOBOX, look);
    widget().Bind(wxEVT_TEXT, look);
  }

 private:
  /// Choosing an entry changes the text too, in an order that differs from host to host.
  void changed(ui::ComboBox& combo) {
    const int selected = widget().GetSelection();
    const bool isEntry =
        selected != wxNOT_FOUND && widget().GetString(static_cast<unsigned>(selected)) == widget().GetValue();
    if (isEntry) {
      combo.userSelect(selected);
    } else if (utf8(widget().GetValue()) != combo.Text.get()) {
      combo.userEdit(utf8(widget().GetValue()));
    }
  }

  void showItems(const ui::ComboBox& combo) override {
    showCurrent(combo);
    if (widget().GetValue() != shown(combo.Text)) widget().ChangeValue(shown(combo.Text));
  }
};

}  // namespace

wxWindow* bindComboBox(wxWindow* parent, ui::ComboBox& combo) {
  if (combo.Style == ComboStyle::DropDownList)
    return bind<ListOnlyView>(new wxChoice(parent, wxID_ANY), combo);
  return bind<FreeTextView>(new wxComboBox(parent, wxID_ANY), combo);
}

}  // namespace varnhold::ui::wx
