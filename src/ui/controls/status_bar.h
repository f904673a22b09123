#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/controls/bar_part.h"
#include "ui/controls/control.h"

namespace varnhold::ui {

class Panel : public BarPart {
 public:
  using BarPart::BarPart;

  Property<std::string> Text{*this};
};

/// A status bar with a fixed number of panels; the first takes the room that the others leave.
class StatusBar : public Viewed<ControlView> {
 public:
  explicit StatusBar(int panels);

  /// From 1. Error 35600 where there is no such panel.
  [[nodiscard]] Panel& Panels(int index) const;
  [[nodiscard]] int PanelCount() const { return static_cast<int>(panels_.size()); }

  void keepDesign() override;
  void restoreDesign() override;

 private:
  std::vector<std::unique_ptr<Panel>> panels_;
};

}  // namespace varnhold::ui
