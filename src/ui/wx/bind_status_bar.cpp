#include "ui/wx/bind_status_bar.h"

#include <vector>

#include "ui/wx/bound_view.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kNarrowestPanel = 100;  // pixels at 100 %

class StatusBarView : public BoundView<ControlView, ui::StatusBar, wxStatusBar> {
 public:
  using BoundView::BoundView;

 private:
  void show(const ui::StatusBar& bar) override {
    std::vector<int> widths{-1};
    for (int panel = 1; panel <= bar.PanelCount(); ++panel) {
      const auto text = shown(bar.Panels(panel).Text);
      if (widget().GetStatusText(panel - 1) != text) widget().SetStatusText(text, panel - 1);
      if (panel > 1) widths.push_back(widthFor(text));
    }
    if (widths == widths_) return;
    widths_ = widths;
    widget().SetStatusWidths(static_cast<int>(widths.size()), widths.data());
  }

  [[nodiscard]] int widthFor(const wxString& text) const {
    return std::max(widget().FromDIP(kNarrowestPanel), widget().GetTextExtent(text + "MM").x);
  }

  std::vector<int> widths_;
};

}  // namespace

wxWindow* bindStatusBar(wxWindow* parent, ui::StatusBar& bar) {
  auto* widget =
      new wxStatusBar(parent, wxID_ANY, wxSTB_SHOW_TIPS | wxSTB_ELLIPSIZE_END | wxFULL_REPAINT_ON_RESIZE);
  widget->SetFieldsCount(bar.PanelCount());
  return bind<StatusBarView>(widget, bar);
}

}  // namespace varnhold::ui::wx
