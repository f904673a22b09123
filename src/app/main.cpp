#include <exception>
#include <iostream>

#include "core/program.h"
#include "platform/host_adapters.h"
#include "startup/mdMain.h"

namespace {

using namespace varnhold;

core::Host hostOf(platform::HostAdapters& adapters) {
  return {adapters.registry(),  adapters.services(),     adapters.eventLog(), adapters.files(),
          adapters.processes(), adapters.threads(),      adapters.clock(),    adapters.environment(),
          adapters.libraries(), adapters.unattendedUi(), adapters.desktop()};
}

int noConsoleYet(core::Program& program) {
  program.host.ui.messageBox(
      "This build has no console yet. Use the command line: AgentInstaller.exe -I/-U "
      "-N:<System>/-F:<FileName> [-P:<Install Path>]",
      platform::MessageIcon::Critical);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto adapters = platform::makeHostAdapters({argc, argv, {}});
    core::Program program(hostOf(*adapters), VARNHOLD_APP_TITLE);
    return startup::runProcess(program, noConsoleYet);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
