#include "ui/controls/label.h"

#include "ui/controls/form.h"

namespace varnhold::ui {

Label::Label(std::string caption) {
  Caption.settle(std::move(caption));
}

void Label::userPress(MouseButton button) {
  act([&] {
    MouseDown.raise(button);
    if (button == MouseButton::Left) Click.raise();
  });
}

void Label::userMove(bool inside) {
  act([&] { MouseMove.raise(inside); });
}

void Label::userMnemonic() {
  if (form() == nullptr) return;
  if (auto* next = form()->focusableBehind(*this)) next->userFocus();
}

}  // namespace varnhold::ui
