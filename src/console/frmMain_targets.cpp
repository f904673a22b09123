// How the rows of the list become the targets of the deployment wizard.
#include "console/agent_status.h"
#include "console/frmMain.h"
#include "core/program.h"
#include "deployment/frmTargets.h"

namespace varnhold::console {
namespace {

constexpr int kWizardStatus = 1, kKeepSnaps = 2;  // columns of lvSystems
constexpr int kKeepSnapsIcon = 2;

bool isStandard(const std::string& status) {
  return status == "Managed - Standard Mode";
}
bool isHighPerformance(const std::string& status) {
  return status == "Managed - High Performance Mode";
}

// The tree's rules: which rows go to the wizard.
bool treeAdds(const std::string& status) {
  return !isStandard(status);
}
bool treeRemoves(const std::string& status) {
  return isStandard(status) || isHighPerformance(status) || status == "Managed - Agentless Mode";
}
bool treeUpgrades(const std::string& status) {
  return isStandard(status) || isHighPerformance(status);
}

/// The list's rule for removing and upgrading.
bool isRemovable(const ui::ListItem& row, const std::string& localName) {
  const auto& status = row.SubItems(kStatusColumn);
  return row.SubItems(kTypeColumn) != "Sun Solaris (BSM)" && status != "Managed" && row.Text != localName &&
         status != "Unmanaged";
}

ui::ListItem& addTarget(ui::ListView& list, const ui::ListItem& row) {
  auto& target = list.ListItems.Add(row.Text);
  target.SubItems(kWizardStatus) = row.SubItems(kStatusColumn);
  return target;
}

/// Snapshots are not kept unless the operator says so.
void keepSnaps(ui::ListItem& target) {
  const bool hasSnaps = deployment::hasSnapshots(target.SubItems(kWizardStatus));
  target.SubItems(kKeepSnaps) = hasSnaps ? "No" : "";
  if (hasSnaps) target.ListSubItems(kKeepSnaps).ReportIcon = kKeepSnapsIcon;
}

}  // namespace

struct frmMain::WizardRule {
  Operation operation;
  int page;
  bool (*passes)(const std::string& status);
};

void frmMain::showWizard() {
  wizard->form.ShowModal(this);
}

void frmMain::beginWizard(Operation operation, int page) {
  wizard->form.Load();
  wizard->Operation = static_cast<int>(operation);
  wizard->CurrentPage = page;
}

void frmMain::wizardFromMenu(Operation operation) {
  beginWizard(operation, 1);
  showWizard();
}

void frmMain::wizardFromTree(Operation operation) {
  static constexpr WizardRule kRules[] = {{Operation::Add, 1, treeAdds},
                                          {Operation::Remove, 2, treeRemoves},
                                          {Operation::Upgrade, 2, treeUpgrades}};
  const auto& rule = kRules[static_cast<int>(operation) - 1];
  beginWizard(operation, rule.page);
  passRowsOfTree(rule);
  if (operation != Operation::Add) fillPathSystems();
  showWizard();
}

void frmMain::passRowsOfTree(const WizardRule& rule) {
  ui::ListItem* last = nullptr;
  for (const auto& row : lvListView.ListItems) {
    // A name that differs in case is not taken for this computer, deliberately.
    if (rule.operation != Operation::Add && row.Text == program_.gLocalName) continue;
    if (rule.passes(row.SubItems(kStatusColumn))) last = &addTarget(wizard->lvSystems, row);
    const bool looksAtSnaps = rule.operation == Operation::Remove && !program_.gChangesRoot.empty();
    if (looksAtSnaps && last != nullptr) keepSnaps(*last);
  }
}

void frmMain::fillPathSystems() {
  wizard->lstPathSystems.Clear();
  for (const auto& target : wizard->lvSystems.ListItems) wizard->lstPathSystems.AddItem(target.Text);
}

void frmMain::wizardFromList(Operation operation) {
  beginWizard(operation, 2);
  if (operation == Operation::Add) {
    addSelectedRows();
  } else {
    removeSelectedRows(operation);
  }
  const bool hasTargets = wizard->lvSystems.ListItems.Count() > 0;
  // Where it is not shown nothing is said, and the wizard stays loaded with what it holds.
  if (operation == Operation::Remove || (hasTargets && !(operation == Operation::Add && isLocalFocused()))) {
    showWizard();
  }
}

/// One row, this computer's, keeps the wizard from all the others, deliberately.
bool frmMain::isLocalFocused() const {
  const auto focused = lvListView.SelectedItem();
  return focused && focused->Text == program_.gLocalName;
}

void frmMain::addSelectedRows() {
  for (const auto& row : lvListView.ListItems) {
    if (!row.Selected || row.SubItems(kStatusColumn) != "Unmanaged") continue;
    addTarget(wizard->lvSystems, row);
    addTarget(wizard->lvSelected, row);
  }
}

void frmMain::removeSelectedRows(Operation operation) {
  wizard->lstPathSystems.Clear();
  for (const auto& row : lvListView.ListItems) {
    if (!row.Selected || !isRemovable(row, program_.gLocalName)) continue;
    auto& target = addTarget(wizard->lvSystems, row);
    wizard->lstPathSystems.AddItem(row.Text);
    if (operation == Operation::Remove && !program_.gChangesRoot.empty()) keepSnaps(target);
  }
}

}  // namespace varnhold::console
