#include "ui/controls/option_button.h"

#include "ui/controls/form.h"

namespace varnhold::ui {

OptionButton::OptionButton(std::string caption) {
  Caption.settle(std::move(caption));
}

void OptionButton::userClick() {
  act([&] { Value = true; });
}

void OptionButton::changed(const PropertyBase& property) {
  const bool chosen = &property == &Value && Value;
  if (chosen) clearTheOthers();
  Control::changed(property);
  if (chosen) Click.raise();
}

void OptionButton::clearTheOthers() {
  if (form() == nullptr) return;
  for (auto* control : form()->controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other == nullptr || other == this || other->Container() != Container() || !other->Value) continue;
    other->Value.settle(false);
    other->syncView();
  }
}

}  // namespace varnhold::ui
