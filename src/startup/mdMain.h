#pragma once

#include <functional>
#include <string>

#include "core/program.h"

/// The one entry point of the program and the choice of its run mode.
namespace varnhold::startup {

/// The console branch: brings the console up and gives the exit status.
using ConsoleMode = std::function<int(core::Program&)>;

/// Starts the program: a command line of any length, blanks included, is run by the command-line installer;
/// an empty one is the console's, unless another console runs, which then comes to the front. Gives the
/// process's exit status: 1 when the working directory can't be set, else 0, or the console's own. Run-time
/// errors that no documented handler takes reach the caller. Main thread.
[[nodiscard]] int Main(core::Program& program, const ConsoleMode& console);

/// Runs `Main` as a whole process: a run-time error that leaves it is shown with number and description, and
/// the exit status is 1.
[[nodiscard]] int runProcess(core::Program& program, const ConsoleMode& console);

/// Brings the console of another process to the front, maximised; false where that fails or where its window
/// was not visible.
[[nodiscard]] bool SwitchToPreviousInstance(core::Program& program);

}  // namespace varnhold::startup
