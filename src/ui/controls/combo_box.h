#pragma once

#include <string>

#include "ui/controls/item_box.h"

namespace varnhold::ui {

enum class ComboStyle { DropDownCombo = 0, DropDownList = 2 };

/// A list that drops down. In the style `DropDownList` (what forms have unless they say otherwise) its text
/// is always that of an entry; in the style `DropDownCombo` it can be typed freely.
class ComboBox : public ItemBox {
 public:
  ComboBox();

  Property<ComboStyle> Style{*this, ComboStyle::DropDownList};
  /// `DropDownList`: the text of the current entry, or empty; set to the text of an entry (case ignored) it
  /// makes that entry current and raises Click, and raises error 383 for any other text. `DropDownCombo`: any
  /// text; set by code it raises Change, and no entry is current unless an entry has that very text.
  Property<std::string> Text;

  Event<> Change{*this};

  /// The user chose an entry. Raises Click, unless it is the current one.
  void userSelect(int index);
  /// The user edited the text of a `DropDownCombo`. Raises Change.
  void userEdit(const std::string& text);

 protected:
  void changed(const PropertyBase& property) override;
  void currentChanged() override;
  void entryRemoved(int index) override;

 private:
  [[nodiscard]] int findText(std::string_view text) const;
  void checkText(const std::string& text) const;
};

}  // namespace varnhold::ui
