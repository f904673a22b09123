#include "ui/controls/check_box.h"

#include "ui/controls/collection_errors.h"

namespace varnhold::ui {
namespace {

void checkValue(const int& value) {
  if (value != 0 && value != 1) raiseInvalidValue("Value", "a check box is 0 or 1");
}

}  // namespace

CheckBox::CheckBox(std::string caption) : CheckBox() {
  Caption.settle(std::move(caption));
}

CheckBox::CheckBox() : Value(*this, 0, checkValue) {}

void CheckBox::userClick() {
  act([&] { Value = 1 - Value; });
}

void CheckBox::changed(const PropertyBase& property) {
  Control::changed(property);
  if (&property == &Value) Click.raise();
}

}  // namespace varnhold::ui
