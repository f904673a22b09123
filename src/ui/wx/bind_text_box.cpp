#include "ui/wx/bind_text_box.h"

#include "ui/wx/bound_view.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

struct Selection {
  long start = 0, length = 0;

  bool operator==(const Selection& other) const = default;
};

class TextBoxView : public BoundView<ControlView, ui::TextBox, wxTextCtrl> {
 public:
  using BoundView::BoundView;

  void listen() override {
    widget().Bind(wxEVT_TEXT, [this](wxCommandEvent&) { post([this](ui::TextBox& box) { edited(box); }); });
    widget().Bind(wxEVT_CHAR, &TextBoxView::typed, this);
    const auto moved = [this](wxEvent& event) {
      event.Skip();
      post([this](ui::TextBox& box) { selected(box); });
    };
    widget().Bind(wxEVT_KEY_UP, moved);
    widget().Bind(wxEVT_LEFT_UP, moved);
  }

 private:
  [[nodiscard]] Selection selection() const {
    long from = 0, to = 0;
    widget().GetSelection(&from, &to);
    return {from, to - from};
  }

  /// The widget's text with the line ends of the product's platform.
  [[nodiscard]] std::string text() const {
    auto value = widget().GetValue();
    if (widget().IsMultiLine()) value.Replace("\n", "\r\n");
    return utf8(value);
  }

  void edited(ui::TextBox& box) {
    if (text() == box.Text.get()) return;
    known_ = {widget().GetInsertionPoint(), 0};
    box.userEdit(text(), static_cast<int>(known_.start));
  }

  void selected(ui::TextBox& box) {
    if (!hasFocus(widget()) || selection() == known_) return;
    known_ = selection();
    box.userSelect(static_cast<int>(known_.start), static_cast<int>(known_.length));
  }

  /// While the form looks at each character, it is the control that enters them.
  void typed(wxKeyEvent& event) {
    const auto character = event.GetKeyCode() == WXK_BACK ? wxChar{WXK_BACK} : event.GetUnicodeKey();
    const bool isText = character == WXK_BACK || (character >= WXK_SPACE && character != WXK_DELETE);
    if (control() == nullptr || !control()->KeyPress.isHandled() || !isText || event.HasModifiers()) {
      event.Skip();
      return;
    }
    post([this, entered = utf8(wxString(wxUniChar(character)))](ui::TextBox& box) {
      selected(box);
      box.userType(entered);
    });
  }

  void show(const ui::TextBox& box) override {
    if (widget().IsEditable() == box.Locked.get()) widget().SetEditable(!box.Locked);
    if (!widget().IsMultiLine()) widget().SetMaxLength(static_cast<unsigned long>(box.MaxLength.get()));
    auto value = shown(box.Text);
    value.Replace("\r\n", "\n");
    const bool textDiffers = widget().GetValue() != value;
    if (textDiffers) widget().ChangeValue(value);
    const Selection wanted{box.SelStart, box.SelLength};
    if (!textDiffers && wanted == known_) return;
    known_ = wanted;
    if (selection() != wanted) widget().SetSelection(wanted.start, wanted.start + wanted.length);
  }

  // What form and widget last agreed on: a caret that the user has moved since stays where it is.
  Selection known_;
};

long styleOf(const ui::TextBox& box) {
  if (box.MultiLine) return wxTE_MULTILINE | wxTE_NOHIDESEL;
  return box.PasswordChar.get().empty() ? 0L : long{wxTE_PASSWORD};
}

}  // namespace

wxWindow* bindTextBox(wxWindow* parent, ui::TextBox& box) {
  auto* widget = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, styleOf(box));
  // From the text alone: on GTK a box that is not seen yet takes itself for lower than it is.
  constexpr int kLines = 4, kEdges = 10;
  const int lines = box.MultiLine ? kLines : 1;
  widget->SetMinSize(wxSize(-1, lines * widget->GetCharHeight() + widget->FromDIP(kEdges)));
  return bind<TextBoxView>(widget, box);
}

}  // namespace varnhold::ui::wx
