#pragma once

namespace varnhold::deployment {
class frmTargets;
}

class wxWindow;

/// The pages of the deployment wizard, each the widget of the frame that it is named after.
namespace varnhold::ui::wx {

wxWindow* computersPage(wxWindow& inside, deployment::frmTargets& form);
wxWindow* agentTypePage(wxWindow& inside, deployment::frmTargets& form);
wxWindow* agentsPage(wxWindow& inside, deployment::frmTargets& form);
wxWindow* pathPage(wxWindow& inside, deployment::frmTargets& form);

}  // namespace varnhold::ui::wx
