#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/controls/bar_part.h"
#include "ui/controls/control.h"

namespace varnhold::ui {

class ToolButton : public BarPart {
 public:
  ToolButton(int index, std::function<void()> tellBar) : BarPart(std::move(tellBar)), index_(index) {}

  Property<std::string> Caption{*this};
  Property<std::string> ToolTipText{*this};
  /// A picture by its name (see `Image`).
  Property<std::string> Picture{*this};
  Property<bool> Enabled{*this, true};
  Property<bool> Visible{*this, true};

  /// From 1.
  [[nodiscard]] int Index() const { return index_; }
  /// A button without caption, tool tip and picture is only a gap.
  [[nodiscard]] bool isGap() const;

 private:
  int index_;
};

/// A bar of buttons that are told by their index. It never takes the focus.
class ToolBar : public Viewed<ControlView> {
 public:
  /// For the bar's design: the next button.
  ToolButton& AddButton(const std::string& caption, const std::string& toolTip,
                        const std::string& picture = {});
  /// From 1. Error 35600 where there is no such button.
  [[nodiscard]] ToolButton& Buttons(int index) const;
  [[nodiscard]] int ButtonCount() const { return static_cast<int>(buttons_.size()); }

  Event<ToolButton&> ButtonClick{*this};

  /// Does nothing for a gap, a disabled or an invisible button.
  void userClick(int button);

  void keepDesign() override;
  void restoreDesign() override;

 private:
  std::vector<std::unique_ptr<ToolButton>> buttons_;
};

}  // namespace varnhold::ui
