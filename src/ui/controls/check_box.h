#pragma once

#include <string>

#include "ui/controls/control.h"

namespace varnhold::ui {

class CheckBox : public Viewed<ControlView> {
 public:
  CheckBox();
  explicit CheckBox(std::string caption);

  Property<std::string> Caption{*this};
  /// 1 ticked, 0 clear. Setting it raises Click, by code too. Error 380 for any other value.
  Property<int> Value;

  Event<> Click{*this};

  [[nodiscard]] bool takesFocus() const override { return true; }
  [[nodiscard]] std::string mnemonicText() const override { return Caption; }

  /// Ticks or clears the box.
  void userClick();
  void userMnemonic() override { userClick(); }

 protected:
  void changed(const PropertyBase& property) override;
};

}  // namespace varnhold::ui
