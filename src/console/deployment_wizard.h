#pragma once

#include "ui/controls/form.h"
#include "ui/controls/list_box.h"
#include "ui/controls/list_view.h"

namespace varnhold::console {

/// What the console sets of the deployment wizard before it shows it. All of it belongs to the wizard.
struct DeploymentWizard {
  ui::Form& form;
  int& Operation;    ///< 1 add agents, 2 remove agents, 3 upgrade agents
  int& CurrentPage;  ///< the page it opens on: 1 the selection, 2 the one behind it
  /// The candidates: a computer's name, its status, and what is to become of its snapshots.
  ui::ListView& lvSystems;
  ui::ListView& lvSelected;     ///< the computers chosen on the selection page
  ui::ListBox& lstPathSystems;  ///< the computers of the page that asks for a path
};

}  // namespace varnhold::console
