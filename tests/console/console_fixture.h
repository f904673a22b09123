#pragma once

#include <gmock/gmock.h>

#include <string>

#include "console/forms.h"
#include "core/program.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/scripted_ui.h"

namespace varnhold::console {

/// The console's forms over a host in memory, not yet loaded.
class ConsoleTest : public testing::Test {
 protected:
  explicit ConsoleTest(const char* appTitle = core::kManagerTitle)
      : ui(fake.journal, appTitle), program(fake.host(), appTitle, fake.statementListener()) {}

  fakes::FakeHost fake;
  fakes::ScriptedUi ui;
  core::Program program;
  Forms forms{program, ui.screen};
  console::frmMain& frmMain = forms.frmMain;
};

}  // namespace varnhold::console
