#pragma once

#include <string>
#include <vector>

#include "ui/controls/item_box.h"

namespace varnhold::ui {

enum class MultiSelect { None = 0, Simple = 1, Extended = 2 };

/// A list of entries of which one, or with `MultiSelect` several, can be selected. In a list of several,
/// `ListIndex` is the entry that has the focus rectangle, and says nothing about what is selected.
class ListBox : public ItemBox {
 public:
  Property<ui::MultiSelect> MultiSelect{*this, ui::MultiSelect::None};
  /// The first entry shown. Scrolls the view; not updated when the user scrolls.
  [[nodiscard]] int TopIndex() const { return topIndex_; }
  /// How far the list scrolls sideways, in pixels; 0 not at all.
  Property<int> HorizontalExtent{*this};

  /// The text of the current entry; empty for none.
  [[nodiscard]] std::string Text() const { return List(ListIndex); }
  /// False outside the list.
  [[nodiscard]] bool Selected(int index) const;
  /// Selects an entry or takes it out of the selection; selecting makes it the current one too. Raises Click
  /// once where it changes anything. Error 381 outside the list.
  void SetSelected(int index, bool selected);
  [[nodiscard]] int SelCount() const;

  /// LB_SETTOPINDEX (winuser.h); an index outside the list scrolls nothing.
  void setTopIndex(int index);
  /// LB_SETCURSEL (winuser.h): selects this entry alone and makes it current; -1, or an index outside the
  /// list, clears the selection. Raises nothing. Here it works on a list of several too.
  void setCurSel(int index);
  /// The width of a text in the list's font, in pixels; 0 without a view.
  [[nodiscard]] int textWidth(std::string_view text) const;

  /// A click on an entry: selects it alone; in a list of several, `kControl` (always, where it is `Simple`)
  /// turns the entry over, and `kShift` selects from the current entry to this one. Raises Click.
  void userClick(int index, int modifiers = kNoModifier);
  void userDblClick(int index);
  /// Exactly these entries are now selected, and `current` has the focus rectangle. Raises Click.
  void userSelection(const std::vector<int>& selected, int current);

  void restoreDesign() override;

 protected:
  void currentChanged() override;
  void entryRemoved(int index) override;

 private:
  [[nodiscard]] bool severalAllowed() const { return MultiSelect != ui::MultiSelect::None; }
  void selectOnly(int first, int last);

  int topIndex_ = 0;
};

}  // namespace varnhold::ui
