#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>

#include "base/runtime_error.h"
#include "tests/fakes/scripted_ui.h"
#include "ui/controls/command_button.h"
#include "ui/controls/form.h"
#include "ui/controls/text_box.h"

namespace varnhold::ui {

/// A test with a user interface and its journal.
class UiTest : public testing::Test {
 protected:
  fakes::Journal journal;
  fakes::ScriptedUi ui{journal};
};

/// A form with a few controls that writes its life into the journal: `frmA Load`, `frmA Activate`.
class RecordingForm : public Form {
 public:
  RecordingForm(fakes::ScriptedUi& ui, fakes::Journal& journal, std::string name)
      : Form(ui.screen, std::move(name)), journal_(journal) {
    adopt({{"txtName", txtName}, {"cmdOK", cmdOK}, {"cmdCancel", cmdCancel}});
  }

  TextBox txtName{"design"};
  CommandButton cmdOK{"&OK"}, cmdCancel{"&Cancel"};
  /// A public value of the form.
  std::string Result;

  std::function<void()> onLoad, onActivate, onUnload;
  std::function<void(int&, UnloadMode)> onQueryUnload;
  std::function<void(int&, int)> onKeyDown;

 protected:
  void Form_Load() override { happened("Load", onLoad); }
  void Form_Activate() override { happened("Activate", onActivate); }
  void Form_Resize() override { happened("Resize", {}); }
  void Form_Unload() override { happened("Unload", onUnload); }
  void Form_QueryUnload(int& cancel, UnloadMode mode) override {
    happened("QueryUnload " + std::to_string(static_cast<int>(mode)), {});
    if (onQueryUnload) onQueryUnload(cancel, mode);
  }
  void Form_KeyDown(int& key, int modifiers) override {
    happened("KeyDown " + std::to_string(key), {});
    if (onKeyDown) onKeyDown(key, modifiers);
  }

 private:
  void happened(const std::string& what, const std::function<void()>& then) {
    journal_.push_back(Name() + " " + what);
    if (then) then();
  }

  fakes::Journal& journal_;
};

/// The number of the run-time error that `deed` raises; 0 for none.
template <class Deed>
int errorOf(Deed deed) {
  try {
    deed();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

}  // namespace varnhold::ui
