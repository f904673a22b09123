#pragma once

class wxWindow;

namespace varnhold::console {
class SplashForm;
class frmMain;
class frmWait;
}  // namespace varnhold::console

namespace varnhold::deployment {
class frmLogin;
class frmRemedialActionHelp;
class frmTargets;
}  // namespace varnhold::deployment

namespace varnhold::inventory {
class frmDetails;
class frmNetAccessSel;
class frmSystemType;
}  // namespace varnhold::inventory

/// The views of the program's forms, one source each. `allViews` lists them by the names of their forms.
namespace varnhold::ui::wx {

void layOutDetails(wxWindow& inside, inventory::frmDetails& form);
void layOutLogin(wxWindow& inside, deployment::frmLogin& form);
void layOutMain(wxWindow& inside, console::frmMain& form);
void layOutNetAccessSel(wxWindow& inside, inventory::frmNetAccessSel& form);
void layOutRemedialActionHelp(wxWindow& inside, deployment::frmRemedialActionHelp& form);
void layOutSplash(wxWindow& inside, console::SplashForm& form);
void layOutSystemType(wxWindow& inside, inventory::frmSystemType& form);
void layOutTargets(wxWindow& inside, deployment::frmTargets& form);
void layOutWait(wxWindow& inside, console::frmWait& form);

}  // namespace varnhold::ui::wx
