#pragma once

#include "ui/wx/wx_headers.h"

/// The distances that all views keep, and the shapes that come again in them.
namespace varnhold::ui::wx {

/// Pixels at 100 %: around a form's inside, and between two things in it.
constexpr int kMargin = 12, kGap = 8;
/// The least width of a dialog with fields.
constexpr int kDialogWidth = 400;

/// A column that views put a dialog's parts into; it stands in a margin of the form's inside.
[[nodiscard]] wxBoxSizer* dialogColumn(wxWindow& inside);

/// The dialog's buttons: at the right, under the rest.
void addButtons(wxBoxSizer& column, std::initializer_list<wxWindow*> buttons);

/// Names on the left, what they name on the right, which takes the room that is there.
class FieldGrid : public wxFlexGridSizer {
 public:
  explicit FieldGrid(const wxWindow& parent);

  void add(wxWindow* name, wxWindow* field);
  /// The same for a field of several lines, whose name stands at its top.
  void addTall(wxWindow* name, wxWindow* field);
};

/// One place for several parts: each that is shown gets all of it. It takes the room of the largest, shown or
/// not, so that a form keeps its size while they take turns.
class SharedPlace : public wxSizer {
 public:
  wxSize CalcMin() override;
  void RepositionChildren(const wxSize& least) override;
};

/// Hides `below`, which is no control's own widget, while `above` is shown in the same place.
void coverWhileShown(wxWindow& below, wxWindow& above);

/// Lets the room that the form has decide how wide the widget is, and not what stands in it.
void keepNarrow(wxWindow& widget, int leastWidth);

}  // namespace varnhold::ui::wx
