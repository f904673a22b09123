#pragma once

#include <string>
#include <vector>

#include "ui/controls/control.h"

namespace varnhold::ui {

/// An entry of a menu, or a menu: an entry in which others stand. The entries that stand in nothing are the
/// form's menu bar, in the order in which the form adopted them; of those, one that is never visible serves
/// as a pop-up menu. An entry with the caption "-" is a separator.
class MenuItem : public Viewed<ControlView> {
 public:
  MenuItem() = default;
  /// `shortcut` as `Shortcut`.
  explicit MenuItem(std::string caption, std::string shortcut = {});

  Property<std::string> Caption{*this};
  /// The key that chooses the entry from anywhere on the form, as it reads in the menu: "F5", "Ctrl+F". Empty
  /// for none.
  Property<std::string> Shortcut{*this};
  Property<bool> Checked{*this};

  /// The entry was chosen, or the menu is about to open.
  Event<> Click{*this};

  [[nodiscard]] bool isSeparator() const { return Caption == "-"; }
  /// The entries that stand in this one, in order.
  [[nodiscard]] std::vector<MenuItem*> Items() const;

  /// Looks at the entry and the menus above it; while a menu is popped up, no further than that one.
  [[nodiscard]] bool isReachable() const override;
  [[nodiscard]] std::string mnemonicText() const override { return isSeparator() ? "" : Caption.get(); }

  /// The user chose the entry, or opened the menu: Click. The menus above it must have been opened first
  /// where their Click decides about it. Does nothing on a separator.
  void userClick();
};

}  // namespace varnhold::ui
