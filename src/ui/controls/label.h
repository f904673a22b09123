#pragma once

#include <string>

#include "ui/controls/control.h"

namespace varnhold::ui {

class Label : public Viewed<ControlView> {
 public:
  Label() = default;
  explicit Label(std::string caption);

  Property<std::string> Caption{*this};
  /// It looks like a link.
  Property<bool> Link{*this};
  /// The picture of the pointer while `MousePointer` is `Custom`, by name.
  Property<std::string> MouseIcon{*this};

  Event<> Click{*this};
  /// A mouse button went down on the label.
  Event<MouseButton> MouseDown{*this};
  /// The pointer moved; true while it is inside the label. A view tells each entering and leaving at least.
  Event<bool> MouseMove{*this};

  [[nodiscard]] std::string mnemonicText() const override { return Caption; }

  /// A press of a button: MouseDown, and for the left one Click.
  void userPress(MouseButton button = MouseButton::Left);
  void userMove(bool inside);
  /// Gives the focus to the control behind the label.
  void userMnemonic() override;
};

}  // namespace varnhold::ui
