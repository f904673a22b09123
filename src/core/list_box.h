#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What the program does with a list box beyond its rows. Main thread.
namespace varnhold::core {

/// A list box as its window messages address it (winuser.h, LB_*): entries count from 0, -1 is none.
class ListBox {
 public:
  virtual ~ListBox() = default;

  /// LB_FINDSTRING (399): the first entry behind `after` (-1: from the top) that begins with `text`, case
  /// ignored; -1 where there is none.
  [[nodiscard]] virtual std::int32_t findString(std::int32_t after, std::string_view text) = 0;
  /// LB_SETTOPINDEX (407).
  virtual void setTopIndex(std::int32_t index) = 0;
  /// LB_SETCURSEL (390); -1 clears the selection.
  virtual void setCurSel(std::int32_t index) = 0;
  /// LB_SETHORIZONTALEXTENT (404), in pixels.
  virtual void setHorizontalExtent(std::int32_t pixels) = 0;

  [[nodiscard]] virtual std::int32_t count() = 0;
  [[nodiscard]] virtual std::string entry(std::int32_t index) = 0;
  /// The width of a text in the owning form's font, in the unit of the form's scale.
  [[nodiscard]] virtual double textWidth(std::string_view text) = 0;
  /// True when the owning form's scale is in twips, 15 to a pixel; else it is in pixels.
  [[nodiscard]] virtual bool isScaledInTwips() = 0;
};

/// Scrolls to the first entry that begins with `text` and selects it; true when there is one. An empty text
/// scrolls to the top, clears the selection and gives false.
bool FindInList(ListBox& list, std::string_view text);

/// Makes the list scroll as far as its widest entry reaches.
void FitListExtent(ListBox& list);

}  // namespace varnhold::core
