#include "ui/controls/menu_item.h"

#include "ui/controls/form.h"

namespace varnhold::ui {

MenuItem::MenuItem(std::string caption, std::string shortcut) {
  Caption.settle(std::move(caption));
  Shortcut.settle(std::move(shortcut));
}

std::vector<MenuItem*> MenuItem::Items() const {
  return form() == nullptr ? std::vector<MenuItem*>() : form()->menuItems(this);
}

bool MenuItem::isReachable() const {
  const Control* poppedUp = form() == nullptr ? nullptr : form()->poppedUp();
  for (const Control* item = this; item != nullptr && item != poppedUp; item = item->Container()) {
    if (!item->Enabled || !item->Visible) return false;
  }
  return form() == nullptr || form()->acceptsInput();
}

void MenuItem::userClick() {
  if (isSeparator()) return;
  actWithoutFocus([&] { Click.raise(); });
}

}  // namespace varnhold::ui
