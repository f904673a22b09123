#include "ui/controls/status_bar.h"

#include "ui/controls/collection_errors.h"

namespace varnhold::ui {

StatusBar::StatusBar(int panels) {
  for (int i = 0; i < panels; ++i) panels_.push_back(std::make_unique<Panel>([this] { syncView(); }));
}

Panel& StatusBar::Panels(int index) const {
  checkIndex("panel", index, panels_.size());
  return *panels_[static_cast<std::size_t>(index) - 1];
}

void StatusBar::keepDesign() {
  for (const auto& panel : panels_) panel->keepDesign();
  Control::keepDesign();
}

void StatusBar::restoreDesign() {
  for (const auto& panel : panels_) panel->restoreDesign();
  Control::restoreDesign();
}

}  // namespace varnhold::ui
