#include "inventory/console_parts.h"

#include <utility>

#include "core/online_help.h"
#include "core/program.h"
#include "ui/controls/screen.h"

namespace varnhold::inventory {

ConsoleForm::ConsoleForm(core::Program& program, ui::Screen& screen, std::string name, ConsoleParts parts)
    : Form(screen, std::move(name)), program_(program), parts_(std::move(parts)) {}

void ConsoleForm::Form_KeyDown(int& key, int) {
  if (key == ui::kKeyF1) core::ShowOnlineHelp(program_.host.processes, screen());
}

}  // namespace varnhold::inventory
