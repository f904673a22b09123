#pragma once

#include <string>

#include "ui/controls/control.h"

namespace varnhold::ui {

/// A frame: other controls stand in it, and what it is (disabled, invisible) holds for them. The option
/// buttons that stand in one container are one group.
class Frame : public Viewed<ControlView> {
 public:
  Frame() = default;
  explicit Frame(std::string caption) { Caption.settle(std::move(caption)); }

  Property<std::string> Caption{*this};
};

/// A picture by the name of an icon (see `Image`), or a container without a caption.
class PictureBox : public Viewed<ControlView> {
 public:
  Property<std::string> Picture{*this};
};

}  // namespace varnhold::ui
