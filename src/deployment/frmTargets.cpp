// How the wizard comes up and goes away.
#include "deployment/frmTargets.h"

#include <utility>

#include "base/runtime_error.h"
#include "core/program.h"
#include "deployment/agent_configuration.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

// Places in the console's image list.
constexpr int kTessmarkImage = 3, kVarnholdImage = 4;

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
