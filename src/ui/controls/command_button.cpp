#include "ui/controls/command_button.h"

namespace varnhold::ui {

CommandButton::CommandButton(std::string caption) {
  Caption.settle(std::move(caption));
}

void CommandButton::userClick() {
  act([&] { Click.raise(); });
}

void CommandButton::userPress() {
  actWithoutFocus([&] { Click.raise(); });
}

}  // namespace varnhold::ui
