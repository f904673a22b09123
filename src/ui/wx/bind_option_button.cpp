#include "ui/wx/bind_option_button.h"

#include "ui/wx/bound_view.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr const char* kNobody = "nobody";

/// `nobody` is chosen while no option of the group is: some hosts know no group without a choice.
class OptionButtonView : public BoundView<ControlView, ui::OptionButton, wxRadioButton> {
 public:
  OptionButtonView(wxRadioButton& widget, ui::OptionButton& option, wxRadioButton& nobody)
      : BoundView(widget, option), nobody_(nobody) {}

  void listen() override {
    widget().Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) {
      post([this](ui::OptionButton& option) {
        if (widget().GetValue()) option.userClick();
      });
    });
  }

 private:
  void show(const ui::OptionButton& option) override {
    showCaption(widget(), option.Caption);
    if (widget().GetValue() == option.Value.get()) return;
    widget().SetValue(option.Value);
    if (!option.Value) nobody_.SetValue(true);
  }

  wxRadioButton& nobody_;
};

/// The hidden head of the group of radio buttons in `parent`; the others join it as they are made.
wxRadioButton& headOfGroup(wxWindow* parent) {
  for (auto* child : parent->GetChildren()) {
    if (child->GetName() == kNobody) return static_cast<wxRadioButton&>(*child);
  }
  auto* head = new wxRadioButton(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxRB_GROUP,
                                 wxDefaultValidator, kNobody);
  head->Hide();
  return *head;
}

}  // namespace

wxWindow* bindOptionButton(wxWindow* parent, ui::OptionButton& option) {
  auto& nobody = headOfGroup(parent);
  return bind<OptionButtonView>(new wxRadioButton(parent, wxID_ANY, shown(option.Caption)), option, nobody);
}

}  // namespace varnhold::ui::wx
