#include <exception>
#include <iostream>

#include "console/forms.h"
#include "core/program.h"
#include "deployment/admin_shares.h"
#include "platform/host_adapters.h"
#include "startup/console_mode.h"
#include "startup/mdMain.h"
#include "ui/controls/screen.h"
#include "ui/wx/views.h"
#include "ui/wx/wx_toolkit.h"

namespace {

using namespace varnhold;

/// The console, on a screen.
int runWithConsole(platform::HostAdapters& adapters) {
  ui::wx::WxToolkit toolkit(ui::wx::allViews());
  ui::Screen screen(toolkit, VARNHOLD_APP_TITLE);
  core::Program program(core::hostOf(adapters, screen), VARNHOLD_APP_TITLE);
  console::Forms forms(program, screen);
  deployment::removeLeftBatchFile(program);
  return startup::runConsoleProcess(program, screen, forms);
}

/// The command-line installer: no toolkit is started, so that it runs where there is no screen.
int runCommandLine(platform::HostAdapters& adapters) {
  core::Program program(core::hostOf(adapters, adapters.unattendedUi()), VARNHOLD_APP_TITLE);
  return startup::runProcess(program, {});
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto adapters = platform::makeHostAdapters({argc, argv, {}});
    const bool isConsole = adapters->environment().commandLine().empty();
    return isConsole ? runWithConsole(*adapters) : runCommandLine(*adapters);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
