#include "ui/wx/bind_tool_bar.h"

#include <algorithm>

#include "ui/wx/bound_view.h"
#include "ui/wx/icons.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kFirstId = wxID_HIGHEST + 1;  // of the button with the index 1
const wxSize kGapSize(8, -1);               // at 100 %, in pixels

/// The button's picture; one that shows nothing where it has none, since some hosts want every button to have
/// one.
wxBitmapBundle pictureOf(const ToolButton& button) {
  auto picture = icon(button.Picture);
  if (picture.IsOk()) return picture;
  wxImage nothing(16, 16);
  nothing.InitAlpha();
  std::fill_n(nothing.GetAlpha(), 16 * 16, static_cast<unsigned char>(wxALPHA_TRANSPARENT));
  return wxBitmapBundle(nothing);
}

class ToolBarView : public BoundView<ControlView, ui::ToolBar, wxToolBar> {
 public:
  using BoundView::BoundView;

  void listen() override {
    widget().Bind(wxEVT_TOOL, [this](wxCommandEvent& event) {
      post([index = event.GetId() - kFirstId + 1](ui::ToolBar& bar) { bar.userClick(index); });
    });
  }

 private:
  void show(const ui::ToolBar& bar) override {
    auto shape = shapeOf(bar);
    if (shape != shape_) {
      shape_ = std::move(shape);
      rebuild(bar);
    }
    for (int i = 1; i <= bar.ButtonCount(); ++i) {
      const auto& button = bar.Buttons(i);
      if (widget().FindById(idOf(i)) != nullptr) widget().EnableTool(idOf(i), button.Enabled);
    }
  }

  static int idOf(int index) { return kFirstId + index - 1; }

  static std::string shapeOf(const ui::ToolBar& bar) {
    std::string shape;
    for (int i = 1; i <= bar.ButtonCount(); ++i) {
      const auto& button = bar.Buttons(i);
      shape += button.Caption + "\n" + button.ToolTipText + "\n" + button.Picture +
               (button.Visible ? "\n+" : "\n-");
    }
    return shape;
  }

  void rebuild(const ui::ToolBar& bar) {
    widget().ClearTools();
    for (int i = 1; i <= bar.ButtonCount(); ++i) {
      const auto& button = bar.Buttons(i);
      if (!button.Visible) continue;
      if (button.isGap()) {
        // A separator would draw a line.
        widget().AddControl(
            new wxStaticText(&widget(), wxID_ANY, wxString(), wxDefaultPosition, widget().FromDIP(kGapSize)));
      } else {
        widget().AddTool(idOf(i), shown(button.Caption), pictureOf(button), shown(button.ToolTipText));
      }
    }
    widget().Realize();
    layoutSoon(widget());
  }

  std::string shape_;
};

}  // namespace

wxWindow* bindToolBar(wxWindow* parent, ui::ToolBar& bar) {
  constexpr long kStyle = wxTB_HORIZONTAL | wxTB_FLAT | wxTB_NODIVIDER | wxTB_TEXT | wxTB_HORZ_LAYOUT;
  return bind<ToolBarView>(new wxToolBar(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, kStyle), bar);
}

}  // namespace varnhold::ui::wx
