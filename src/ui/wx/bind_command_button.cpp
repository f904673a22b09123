#include "ui/wx/bind_command_button.h"

#include "ui/wx/bound_view.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

class CommandButtonView : public BoundView<ControlView, ui::CommandButton, wxButton> {
 public:
  using BoundView::BoundView;

  void listen() override {
    widget().Bind(wxEVT_BUTTON,
                  [this](wxCommandEvent&) { post([](ui::CommandButton& button) { button.userClick(); }); });
  }

 private:
  void show(const ui::CommandButton& button) override {
    showCaption(widget(), button.Caption);
    if (button.Default) widget().SetDefault();
  }
};

}  // namespace

wxWindow* bindCommandButton(wxWindow* parent, ui::CommandButton& button) {
  return bind<CommandButtonView>(new wxButton(parent, wxID_ANY, shown(button.Caption)), button);
}

}  // namespace varnhold::ui::wx
