#include "ui/wx/bind_splitter.h"

#include "ui/wx/bound_view.h"
#include "ui/wx/twips.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kBarWidth = 6;  // pixels at 100 %

class SplitterView : public BoundView<ControlView, ui::Splitter, wxWindow> {
 public:
  SplitterView(wxWindow& widget, ui::Splitter& splitter, wxWindow& left)
      : BoundView(widget, splitter), left_(left) {
    widget.SetCursor(wxCursor(wxCURSOR_SIZEWE));
  }

  void listen() override {
    widget().Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
      widget().CaptureMouse();
      post([x = place(event)](ui::Splitter& splitter) { splitter.userPress(x); });
    });
    widget().Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
      if (!widget().HasCapture()) return;
      post([x = place(event)](ui::Splitter& splitter) { splitter.userMove(x); });
    });
    widget().Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
      if (!widget().HasCapture()) return;
      widget().ReleaseMouse();
      post([x = place(event)](ui::Splitter& splitter) { splitter.userRelease(x); });
    });
    widget().Bind(wxEVT_MOUSE_CAPTURE_LOST, [](wxMouseCaptureLostEvent&) {});
  }

 private:
  /// The pointer in twips from the left edge of what the bar stands in.
  [[nodiscard]] double place(const wxMouseEvent& event) const {
    return twips(widget(), widget().GetPosition().x + event.GetX());
  }

  void show(const ui::Splitter& splitter) override {
    const int width = pixels(widget(), splitter.Position);
    if (left_.GetMinSize().x == width) return;
    left_.SetMinSize(wxSize(width, -1));
    widget().GetParent()->Layout();
    widget().GetParent()->Refresh();
  }

  wxWindow& left_;
};

class GhostView : public BoundView<ControlView, ui::Splitter, wxWindow> {
 public:
  GhostView(wxWindow& widget, ui::Splitter& splitter, wxWindow& beside)
      : BoundView(widget, splitter), beside_(beside) {}

  void listen() override {
    widget().Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
      wxPaintDC paper(&widget());
      paper.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));
      paper.Clear();
    });
  }

 private:
  void show(const ui::Splitter& splitter) override {
    if (!splitter.Visible) {
      // What it lay over has not been painted meanwhile.
      widget().GetParent()->Refresh();
      return;
    }
    widget().SetSize(pixels(widget(), splitter.Position), beside_.GetPosition().y,
                     widget().FromDIP(kBarWidth), beside_.GetSize().y);
    widget().Raise();
  }

  wxWindow& beside_;
};

}  // namespace

wxWindow* bindSplitter(wxWindow* left, ui::Splitter& splitter) {
  auto* bar =
      new wxWindow(left->GetParent(), wxID_ANY, wxDefaultPosition, left->FromDIP(wxSize(kBarWidth, -1)));
  return bind<SplitterView>(bar, splitter, *left);
}

wxWindow* bindSplitterGhost(wxWindow* beside, ui::Splitter& splitter) {
  return bind<GhostView>(new wxWindow(beside->GetParent(), wxID_ANY), splitter, *beside);
}

}  // namespace varnhold::ui::wx
