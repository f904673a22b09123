#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "console/agent_status.h"
#include "console/forms.h"
#include "core/program.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/scripted_ui.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::console {

using Lines = std::vector<std::string>;

/// The console's forms over a host in memory, not yet loaded.
class ConsoleTest : public testing::Test {
 protected:
  explicit ConsoleTest(const char* appTitle = core::kManagerTitle)
      : ui(fake.journal, appTitle), program(fake.host(), appTitle, fake.statementListener()) {}

  fakes::FakeHost fake;
  fakes::ScriptedUi ui;
  core::Program program;
  Forms forms{program, ui.screen};
  console::frmMain& frmMain = forms.frmMain;
};

/// Tells the journal of each text that comes into the status bar's first panel: `Status <text>`.
class StatusWatch : public ui::ControlView {
 public:
  StatusWatch(ui::StatusBar& bar, fakes::Journal& journal) : bar_(bar), journal_(journal) {
    bar.attach(*this);
  }

  void sync() override {
    if (bar_.Panels(1).Text == last_) return;
    last_ = bar_.Panels(1).Text;
    journal_.push_back("Status " + last_);
  }

 private:
  ui::StatusBar& bar_;
  fakes::Journal& journal_;
  std::string last_;
};

/// The same over an inventory of a test, which is open.
class OpenConsoleTest : public ConsoleTest {
 protected:
  OpenConsoleTest() {
    program.gConn.Open("qrvdb", "", "");
    program.gLocalName = "MANAGER";
    forms.frmNetAccessSel.AutoDiscover = true;
  }

  void addComputer(const std::string& name, int type = 10, const std::string& description = "",
                   const std::string& address = "10.1.1.1") {
    inventory.execute(
        "INSERT INTO System_Table (System_Name, System_Type, IP_Address, System_Description) VALUES ('" +
        name + "', " + std::to_string(type) + ", '" + address + "', '" + description + "')");
  }
  /// An agent in standard mode.
  void addAgent(const std::string& name, int module, int agentless = 0, int systemType = 0) {
    inventory.execute(
        "INSERT INTO Module_Table (System_Name, Module_ID, Agentless, Port, SystemType) VALUES ('" + name +
        "', " + std::to_string(module) + ", " + std::to_string(agentless) + ", 32001, " +
        std::to_string(systemType) + ")");
  }
  void addGroup(const std::string& name, const std::vector<std::string>& members = {},
                const std::string& description = "picked by hand") {
    inventory.execute("INSERT INTO System_Group_Master (Group_Name, Description, Auto) VALUES ('" + name +
                      "', '" + description + "', 0)");
    inventory.execute("INSERT INTO System_Group_Detail (Group_Name, OS_Type, IP_Subnet, Domain) VALUES ('" +
                      name + "', 0, '', '')");
    for (const auto& member : members) {
      inventory.execute("INSERT INTO System_Group (System_Name, Group_Name) VALUES ('" + member + "', '" +
                        name + "')");
    }
  }

  /// Shows the console as start-up does, and forgets what that asked of the world.
  void open() {
    frmMain.Show();
    fake.journal.clear();
  }
  /// What the list holds: name|type|description|status|port.
  Lines rows() {
    Lines lines;
    for (auto& row : frmMain.lvListView.ListItems) {
      std::string line = row.Text;
      for (int column = kTypeColumn; column <= kPortColumn; ++column) line += "|" + row.SubItems(column);
      lines.push_back(line);
    }
    return lines;
  }
  Lines names() {
    Lines lines;
    for (auto& row : frmMain.lvListView.ListItems) lines.push_back(row.Text);
    return lines;
  }
  Lines nodes() {
    Lines lines;
    for (int i = 1; i <= frmMain.tvTreeView.Nodes.Count(); ++i) {
      lines.push_back(frmMain.tvTreeView.Nodes(i).Text);
    }
    return lines;
  }
  /// The text of the selected node; empty for none.
  std::string selectedNode() {
    const auto node = frmMain.tvTreeView.SelectedItem();
    return node ? node->Text.get() : "";
  }
  std::string panel(int index) { return frmMain.sbStatusBar.Panels(index).Text; }
  /// What the list's contents were loaded from.
  std::string listTitle() { return frmMain.lblTitle(1).Caption; }
  Lines statements() { return fakes::linesOf(fake.journal, "SQL: "); }
  Lines boxes() { return fakes::linesOf(fake.journal, "MessageBox "); }
  bool isBusy() {
    return frmMain.MousePointer == ui::Pointer::Hourglass &&
           frmMain.tvTreeView.MousePointer == ui::Pointer::Hourglass &&
           frmMain.lvListView.MousePointer == ui::Pointer::Hourglass;
  }

  fakes::TestInventory inventory;
};

}  // namespace varnhold::console
