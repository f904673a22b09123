#pragma once

#include "ui/controls/control.h"

namespace varnhold::ui {

class ProgressBar : public Viewed<ControlView> {
 public:
  ProgressBar();

  Property<int> Min{*this, 0};
  Property<int> Max{*this, 100};
  /// `Min` to `Max`. Error 380 outside them.
  Property<int> Value;
};

}  // namespace varnhold::ui
