#include "inventory/console_parts.h"

#include <utility>

namespace varnhold::inventory {

ConsoleForm::ConsoleForm(core::Program& program, ui::Screen& screen, std::string name, ConsoleParts parts)
    : Form(screen, std::move(name)), program_(program), parts_(std::move(parts)) {}

void ConsoleForm::Form_KeyDown(int& key, int) {
  if (key == ui::kKeyF1) parts_.ShowOnlineHelp();
}

}  // namespace varnhold::inventory
