#pragma once

#include "console/frmMain.h"
#include "console/frmWait.h"
#include "console/splash.h"
#include "deployment/frmLogin.h"
#include "deployment/frmRemedialActionHelp.h"
#include "deployment/frmTargets.h"
#include "inventory/frmDetails.h"
#include "inventory/frmNetAccessSel.h"
#include "inventory/frmSystemType.h"

namespace varnhold::console {

/// Every form of the console, each built once. They are loaded and unloaded many times; what they publish to
/// each other in plain members stays. Main thread.
struct Forms {
  /// Both outlive the forms.
  Forms(core::Program& program, ui::Screen& screen);
  Forms(const Forms&) = delete;
  Forms& operator=(const Forms&) = delete;

  console::frmSplash frmSplash;
  console::frmTKWSplash frmTKWSplash;
  console::frmWait frmWait;
  console::frmMain frmMain;  ///< the program's `gMainForm`
  inventory::frmNetAccessSel frmNetAccessSel;
  inventory::frmDetails frmDetails;
  inventory::frmSystemType frmSystemType;
  deployment::frmLogin frmLogin;
  deployment::frmRemedialActionHelp frmRemedialActionHelp;
  deployment::frmTargets frmTargets;
};

}  // namespace varnhold::console
