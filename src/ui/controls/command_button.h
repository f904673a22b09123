#pragma once

#include <string>

#include "ui/controls/control.h"

namespace varnhold::ui {

class CommandButton : public Viewed<ControlView> {
 public:
  CommandButton() = default;
  explicit CommandButton(std::string caption);

  Property<std::string> Caption{*this};
  /// Enter presses it, wherever on the form the focus is, unless that is on another button.
  Property<bool> Default{*this};
  /// Escape presses it.
  Property<bool> Cancel{*this};

  Event<> Click{*this};

  [[nodiscard]] bool takesFocus() const override { return true; }
  [[nodiscard]] std::string mnemonicText() const override { return Caption; }

  void userClick();
  /// Pressed by Enter or Escape on the form: as a click, but the focus stays where it is.
  void userPress();
  void userMnemonic() override { userClick(); }
};

}  // namespace varnhold::ui
