#pragma once

#include "console/forms.h"
#include "core/program.h"
#include "ui/controls/screen.h"

/// The run mode of an empty command line.
namespace varnhold::startup {

/// Brings the console up: a splash, the inventory, the products that are installed, the discovery mode, and
/// then the main form, shown modeless. Run-time errors reach the caller. Main thread, under the dispatcher.
void startConsole(core::Program& program, console::Forms& forms);

/// Runs `Main` as a whole process with a user interface, until the operator leaves. `program.host.ui` is
/// `screen`. Gives the exit status: `Main`'s own, or 1 when a run-time error has ended the program.
[[nodiscard]] int runConsoleProcess(core::Program& program, ui::Screen& screen, console::Forms& forms);

}  // namespace varnhold::startup
