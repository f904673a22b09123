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

}  // namespace varnhold::ui::wx
