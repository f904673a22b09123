#include "ui/wx/views.h"

#include "console/frmMain.h"
#include "console/frmWait.h"
#include "console/splash.h"
#include "deployment/frmLogin.h"
#include "deployment/frmRemedialActionHelp.h"
#include "deployment/frmTargets.h"
#include "inventory/frmDetails.h"
#include "inventory/frmNetAccessSel.h"
#include "inventory/frmSystemType.h"
#include "ui/wx/form_views.h"

namespace varnhold::ui::wx {

Views allViews() {
  return {
      {"frmDetails", viewOf(layOutDetails)},
      {"frmLogin", viewOf(layOutLogin)},
      {"frmMain", viewOf(layOutMain)},
      {"frmNetAccessSel", viewOf(layOutNetAccessSel)},
      {"frmRemedialActionHelp", viewOf(layOutRemedialActionHelp)},
      {"frmSplash", viewOf(layOutSplash)},
      {"frmSystemType", viewOf(layOutSystemType)},
      {"frmTKWSplash", viewOf(layOutSplash)},
      {"frmTargets", viewOf(layOutTargets)},
      {"frmWait", viewOf(layOutWait)},
  };
}

}  // namespace varnhold::ui::wx
