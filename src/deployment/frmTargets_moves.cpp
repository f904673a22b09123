// How the wizard goes from page to page, and what it checks on the way.
#include "base/text.h"
#include "base/unicode.h"
#include "core/program.h"
#include "deployment/agent_polling.h"
#include "deployment/frmTargets.h"
#include "deployment/job.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

constexpr std::size_t kShortestPath = 6;  // characters, a closing backslash among them

}  // namespace

bool hasSnapshots(const std::string& status) {
  return containsIgnoringCase(status, "Tracking Changes");
}

void frmTargets::wireMoves() {
  cmdNext.Click = [this] { cmdNext_Click(); };
  cmdBack.Click = [this] { cmdBack_Click(); };
  cmdAdvanced.Click = [this] { cmdAdvanced_Click(); };
}

void frmTargets::cmdNext_Click() {
  CurrentPage = CurrentPage == 1 && Operation == kOperationInstall ? 3 : CurrentPage + 1;
  screen().MousePointer = ui::Pointer::Hourglass;
  if (CurrentPage == 2) {
    listSelectedSystems();
    if (lvSystems.ListItems.Count() == 0) return stayOnPage("No computer selected.");
  }
  if (CurrentPage == 3 && Operation == kOperationUpgrade) CurrentPage = 5;
  if (CurrentPage == 4 && !hasBothProducts()) CurrentPage = 5;
  if (CurrentPage == 7 && !ConfigFileExists(txtTemplate.Text))
    return stayOnPage("The specified config file either does not exist or cannot be reached.");
  screen().MousePointer = ui::Pointer::Default;
  ShowCurrentPage();
}

void frmTargets::listSelectedSystems() {
  const ui::ListView::BulkUpdate update(lvSystems);
  lvSystems.ListItems.Clear();
  for (const auto& chosen : lvSelected.ListItems) {
    auto& row = lvSystems.ListItems.Add(chosen.Text);
    row.SubItems(kStatusSubItem) = chosen.Tag.get();
    if (asksForSnapshots() && hasSnapshots(chosen.Tag)) {
      row.SubItems(kKeepSnapsSubItem) = "No";
      row.ListSubItems(kKeepSnapsSubItem).Tag = kSnapsNotKept;
    }
  }
}

void frmTargets::stayOnPage(const std::string& reason) {
  --CurrentPage;
  screen().MousePointer = ui::Pointer::Default;
  screen().messageBox(reason, platform::MessageIcon::Exclamation);
}

void frmTargets::cmdBack_Click() {
  CurrentPage = CurrentPage == 3 ? 1 : CurrentPage - 1;
  if (CurrentPage == 4 && !hasBothProducts()) --CurrentPage;
  if (CurrentPage == 3 && Operation == kOperationUpgrade) CurrentPage = 2;
  ShowCurrentPage();
}

void frmTargets::cmdAdvanced_Click() {
  if (!ValidateInstallPath()) return refuseInstallPath();
  if (!ValidatePolling()) return;
  CurrentPage = OptAgentbased.Value ? CurrentPage + 1 : 6;
  ShowCurrentPage();
}

void frmTargets::refuseInstallPath() {
  screen().messageBox("Please ensure that the installation path is at least 2 levels deep.",
                      platform::MessageIcon::Critical);
}

/// The length counts a closing backslash, the levels don't, deliberately.
bool frmTargets::ValidateInstallPath() {
  auto& box = optClient(0).Value ? txtPathVHW : txtPathTKW;
  std::string path = box.Text;
  if (toUtf16(path).size() < kShortestPath) return false;
  if (path.ends_with('\\')) {
    path.pop_back();
    box.Text = path;
  }
  const auto first = path.find('\\');
  return first != std::string::npos && path.find('\\', first + 1) != std::string::npos;
}

/// A folder of that name will do, deliberately: the library says what it cannot copy.
bool frmTargets::ConfigFileExists(const std::string& path) {
  return optConfig(0).Value || program_.host.files.isThere(path);
}

PollingControls frmTargets::pollingControls() const {
  return {cboPollFreq.ListIndex, txtStartHour.Text, txtStartMin.Text};
}

bool frmTargets::ValidatePolling() {
  return deployment::ValidatePolling(screen(), OptAgentless.Value, pollingControls());
}

void frmTargets::SavePollingSettings() {
  deployment::SavePollingSettings(program_.host.registry, screen(), pollingControls());
}

}  // namespace varnhold::deployment
