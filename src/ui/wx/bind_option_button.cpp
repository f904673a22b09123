#include "ui/wx/bind_option_button.h"

#include <algorithm>
#include <vector>

#include "ui/wx/bound_view.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr const char* kNobody = "nobody";

/// 1 for an arrow that leads on, -1 for one that leads back, 0 for any other key.
int wayOf(const wxKeyEvent& key) {
  if (key.HasAnyModifiers()) return 0;
  switch (key.GetKeyCode()) {
    case WXK_DOWN:
    case WXK_RIGHT:
      return 1;
    case WXK_UP:
    case WXK_LEFT:
      return -1;
    default:
      return 0;
  }
}

/// The options of a group that the user can choose, in their order.
std::vector<wxRadioButton*> optionsIn(const wxWindow& group) {
  std::vector<wxRadioButton*> options;
  for (auto* child : group.GetChildren()) {
    auto* option = dynamic_cast<wxRadioButton*>(child);
    if (option != nullptr && option->IsShown() && option->IsEnabled()) options.push_back(option);
  }
  return options;
}

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
    widget().Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& key) {
      const int way = wayOf(key);
      if (way == 0) {
        key.Skip();
      } else {
        choose(neighbour(way));
      }
    });
  }

 private:
  /// The next option of the group, or the one before; round from either end.
  [[nodiscard]] wxRadioButton& neighbour(int way) const {
    const auto options = optionsIn(*widget().GetParent());
    const auto here = std::find(options.begin(), options.end(), &widget());
    if (here == options.end()) return widget();
    const auto count = static_cast<int>(options.size());
    const auto place = static_cast<int>(here - options.begin());
    return *options[static_cast<std::size_t>((place + way + count) % count)];
  }

  /// By the arrow keys, which on some hosts only move the focus.
  static void choose(wxRadioButton& option) {
    option.SetFocus();
    if (option.GetValue()) return;
    option.SetValue(true);
    wxCommandEvent chosen(wxEVT_RADIOBUTTON, option.GetId());
    chosen.SetEventObject(&option);
    option.HandleWindowEvent(chosen);
  }

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
