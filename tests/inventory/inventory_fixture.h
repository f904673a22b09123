#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "core/program.h"
#include "inventory/console_parts.h"
#include "store/recordset.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/scripted_ui.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::inventory {

using Lines = std::vector<std::string>;

/// A console with the list, the tree and the pictures that the forms of this folder use.
class StandInConsole : public ui::Form {
 public:
  explicit StandInConsole(ui::Screen& screen) : Form(screen, "frmMain") {
    adopt({{"lvListView", lvListView}, {"tvTreeView", tvTreeView}, {"imlIcons", imlIcons}});
  }

  ui::ListView lvListView;
  ui::TreeView tvTreeView;
  ui::ImageList imlIcons{{"row", "group", "tessmark", "varnhold"}};
};

/// One form of this folder over a host in memory, with its console.
class InventoryFormTest : public testing::Test {
 protected:
  explicit InventoryFormTest(const char* appTitle = core::kManagerTitle)
      : ui(fake.journal, appTitle), program(fake.host(), appTitle, fake.statementListener()) {}

  ConsoleParts parts() { return {console, console.lvListView, console.tvTreeView, console.imlIcons}; }
  /// Shows the console, and forgets that.
  void openConsole() {
    console.Show();
    fake.journal.clear();
  }

  fakes::FakeHost fake;
  fakes::ScriptedUi ui;
  core::Program program;
  StandInConsole console{ui.screen};
};

/// The same over an inventory of a test, which is open, with one computer in the console's list.
class InventoryRowTest : public InventoryFormTest {
 protected:
  InventoryRowTest() { program.gConn.Open("qrvdb", "", ""); }

  void addComputer(const std::string& name, int type, const std::string& address,
                   const std::string& description) {
    inventory.execute("INSERT INTO System_Table VALUES ('" + name + "', " + std::to_string(type) + ", '" +
                      address + "', '" + description + "')");
  }
  /// The row of the list that is selected.
  ui::ListItem& select(const std::string& name, const Lines& subItems) {
    auto& item = console.lvListView.ListItems.Add(name);
    for (std::size_t i = 0; i < subItems.size(); ++i) item.SubItems(static_cast<int>(i) + 1) = subItems[i];
    item.Selected = true;
    return item;
  }
  void forgetJournal() { fake.journal.clear(); }
  /// What stands in a column of the computer's row; "none" without a row.
  std::string stored(const std::string& name, const char* column) {
    store::Connection connection;
    connection.Open("qrvdb", "", "");
    store::Recordset rows;
    rows.Open("SELECT * FROM System_Table WHERE System_Name = '" + name + "'", connection,
              store::CursorType::Static, store::LockType::ReadOnly);
    return rows.Eof() ? "none" : rows.Fields(column).value().asText();
  }

  fakes::TestInventory inventory;
};

}  // namespace varnhold::inventory
