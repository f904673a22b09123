#include "ui/controls/tool_bar.h"

#include "ui/controls/collection_errors.h"

namespace varnhold::ui {

bool ToolButton::isGap() const {
  return Caption.get().empty() && ToolTipText.get().empty() && Picture.get().empty();
}

ToolButton& ToolBar::AddButton(const std::string& caption, const std::string& toolTip,
                               const std::string& picture) {
  buttons_.push_back(std::make_unique<ToolButton>(ButtonCount() + 1, [this] { syncView(); }));
  auto& button = *buttons_.back();
  button.Caption.settle(caption);
  button.ToolTipText.settle(toolTip);
  button.Picture.settle(picture);
  syncView();
  return button;
}

ToolButton& ToolBar::Buttons(int index) const {
  checkIndex("button", index, buttons_.size());
  return *buttons_[static_cast<std::size_t>(index) - 1];
}

void ToolBar::userClick(int button) {
  act([&] {
    if (button < 1 || button > ButtonCount()) return;
    auto& clicked = Buttons(button);
    if (clicked.Enabled && clicked.Visible && !clicked.isGap()) ButtonClick.raise(clicked);
  });
}

void ToolBar::keepDesign() {
  for (const auto& button : buttons_) button->keepDesign();
  Control::keepDesign();
}

void ToolBar::restoreDesign() {
  for (const auto& button : buttons_) button->restoreDesign();
  Control::restoreDesign();
}

}  // namespace varnhold::ui
