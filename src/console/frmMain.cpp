// The console's design, and how it comes up.
#include "console/frmMain.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "console/forms.h"
#include "console/icons.h"
#include "console/texts.h"
#include "core/mdCommon.h"
#include "core/program.h"
#include "ui/controls/screen.h"

namespace varnhold::console {
namespace {

// Twips.
constexpr int kWidth = 16200, kHeight = 9600, kLeastWidth = 3000;
constexpr double kFirstSplitterPosition = 3600, kSplitterMargin = 500;

constexpr std::uint32_t kBackgroundPollMs = 1000, kDesktopPollMs = 250, kEnumerationHeadStartMs = 400;

const char* titleIcon(const std::string& appTitle) {
  return appTitle == core::kChangesTitle ? icons::kAppTessmark : icons::kAppVarnhold;
}

}  // namespace

frmMain::frmMain(core::Program& program, ui::Screen& screen, Forms& forms)
    : Form(screen, "frmMain"),
      imlIcons({icons::kComputer, icons::kGroup, icons::kAppTessmark, icons::kAppVarnhold}),
      program_(program),
      forms_(forms) {
  BorderStyle = ui::BorderStyle::Sizable;
  Icon = titleIcon(program.AppTitle);
  designMenus();
  designToolBars();
  designLists();
  wireTreeAndList();
  wireSplitter();
  wireCommands();
}

void frmMain::wireSplitter() {
  imgSplitter.MouseDown = [this](double) { imgSplitter_MouseDown(); };
  imgSplitter.MouseMove = [this](double x) { imgSplitter_MouseMove(x); };
  imgSplitter.MouseUp = [this](double) { imgSplitter_MouseUp(); };
}

void frmMain::designToolBars() {
  tbOptToolBar.AddButton("Configure Agents", "Configure agent or polling", icons::kConfigure);
  tbOptToolBar.AddButton("Search Computers", "Find / Add Computer(s)", icons::kSearch);
  // The blanks behind a caption are part of it: they make the buttons of a bar equally wide.
  tbOptToolBar.AddButton("Create Group      ", "Create new group", icons::kCreateGroup);
  tbOptToolBar.AddButton("Delete Group       ", "Delete group", icons::kDeleteGroup);
  tbClientManager.AddButton("", "");
  tbClientManager.AddButton("Add System        ", "Select remote computers to be monitored",
                            icons::kAddSystem);
  tbClientManager.AddButton("Remove System ", "Select remote computers and stop monitoring",
                            icons::kRemoveSystem);
  tbClientManager.AddButton("Upgrade Agent ", "Select remote computers and upgrade agents", icons::kUpgrade);
  tbClientManager.Visible = false;
  adopt({{"tbOptToolBar", tbOptToolBar}, {"tbClientManager", tbClientManager}});
}

void frmMain::designLists() {
  lblTitle(0).Caption = " Computer Groups";
  lblTitle(1).Caption = " Computers";
  tvTreeView.ImageList = &imlIcons;
  lvListView.SmallIcons = &imlIcons;
  lvListView.MultiSelect = true;
  // Type and status have the longest texts.
  lvListView.ColumnHeaders.Add("Computer").Width = 1.0;
  lvListView.ColumnHeaders.Add("Type").Width = 1.8;
  lvListView.ColumnHeaders.Add("Description").Width = 1.2;
  lvListView.ColumnHeaders.Add("System Status").Width = 1.9;
  lvListView.ColumnHeaders.Add("Port").Width = 0;  // it keeps its width when the list grows
  picSplitter.Visible = false;
  tmrAddDomains.Interval = tmrAddSubnet.Interval = kBackgroundPollMs;
  tmrDesktop.Interval = kDesktopPollMs;
  tmrDesktop.Tick = [this] { program_.host.desktop.answerRequests(); };
  tmrAddDomains.Enabled = tmrAddSubnet.Enabled = false;
  adopt({{"lblTitle", lblTitle(0)},
         {"lblTitle", lblTitle(1)},
         {"tvTreeView", tvTreeView},
         {"lvListView", lvListView},
         {"imgSplitter", imgSplitter},
         {"picSplitter", picSplitter},
         {"sbStatusBar", sbStatusBar},
         {"imlIcons", imlIcons},
         {"tmrPing", tmrPing},
         {"tmrAddDomains", tmrAddDomains},
         {"tmrAddSubnet", tmrAddSubnet},
         {"tmrDesktop", tmrDesktop}});
}

void frmMain::Form_Load() {
  Width = kWidth;
  Height = kHeight;
  // The blank tells this window from others of the program that bear the bare title: a second start looks
  // for it.
  Caption = program_.AppTitle + " ";
  imgSplitter.Position = kFirstSplitterPosition;
  ClickedItemIndex = -1;
  FirstActivation = true;
  SplitterMoving = SuppressNodeEvents = false;
  program_.gDomainThread = program_.gSubnetThread = program_.gSpareThread = 0;
}

void frmMain::Form_Activate() {
  screen().MousePointer = ui::Pointer::Hourglass;
  if (FirstActivation) activateFirst();
  sbStatusBar.Panels(1).Text = kDisplaying;
  showMode();
  sbStatusBar.Panels(3).Text = systemCount();
  screen().MousePointer = ui::Pointer::Default;
}

void frmMain::showMode() {
  sbStatusBar.Panels(2).Text = forms_.frmNetAccessSel.AutoDiscover ? "Auto Discover" : "Manual";
}

void frmMain::activateFirst() {
  Refresh();
  ShowBusy("Gathering Network Information... (Network problems may cause delay.)");
  // In either mode: the library knows the mode, and finds nothing by itself in the manual one.
  enumerateNetwork();
  program_.host.clock.sleep(kEnumerationHeadStartMs);
  ShowFree("Loading...");
  LoadTree();
  if (tvTreeView.Nodes.Count() > 0) {
    CurrentNodeText = tvTreeView.Nodes(1).Text;
    showAllComputers();
    tvTreeView.Nodes(1).Select();
  }
  FirstActivation = false;
}

void frmMain::Form_QueryUnload(int&, ui::UnloadMode) {
  const ResumeNext resume;
  program_.gClosing = true;
  auto& wait = forms_.frmWait;
  resume.step([&] { wait.Load(); });
  wait.WaitForThreads = true;
  wait.lblTitle.Caption = program_.AppTitle + " is closing...";
  resume.step([&] { wait.ShowModal(this); });
}

void frmMain::Form_Unload() {
  const ResumeNext resume;
  resume.step([&] { program_.gConn.Close(); });
  resume.step([&] { program_.host.libraries.qrvCloseDbConnection(); });
}

void frmMain::Form_Resize() {
  if (WindowState == ui::WindowState::Minimized) return;
  if (Width < kLeastWidth) Width = kLeastWidth;
  SizeControls(imgSplitter.Position);
}

double frmMain::splitterPosition(double x) const {
  return std::clamp(x, kSplitterMargin, Width - kSplitterMargin);
}

void frmMain::SizeControls(double x) {
  imgSplitter.Position = splitterPosition(x);
}

void frmMain::imgSplitter_MouseDown() {
  picSplitter.Position = imgSplitter.Position;
  picSplitter.Visible = true;
  SplitterMoving = true;
}

void frmMain::imgSplitter_MouseMove(double x) {
  if (SplitterMoving) picSplitter.Position = splitterPosition(x);
}

void frmMain::imgSplitter_MouseUp() {
  SizeControls(picSplitter.Position);
  picSplitter.Visible = false;
  SplitterMoving = false;
}

std::string frmMain::ConsolePath() const {
  std::string path;
  core::RegReadValue(program_.host.registry, platform::RegistryHive::LocalMachine, core::kManagerKey,
                     "INSTALLPATH", path);
  return path;
}

}  // namespace varnhold::console
