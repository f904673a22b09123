#include "console/frmWait.h"

#include "console/background_thread.h"
#include "core/program.h"
#include "ui/controls/screen.h"

namespace varnhold::console {
namespace {

constexpr int kRounds = 75;
constexpr std::uint32_t kRoundMs = 200;

}  // namespace

frmWait::frmWait(core::Program& program, ui::Screen& screen) : Form(screen, "frmWait"), program_(program) {
  Caption = program.AppTitle;
  adopt({{"lblTitle", lblTitle}});
}

std::array<platform::ThreadHandle*, 4> frmWait::threads() const {
  return {&program_.gEnumThread, &program_.gDomainThread, &program_.gSubnetThread, &program_.gSpareThread};
}

void frmWait::waitForThreads() {
  for (int round = 0; round < kRounds; ++round) {
    Refresh();
    screen().DoEvents();
    program_.host.clock.sleep(kRoundMs);
    bool someAlive = false;
    for (auto* thread : threads()) someAlive = isRunning(program_.host.threads, *thread) || someAlive;
    if (!someAlive) return;
  }
}

void frmWait::Form_Activate() {
  if (WaitForThreads) waitForThreads();
  // Also where nobody is to be waited for: activating this form ends whatever still runs.
  for (auto* thread : threads()) {
    if (*thread == 0) continue;
    (void)program_.host.threads.terminateThread(*thread, 0);
    program_.host.threads.closeHandle(*thread);
    *thread = 0;
  }
  Unload();
}

}  // namespace varnhold::console
