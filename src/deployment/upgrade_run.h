#pragma once

#include <span>
#include <string>

#include "deployment/engine_run.h"
#include "ui/controls/toolkit.h"

namespace varnhold::deployment {

/// What both upgrades share. A run-time error ends them.
class UpgradeRun : protected EngineRun {
 protected:
  UpgradeRun(core::Program& program, frmTargets& form) : EngineRun(program, form, ErrorPolicy::EndRun) {}

  /// What both begin with.
  void resetLog();
  /// Whether the computer is upgraded. Looks anew at one whose type is not known or no Windows, and asks the
  /// operator where that did not help. The answer only counts for an unknown type, deliberately: a computer
  /// that is known to run something else never passes.
  [[nodiscard]] bool passesWindowsTest();
  /// True when the computer is passed over; the row, and for a missing agent the log, then say why.
  /// `installed` are the statuses of an agent that the upgrade can take.
  [[nodiscard]] bool isSkipped(std::span<const GateTerm> installed);

 private:
  [[nodiscard]] ui::Answer askWhetherWindows();

  ui::Answer answer_ = ui::Answer::Yes;  ///< the last one, in force for the rest of the run
};

}  // namespace varnhold::deployment
