#include "ui/wx/bind_check_box.h"

#include "ui/wx/bound_view.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

class CheckBoxView : public BoundView<ControlView, ui::CheckBox, wxCheckBox> {
 public:
  using BoundView::BoundView;

  void listen() override {
    widget().Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) {
      post([this](ui::CheckBox& box) {
        const bool differs = widget().GetValue() != (box.Value == 1);
        if (differs) box.userClick();
      });
    });
  }

 private:
  void show(const ui::CheckBox& box) override {
    showCaption(widget(), box.Caption);
    widget().SetValue(box.Value == 1);
  }
};

}  // namespace

wxWindow* bindCheckBox(wxWindow* parent, ui::CheckBox& box) {
  return bind<CheckBoxView>(new wxCheckBox(parent, wxID_ANY, shown(box.Caption)), box);
}

}  // namespace varnhold::ui::wx
