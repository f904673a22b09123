// The tree of groups, what it shows in the list, and how the list is sorted and its rows are opened.
#include "base/runtime_error.h"
#include "base/text.h"
#include "console/background_thread.h"
#include "console/forms.h"
#include "console/frmMain.h"
#include "console/texts.h"
#include "core/mdCommon.h"
#include "core/program.h"
#include "ui/controls/screen.h"

namespace varnhold::console {

using platform::MessageIcon;

void frmMain::wireTreeAndList() {
  tvTreeView.NodeClick = [this](ui::TreeNode& node) { tvTreeView_NodeClick(&node); };
  tvTreeView.Expand = [this](ui::TreeNode& node) { tvTreeView_Expand(node); };
  tvTreeView.Collapse = [this](ui::TreeNode& node) { tvTreeView_Collapse(node); };
  lvListView.ColumnClick = [this](ui::ColumnHeader& column) { lvListView_ColumnClick(column); };
  lvListView.DblClick = [this] { lvListView_DblClick(); };
  lvListView.KeyPress = [this](int& key) { lvListView_KeyPress(key); };
  lvListView.ItemClick = [this](ui::ListItem& item) { lvListView_ItemClick(item); };
}

void frmMain::showAllComputers() {
  if (LoadAllComputers(kReading)) return;
  screen().messageBox("Could not retrieve members.", MessageIcon::Exclamation);
}

void frmMain::showGroupMembers(const std::string& groupName) {
  if (LoadGroupMembers(groupName, kReading)) return;
  screen().messageBox("Could not retrieve group members.", MessageIcon::Exclamation);
}

bool frmMain::isDeafTo(const ui::TreeNode& node) const {
  return SuppressNodeEvents || equalsIgnoringCase(node.Text.get(), CurrentNodeText);
}

void frmMain::tvTreeView_NodeClick(ui::TreeNode* node) {
  if (node == nullptr || isDeafTo(*node)) return;
  const ResumeNext resume(
      [this](const RuntimeError& error) { screen().messageBox(error.description(), MessageIcon::Critical); });
  resume.step([&] {
    if (node->Key() == kRootKey) {
      showAllComputers();
    } else {
      showGroupMembers(node->Text);
    }
  });
  resume.step([&] { CurrentNodeText = node->Text; });
}

void frmMain::tvTreeView_Expand(ui::TreeNode& node) {
  showRootComputers(node);
}

void frmMain::tvTreeView_Collapse(ui::TreeNode& node) {
  showRootComputers(node);
}

void frmMain::showRootComputers(const ui::TreeNode& node) {
  if (isDeafTo(node)) return;
  if (node.Key() == kRootKey) showAllComputers();
  CurrentNodeText = node.Text;
}

void frmMain::openRoot() {
  SuppressNodeEvents = true;
  tvTreeView.Nodes(1).Expanded = true;
  SuppressNodeEvents = false;
}

ui::TreeNode* frmMain::reselectNode(const std::string& name, int fromIndex) {
  openRoot();
  for (int i = fromIndex; i <= tvTreeView.Nodes.Count(); ++i) {
    auto& node = tvTreeView.Nodes(i);
    if (!equalsIgnoringCase(node.Text.get(), name)) continue;
    showGroupMembers(node.Text);
    node.Select();
    node.EnsureVisible();
    return &node;
  }
  return nullptr;
}

void frmMain::reloadAll() {
  LoadTree();
  if (tvTreeView.Nodes.Count() == 0) return;
  showAllComputers();
  tvTreeView.Nodes(1).Select();
  CurrentNodeText = kRootText;
}

void frmMain::showCreatedGroup(const std::string& name) {
  LoadTree();
  if (tvTreeView.Nodes.Count() == 0) return;
  // From the root on: a group of that very name shows the members of every group.
  if (const auto* node = reselectNode(name, 1)) CurrentNodeText = node->Text;
}

void frmMain::showEditedGroup(const std::string& name) {
  ShowBusy("Please Wait...");
  ShowFree("Reloading...");
  LoadTree();
  if (tvTreeView.Nodes.Count() == 0) return;
  if (const auto* node = reselectNode(name, 1)) {
    CurrentNodeText = node->Text;
  } else {
    showAllComputers();
  }
}

void frmMain::enumerateUnlessItRuns() {
  if (!isRunning(program_.host.threads, program_.gEnumThread)) enumerateNetwork();
}

void frmMain::enumerateNetwork() {
  program_.host.libraries.qrvNetworkEnum(program_.gEnumThread);
}

void frmMain::mnuViewRefresh_Click() {
  ShowBusy("Refreshing...");
  // Without a selected node it stops here and stays busy, deliberately.
  if (!tvTreeView.SelectedItem()) return;
  const std::string selected = tvTreeView.SelectedItem()->Text;
  enumerateUnlessItRuns();
  ShowFree("Reloading...");
  LoadTree();
  if (tvTreeView.Nodes.Count() == 0) {
    showAllComputers();
  } else if (equalsIgnoringCase(CurrentNodeText, kRootText)) {
    showAllComputers();
    tvTreeView.Nodes(1).Select();
  } else if (reselectNode(CurrentNodeText, 2) == nullptr) {
    showAllComputers();
  }
  CurrentNodeText = selected;
  core::RequestManagerResync(program_.host.registry);
}

void frmMain::lvListView_ColumnClick(const ui::ColumnHeader& column) {
  // A second click turns nothing round, deliberately: names ascend and all else descends.
  const int key = column.Index() - 1;
  lvListView.SortKey = key;
  lvListView.SortOrder = key == 0 ? ui::SortOrder::Ascending : ui::SortOrder::Descending;
  lvListView.Sorted = true;
}

void frmMain::lvListView_ItemClick(const ui::ListItem& item) {
  ClickedItemIndex = item.Index();
}

void frmMain::lvListView_DblClick() {
  if (ClickedItemIndex > 0) showDetails(true);
  ClickedItemIndex = -1;
}

void frmMain::lvListView_KeyPress(int key) {
  // Deliberately without a look at the selection: the form opens for no row too.
  if (key == ui::kKeyReturn) showDetails(true);
}

}  // namespace varnhold::console
