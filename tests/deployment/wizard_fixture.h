#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "core/program.h"
#include "deployment/frmLogin.h"
#include "deployment/frmRemedialActionHelp.h"
#include "deployment/frmTargets.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/scripted_ui.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::deployment {

using Lines = std::vector<std::string>;

/// What the console gives the wizard. Journal lines: `NodeClick <text>`, `mnuViewRefresh_Click`.
class StandInConsole : public ui::Form {
 public:
  StandInConsole(ui::Screen& screen, fakes::Journal& journal) : Form(screen, "frmMain"), journal_(journal) {
    adopt({{"lvListView", lvListView}, {"tvTreeView", tvTreeView}, {"imlIcons", imlIcons}});
  }

  ConsoleOfWizard forWizard() {
    return {lvListView, tvTreeView, imlIcons,
            [this](ui::TreeNode* node) {
              journal_.push_back("NodeClick " + node->Text);
              if (onNodeClick) onNodeClick();
            },
            [this] { journal_.push_back("mnuViewRefresh_Click"); }};
  }

  std::function<void()> onNodeClick;  ///< what that does besides
  ui::ListView lvListView;
  ui::TreeView tvTreeView;
  ui::ImageList imlIcons{{"row", "group", "tessmark", "varnhold"}};

 private:
  fakes::Journal& journal_;
};

/// The wizard over a host in memory and an open inventory, not yet loaded. Both products' managers are on
/// this computer, MANAGER, unless a test says otherwise.
class WizardTest : public testing::Test {
 protected:
  explicit WizardTest(const char* appTitle = core::kManagerTitle)
      : ui(fake.journal, appTitle), program(fake.host(), appTitle, fake.statementListener()) {
    program.gConn.Open("qrvdb", "", "");
    program.gLocalName = "MANAGER";
    program.gAppPath = R"(C:\VARNHOLD)";
    program.gInstallerDir = R"(C:\VARNHOLD\RemoteInstaller)";
    program.gChangesRoot = R"(C:\TESSMARK)";
    program.gChangesName = "Tessmark for Windows";
  }

  /// Loads the wizard without showing it, as for a call of an engine, and forgets what that asked of the
  /// world.
  void load(int operation = 1) {
    targets.Load();
    targets.Operation = operation;
    fake.journal.clear();
  }
  /// A row of the run list.
  ui::ListItem& addRow(const std::string& name, const std::string& status = "Unmanaged") {
    auto& row = targets.lvSystems.ListItems.Add(name);
    row.SubItems(kStatusSubItem) = status;
    return row;
  }
  /// A row that the operator chose on the selection page.
  ui::ListItem& choose(const std::string& name, const std::string& status = "Unmanaged") {
    auto& row = targets.lvSelected.ListItems.Add(name);
    row.Tag = status;
    return row;
  }
  /// The statuses, or results, of the run list's rows.
  Lines statuses() {
    Lines lines;
    for (auto& row : targets.lvSystems.ListItems) lines.push_back(row.SubItems(kStatusSubItem));
    return lines;
  }
  static Lines names(const ui::ListView& list) {
    Lines lines;
    for (const auto& row : list.ListItems) lines.push_back(row.Text);
    return lines;
  }
  static Lines entries(const ui::ItemBox& list) {
    Lines lines;
    for (int i = 0; i < list.ListCount(); ++i) lines.push_back(list.List(i));
    return lines;
  }

  /// A computer of the inventory that the console shows with this status.
  void addComputer(const std::string& name, const std::string& status = "Unmanaged", int type = 10) {
    inventory.execute("INSERT INTO System_Table (System_Name, System_Type) VALUES ('" + name + "', " +
                      std::to_string(type) + ")");
    console.lvListView.ListItems.Add(name).SubItems(3) = status;
  }
  void addGroup(const std::string& name, const Lines& members = {}) {
    inventory.execute("INSERT INTO System_Group_Master (Group_Name, Description, Auto) VALUES ('" + name +
                      "', '', 0)");
    for (const auto& member : members) {
      inventory.execute("INSERT INTO System_Group (System_Name, Group_Name) VALUES ('" + member + "', '" +
                        name + "')");
    }
  }
  /// The console's tree: its root and the groups; nothing is selected.
  void plantTree(const Lines& groups) {
    console.tvTreeView.Nodes.Add("root", "Groups");
    for (const auto& group : groups)
      console.tvTreeView.Nodes.Add("root", ui::Relationship::Child, group, group);
  }
  /// Activates the wizard as any other form does that goes away from over it.
  void reactivate() {
    ui.nextModal("frmLogin", [](ui::Form& form) { form.Unload(); });
    frmLogin.ShowModal();
  }
  /// Shows another page than the buttons lead to.
  void turnTo(int page) {
    targets.CurrentPage = page;
    reactivate();
  }

  /// Shows the wizard modally, as the console does, and runs `script` on it; what is still open then is
  /// hidden. Filling lists or setting options comes between `Load` and this.
  void show(int operation, int page, const std::function<void()>& script) {
    targets.Load();
    targets.Operation = operation;
    targets.CurrentPage = page;
    ui.nextModal("frmTargets", [this, script](ui::Form&) {
      script();
      targets.Hide();
    });
    targets.ShowModal(&console);
  }
  Lines boxes() { return fakes::linesOf(fake.journal, "MessageBox "); }

  fakes::TestInventory inventory;
  fakes::FakeHost fake;
  fakes::ScriptedUi ui;
  core::Program program;
  StandInConsole console{ui.screen, fake.journal};
  deployment::frmLogin frmLogin{program, ui.screen};
  deployment::frmRemedialActionHelp frmRemedialActionHelp{program, ui.screen};
  frmTargets targets{program, ui.screen, console.forWizard(), frmLogin, frmRemedialActionHelp};
};

}  // namespace varnhold::deployment
