// How the console's tree and list are filled.
#include "base/runtime_error.h"
#include "console/agent_status.h"
#include "console/frmMain.h"
#include "console/icons.h"
#include "console/texts.h"
#include "core/mdCommon.h"
#include "core/program.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"
#include "ui/controls/screen.h"

namespace varnhold::console {
namespace {

namespace statements = store::statements;
using platform::MessageIcon;

constexpr const char* kAllTitle = " All Domain Computers";

void openStatic(store::Recordset& rows, std::string_view source, store::Connection& connection) {
  rows.Open(std::string(source), connection, store::CursorType::Static, store::LockType::ReadOnly);
}

/// A SELECT that fails must fail where it is opened, also where nothing of it is read.
void openSelect(store::Recordset& rows, const std::string& statement, store::Connection& connection) {
  openStatic(rows, statement, connection);
  static_cast<void>(rows.Eof());
}

/// Columns that may be left unset are shown as empty ones.
std::string textOrEmpty(const store::Value& value) {
  return value.isNull() ? std::string() : value.asText();
}

std::string membersOf(const std::string& groupName) {
  if (groupName == kRootText) return std::string(statements::kMembersOfAllGroups);
  return statements::fill(statements::kGroupMembers, {{"group", groupName}});
}

}  // namespace

std::string frmMain::systemCount() const {
  return std::to_string(lvListView.ListItems.Count()) + " Systems";
}

void frmMain::ShowBusy(const std::string& text) {
  sbStatusBar.Panels(1).Text = text;
  sbStatusBar.Panels(3).Text = "...";
  MousePointer = tvTreeView.MousePointer = lvListView.MousePointer = ui::Pointer::Hourglass;
  if (Visible()) Refresh();
}

void frmMain::ShowFree(const std::string& text) {
  sbStatusBar.Panels(1).Text = text;
  sbStatusBar.Panels(3).Text = systemCount();
  MousePointer = tvTreeView.MousePointer = lvListView.MousePointer = ui::Pointer::Default;
  if (Visible()) Refresh();
}

void frmMain::LoadTree() {
  if (program_.gClosing) screen().End();
  auto& nodes = tvTreeView.Nodes;
  nodes.Clear();
  try {
    nodes.Add(kRootKey, kRootText, icons::kRowImage);
    store::Recordset groups;
    openStatic(groups, store::mdDataBase::kSystemGroupDetail, program_.gConn);
    for (; !groups.Eof() && !groups.Bof(); groups.MoveNext()) {
      const auto name = groups.Fields("Group_Name").value().asText();
      nodes.Add(kRootKey, ui::Relationship::Child, name + "Key", name, icons::kRowImage);
    }
  } catch (const RuntimeError&) {
    // The tree stays as far as it got, without a word: a second rule of one group ends it too.
  }
}

bool frmMain::LoadAllComputers(const std::string& caption) {
  return loadList(caption, [this] {
    lblTitle(1).Caption = kAllTitle;
    lvListView.Sorted = false;
    store::Recordset computers;
    openStatic(computers, store::mdDataBase::kSystemTable, program_.gConn);
    computers.setFilter(statements::kComputersFilter);
    computers.Requery();
    addRows(computers);
  });
}

bool frmMain::LoadGroupMembers(const std::string& groupName, const std::string& caption) {
  return loadList(caption, [this, &groupName] {
    store::Recordset members;
    openSelect(members, membersOf(groupName), program_.gConn);
    lblTitle(1).Caption = titleOfGroup(groupName);
    lvListView.Sorted = false;
    addRows(members);
  });
}

std::string frmMain::titleOfGroup(const std::string& groupName) {
  store::Recordset master;
  const bool isEveryGroup = groupName == kRootText;
  openSelect(master,
             isEveryGroup ? std::string(statements::kAllGroups)
                          : statements::fill(statements::kGroup, {{"group", groupName}}),
             program_.gConn);
  if (isEveryGroup) return kAllTitle;
  return groupName + " - " + master.Fields("Description").value().asText();
}

bool frmMain::loadList(const std::string& caption, const std::function<void()>& fill) {
  ShowBusy(caption);
  lvListView.ListItems.Clear();
  Refresh();
  try {
    fill();
    if (!LoadAgentStatus(1)) screen().messageBox("Could not display agent status.", MessageIcon::Critical);
    lvListView.Sorted = true;
    ShowFree(kDisplaying);
    return true;
  } catch (const RuntimeError& error) {
    lvListView.Sorted = true;
    ShowFree(kDisplaying);
    screen().messageBox(error.description(), MessageIcon::Critical);
    return false;
  }
}

void frmMain::addRows(store::Recordset& rows) {
  const ui::ListView::BulkUpdate quiet(lvListView);
  if (rows.Eof() || rows.Bof()) return;
  // A field stands for its column in whatever row is the current one.
  const auto name = rows.Fields("System_Name"), type = rows.Fields("System_Type"),
             address = rows.Fields("IP_Address"), description = rows.Fields("System_Description");
  for (; !rows.Eof(); rows.MoveNext()) {
    auto& row = lvListView.ListItems.Add(name.value().asText());
    row.SmallIcon = icons::kRowImage;  // whatever the status
    row.Tag = textOrEmpty(address.value());
    row.SubItems(kTypeColumn) = core::GetSystemTypeName(static_cast<std::int32_t>(type.value().asInteger()));
    row.SubItems(kDescriptionColumn) = textOrEmpty(description.value());
    if (row.SubItems(kDescriptionColumn) == "") row.SubItems(kDescriptionColumn) = "-none-";
  }
}

bool frmMain::LoadAgentStatus(int startIndex) {
  return console::LoadAgentStatus(program_.gConn, lvListView, startIndex, screen());
}

}  // namespace varnhold::console
