// How the wizard comes up and goes away.
#include "deployment/frmTargets.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/runtime_error.h"
#include "core/program.h"
#include "deployment/agent_configuration.h"
#include "deployment/job.h"
#include "store/recordset.h"
#include "store/table_names.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

// Places in the console's image list.
constexpr int kTessmarkImage = 3, kVarnholdImage = 4;

struct OperationTexts {
  std::int32_t operation;
  const char *formCaption, *action, *agentInfo;
};
constexpr OperationTexts kOperations[] = {
    {kOperationInstall, "Add Agent", "&Install", "Select the Agent software(s) to install."},
    {kOperationUninstall, "Uninstall Remote Agent(s)", "&Uninstall",
     "Select the Agent software(s) to uninstall."},
    {kOperationUpgrade, "Upgrade Remote Agent(s)", "&Upgrade", "Select the Agent software(s) to upgrade."}};

const OperationTexts* textsOf(std::int32_t operation) {
  const auto found = std::find_if(std::begin(kOperations), std::end(kOperations),
                                  [&](const auto& texts) { return texts.operation == operation; });
  return found == std::end(kOperations) ? nullptr : found;
}

}  // namespace

frmTargets::frmTargets(core::Program& program, ui::Screen& screen, ConsoleOfWizard console, frmLogin& login,
                       frmRemedialActionHelp& remedialHelp)
    : Form(screen, "frmTargets"),
      program_(program),
      console_(std::move(console)),
      login_(login),
      remedialHelp_(remedialHelp) {
  designPages();
  adoptControls();
  wireMoves();
  wireRun();
  wireSelection();
  wireOptions();
}

void frmTargets::Form_Load() {
  Activated = ErrorsSeen = RunBusy = StopRequested = false;
  if (program_.AppTitle == core::kChangesTitle) Icon = console_.imlIcons.ListImages(kTessmarkImage);
  if (program_.AppTitle == core::kManagerTitle) Icon = console_.imlIcons.ListImages(kVarnholdImage);
  optClient(1).Caption = program_.gChangesName;
  OptAgentbased.Value = true;
  OptAgentless.Value = false;
  // The wizard opens without the closed library too; its engines say what is missing.
  const ResumeNext resume;
  LocalOSMajor = 0;
  resume.step([this] { writeConfigIPAddr(program_.host); });
  resume.step([this] {
    platform::SystemDetails thisComputer;
    thisComputer.SystemName = program_.gLocalName;
    (void)program_.host.libraries.qrvFindSystemAndReturnDetails(thisComputer);
    LocalOSMajor = thisComputer.OSMajorVersion;
  });
}

// Runs at every activation: after a modal form the page is shown anew and its options stand as at first.
void frmTargets::Form_Activate() {
  store::Recordset groups;
  const ResumeNext resume([&](const RuntimeError&) {
    screen().MousePointer = ui::Pointer::Default;
    groups.Close();
  });
  screen().MousePointer = ui::Pointer::Hourglass;
  resume.step([this] { captionOperation(); });
  resume.step([this] { sizeColumns(); });
  resume.step([this] { ShowCurrentPage(); });
  screen().DoEvents();
  Refresh();
  screen().MousePointer = ui::Pointer::Hourglass;
  resume.step([this] { selectTreeNode(); });
  resume.step([&] { addGroups(groups); });
  optClient(program_.gInstallerDir.empty() ? 1 : 0).Value = true;
  optAccounts(0).Value = true;
  optConfig(0).Value = true;
  chooseGroup(resume);
  if (!Activated) cmdBack.Enabled = false;
  Activated = true;
  screen().MousePointer = ui::Pointer::Default;
  groups.Close();
}

void frmTargets::captionOperation() {
  const auto* const texts = textsOf(Operation);
  if (texts == nullptr) return;
  Caption = texts->formCaption;
  cmdInstall.Caption = texts->action;
  lblAgentInfo.Caption = texts->agentInfo;
  if (Operation == kOperationUpgrade) cmdNext.Enabled = true;
}

void frmTargets::sizeColumns() {
  const bool hasKeepSnaps = lvSystems.ColumnHeaders.Count() > kKeepSnapsSubItem;
  if (hasKeepSnaps && !asksForSnapshots()) lvSystems.ColumnHeaders.Remove(kKeepSnapsSubItem + 1);
  SizefrmControls();
}

void frmTargets::selectTreeNode() {
  const auto node = console_.tvTreeView.SelectedItem();
  if (!node) return;
  console_.tvTreeView.SetSelectedItem(node.get());
  console_.tvTreeView_NodeClick(node.get());
}

/// The list is not cleared first: each activation adds the same names again, deliberately.
void frmTargets::addGroups(store::Recordset& groups) {
  groups.Open(std::string(store::mdDataBase::kSystemGroupMaster), program_.gConn, store::CursorType::Static,
              store::LockType::ReadOnly);
  for (; !groups.Bof() && !groups.Eof(); groups.MoveNext())
    cboGroups.AddItem(groups.Fields("Group_Name").value().asText());
}

void frmTargets::chooseGroup(const ResumeNext& resume) {
  const auto node = console_.tvTreeView.SelectedItem();
  const bool isGroup = node && node->Index() != 1;
  // Fills `lvSelect`, where it is another text than before. A group that is no longer there is passed over.
  resume.step([&] { cboGroups.Text = isGroup ? node->Text.get() : kAllGroups; });
  cboGroups.Enabled = !isGroup;
}

void frmTargets::Form_QueryUnload(int& cancel, ui::UnloadMode mode) {
  if (mode == ui::UnloadMode::FormControlMenu && RunBusy) cancel = 1;
}

void frmTargets::Form_Unload() {
  console_.mnuViewRefresh_Click();
}

void frmTargets::Form_Resize() {
  SizefrmControls();
}

void frmTargets::SizefrmControls() {
  for (auto* const list : {&lvSelect, &lvSelected}) list->ColumnHeaders(1).Width = 1.0;
  auto& columns = lvSystems.ColumnHeaders;
  const bool hasKeepSnaps = columns.Count() > kKeepSnapsSubItem;
  // A third and the rest, or a third, a half and the rest.
  columns(1).Width = hasKeepSnaps ? 2.0 : 1.0;
  columns(2).Width = hasKeepSnaps ? 3.0 : 2.0;
  if (hasKeepSnaps) columns(3).Width = 1.0;
}

}  // namespace varnhold::deployment
