#pragma once

#include <string>

#include "ui/controls/control.h"

namespace varnhold::ui {

/// One of a group: the option buttons of a form that stand in one container.
class OptionButton : public Viewed<ControlView> {
 public:
  OptionButton() = default;
  explicit OptionButton(std::string caption);

  Property<std::string> Caption{*this};
  /// True when it is the chosen one. Setting it to true clears the others of the group, silently, and raises
  /// Click, by code too; setting it to false raises nothing and leaves the group without a choice.
  Property<bool> Value{*this};

  Event<> Click{*this};

  [[nodiscard]] bool takesFocus() const override { return true; }
  [[nodiscard]] std::string mnemonicText() const override { return Caption; }

  /// Chooses it; nothing when it is chosen already.
  void userClick();
  void userMnemonic() override { userClick(); }

 protected:
  void changed(const PropertyBase& property) override;

 private:
  void clearTheOthers();
};

}  // namespace varnhold::ui
