#include "ui/wx/bind_label.h"

#include <cmath>

#include "ui/wx/bound_view.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kCharactersPerLine = 72;
constexpr double kLeastContrast = 0.3;  // of a light and a dark colour, 1

/// The host's own, unless it can hardly be read there.
wxColour linkColour(const wxWindow& on) {
  const auto colour = wxSystemSettings::GetColour(wxSYS_COLOUR_HOTLIGHT);
  const double contrast = std::abs(colour.GetLuminance() - on.GetBackgroundColour().GetLuminance());
  return contrast < kLeastContrast ? wxColour(0, 102, 204) : colour;
}

/// `widget` takes the mouse, `text` shows the caption; for a label without mouse events they are one.
class LabelView : public BoundView<ControlView, ui::Label, wxWindow> {
 public:
  LabelView(wxWindow& widget, ui::Label& label, wxStaticText& text, LabelRoom room)
      : BoundView(widget, label), text_(text), room_(room) {}

  void listen() override {
    widget().Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { press(MouseButton::Left); });
    widget().Bind(wxEVT_RIGHT_DOWN, [this](wxMouseEvent&) { press(MouseButton::Right); });
    widget().Bind(wxEVT_ENTER_WINDOW, [this](wxMouseEvent&) { move(true); });
    widget().Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { move(false); });
  }

 private:
  void press(MouseButton button) {
    post([button](ui::Label& label) { label.userPress(button); });
  }
  void move(bool inside) {
    post([inside](ui::Label& label) { label.userMove(inside); });
  }

  void show(const ui::Label& label) override {
    showLook(label.Link);
    const auto caption = shownLines(label.Caption);
    if (caption == caption_) return;
    caption_ = caption;
    text_.SetLabel(caption);
    if (room_ == LabelRoom::Wrap) text_.Wrap(kCharactersPerLine * text_.GetCharWidth());
    layoutSoon(text_);
  }

  void showLook(bool link) {
    if (link == link_) return;
    link_ = link;
    text_.SetForegroundColour(link ? linkColour(text_) : wxNullColour);
    text_.SetFont(link ? text_.GetFont().Underlined() : wxNullFont);
  }

  wxStaticText& text_;
  LabelRoom room_;
  wxString caption_;
  bool link_ = false;
};

bool hearsMouse(const ui::Label& label) {
  return label.Click.isHandled() || label.MouseDown.isHandled() || label.MouseMove.isHandled();
}

wxStaticText* makeText(wxWindow* parent, LabelRoom room) {
  const long style = room == LabelRoom::Ellipsize ? wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE : 0L;
  auto* text = new wxStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
  if (room == LabelRoom::Ellipsize) text->SetMinSize(wxSize(1, -1));
  return text;
}

}  // namespace

wxWindow* bindLabel(wxWindow* parent, ui::Label& label, LabelRoom room) {
  if (!hearsMouse(label)) {
    auto* text = makeText(parent, room);
    return bind<LabelView>(static_cast<wxWindow*>(text), label, *text, room);
  }
  // A plain text lets the mouse through to what it stands in.
  auto* ground = new wxPanel(parent);
  auto* text = makeText(ground, room);
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(text, wxSizerFlags(1).Expand());
  ground->SetSizer(sizer);
  return bind<LabelView>(static_cast<wxWindow*>(ground), label, *text, room);
}

}  // namespace varnhold::ui::wx
