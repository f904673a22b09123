#include "ui/wx/common_values.h"

#include "ui/wx/acts.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

/// Holds a widget's view; wx deletes it with the widget.
class ViewHolder : public wxClientData {
 public:
  ViewHolder(Control& control, std::unique_ptr<ControlView> view)
      : control_(&control), view_(std::move(view)) {}

  [[nodiscard]] const Control* control() const { return control_; }

 private:
  const Control* control_;
  std::unique_ptr<ControlView> view_;
};

wxCursor cursorOf(Pointer pointer) {
  switch (pointer) {
    case Pointer::Arrow:
      return *wxSTANDARD_CURSOR;
    case Pointer::Hourglass:
      return *wxHOURGLASS_CURSOR;
    case Pointer::ArrowHourglass:
      return wxCursor(wxCURSOR_ARROWWAIT);
    case Pointer::Custom:
      return wxCursor(wxCURSOR_HAND);
    case Pointer::Default:
      break;
  }
  return wxNullCursor;
}

wxColour colourOf(const wxWindow& widget, SystemColor colour) {
  switch (colour) {
    case SystemColor::Window:
      return wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    case SystemColor::ButtonFace:
      return wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    case SystemColor::Default:
      break;
  }
  return widget.GetDefaultAttributes().colBg;
}

void showBackColour(wxWindow& widget, SystemColor wanted) {
  // A widget that has no colour of its own lets what it stands in shine through; it stays so.
  if (wanted == SystemColor::Default && !widget.UseBackgroundColour()) return;
  const auto colour = colourOf(widget, wanted);
  if (colour.IsOk() && widget.GetBackgroundColour() != colour && widget.SetBackgroundColour(colour)) {
    widget.Refresh();
  }
}

void layOut(wxWindow& top, bool refit) {
  auto* sizer = top.GetSizer();
  if (sizer == nullptr) return;
  const bool mayShrink = refit && !top.HasFlag(wxRESIZE_BORDER);
  // On GTK a window that is given the size it has, before it has taken in what its manager says of the frame,
  // is left without any width.
  if (mayShrink && sizer->ComputeFittingClientSize(&top) != top.GetClientSize()) {
    sizer->SetSizeHints(&top);
    return;
  }
  auto size = top.GetSize();
  size.IncTo(sizer->ComputeFittingWindowSize(&top));
  if (size != top.GetSize()) {
    top.SetSize(size);
  } else {
    top.Layout();
  }
}

}  // namespace

bool syncCommonValues(wxWindow& widget, const Control& control) {
  const bool turns = widget.IsThisEnabled() != control.Enabled.get();
  if (turns) widget.Enable(control.Enabled);
  const bool moves = widget.IsShown() != control.Visible.get();
  if (moves) {
    widget.Show(control.Visible);
    layoutSoon(widget, true);
  }
  const auto tip = shown(control.ToolTipText);
  if (widget.GetToolTipText() != tip) widget.SetToolTip(tip);
  setPointer(widget, control.MousePointer);
  showBackColour(widget, control.BackColor);
  return turns || moves;
}

void showCaption(wxWindow& widget, const std::string& caption) {
  if (widget.GetLabel() == shown(caption)) return;
  widget.SetLabel(shown(caption));
  layoutSoon(widget);
}

void layoutSoon(wxWindow& widget, bool refit) {
  auto* top = wxGetTopLevelParent(&widget);
  if (top == nullptr) return;
  widget.InvalidateBestSize();
  soon([weak = wxWeakRef<wxWindow>(top), refit] {
    if (weak) layOut(*weak, refit);
  });
}

void keepView(wxWindow& widget, Control& control, std::unique_ptr<ControlView> view) {
  static_cast<wxEvtHandler&>(widget).SetClientObject(new ViewHolder(control, std::move(view)));
}

const Control* controlOf(const wxWindow& widget) {
  const auto* holder =
      dynamic_cast<const ViewHolder*>(static_cast<const wxEvtHandler&>(widget).GetClientObject());
  return holder == nullptr ? nullptr : holder->control();
}

void setPointer(wxWindow& window, Pointer pointer) {
  const auto cursor = cursorOf(pointer);
  if (cursor.IsOk() || window.GetCursor().IsOk()) window.SetCursor(cursor);
}

bool hasFocus(const wxWindow& widget) {
  const auto* focus = wxWindow::FindFocus();
  return focus != nullptr && (focus == &widget || widget.IsDescendant(const_cast<wxWindow*>(focus)));
}

}  // namespace varnhold::ui::wx
