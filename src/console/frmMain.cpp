// The console's design, and how it comes up.
#include "console/frmMain.h"

#include "console/forms.h"
#include "console/icons.h"
#include "core/program.h"

namespace varnhold::console {
namespace {

constexpr int kWidth = 13800, kHeight = 9000;  // twips
constexpr std::uint32_t kBackgroundPollMs = 1000;
constexpr double kFirstSplitterPosition = 3600;

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
  for (const char* column : {"Computer", "Type", "Description", "System Status"}) {
    lvListView.ColumnHeaders.Add(column);
  }
  lvListView.ColumnHeaders.Add("Port").Width = 0;  // it keeps its width when the list grows
  imgSplitter.Position = kFirstSplitterPosition;
  picSplitter.Visible = false;
  tmrAddDomains.Interval = tmrAddSubnet.Interval = kBackgroundPollMs;
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
         {"tmrAddSubnet", tmrAddSubnet}});
}

void frmMain::Form_Load() {
  Width = kWidth;
  Height = kHeight;
  // The blank tells this window from others of the program that bear the bare title: a second start looks
  // for it.
  Caption = program_.AppTitle + " ";
}

}  // namespace varnhold::console
