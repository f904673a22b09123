// The selection page: which computers of a group can be picked, and how rows move between its two lists.
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "base/runtime_error.h"
#include "base/text.h"
#include "core/program.h"
#include "deployment/frmTargets.h"
#include "deployment/job.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

namespace varnhold::deployment {
namespace {

constexpr int kConsoleStatusSubItem = 3;
constexpr std::int64_t kSolaris = 101, kSyslogDevice = 301;  // types that get no agent
constexpr std::string_view kTracksChanges = "Tracking Changes";

/// The names of a list's rows, case ignored, each with its first row: one look at each row where a search for
/// each name would look at all.
class RowsByName {
 public:
  explicit RowsByName(const ui::ListView& list) {
    for (const auto& row : list.ListItems) rows_.emplace(toUpper(row.Text.get()), &row);
  }

  [[nodiscard]] const ui::ListItem* find(std::string_view name) const {
    const auto found = rows_.find(toUpper(name));
    return found == rows_.end() ? nullptr : found->second;
  }

 private:
  std::unordered_map<std::string, const ui::ListItem*> rows_;
};

/// The names of the rows that are there and of those that come.
class Names {
 public:
  explicit Names(const ui::ListView& list) {
    for (const auto& row : list.ListItems) (void)add(row.Text);
  }

  /// False where the name is there already.
  [[nodiscard]] bool add(const std::string& name) { return names_.insert(toUpper(name)).second; }
  [[nodiscard]] bool holds(const std::string& name) const { return names_.contains(toUpper(name)); }

 private:
  std::unordered_set<std::string> names_;
};

/// The statuses that an operation can do something with, joined by blanks. A status passes where it is a part
/// of the text, as an empty one and a part of a status are, deliberately.
std::string_view statusFilter(std::int32_t operation) {
  switch (operation) {
    case kOperationInstall:
      return "Unmanaged Tracking Changes";
    case kOperationUninstall:
      return "Managed - Standard Mode Managed - Agentless Mode Tracking Changes & Events "
             "Managed - High Performance Mode";
    case kOperationUpgrade:
      return "Managed - Standard Mode Tracking Changes & Events Managed - High Performance Mode";
  }
  return {};
}

ui::ListItem& addRow(ui::ListView& list, const ui::ListItem& source) {
  auto& row = list.ListItems.Add(source.Text);
  row.Tag = source.Tag.get();
  return row;
}

}  // namespace

/// What a name must pass to stand in `lvSelect`.
class frmTargets::Candidates {
 public:
  explicit Candidates(frmTargets& form)
      : form_(form),
        shown_(form.console_.lvListView),
        selected_(form.lvSelected),
        filter_(statusFilter(form.Operation)) {}

  void offer(const std::string& name) {
    const auto* const row = shown_.find(name);
    if (row == nullptr) return;
    const std::string& status = row->SubItems(kConsoleStatusSubItem);
    if (!isWanted(*row, status) || selected_.holds(name)) return;
    form_.lvSelect.ListItems.Add(name).Tag = status;
  }

 private:
  [[nodiscard]] bool isWanted(const ui::ListItem& row, const std::string& status) const {
    if (filter_.find(status) == std::string_view::npos) return false;
    if (equalsIgnoringCase(row.Text.get(), form_.program_.gLocalName)) return false;
    return form_.Operation == kOperationInstall || status != kTracksChanges;
  }

  frmTargets& form_;
  const RowsByName shown_;
  const Names selected_;
  const std::string_view filter_;
};

void frmTargets::wireSelection() {
  cboGroups.Click = [this] { cboGroups_Click(); };
  cmdAdd.Click = [this] { cmdAdd_Click(); };
  cmdRemove.Click = [this] { cmdRemove_Click(); };
  cmdselectall.Click = [this] { cmdselectall_Click(); };
  cmdremoveall.Click = [this] { cmdremoveall_Click(); };
}

void frmTargets::cboGroups_Click() {
  const ResumeNext resume;
  const ui::ListView::BulkUpdate update(lvSelect);
  lvSelect.ListItems.Clear();
  resume.step([this] {
    if (cboGroups.Text == kAllGroups) {
      offerAllComputers();
    } else {
      offerGroup(cboGroups.Text);
    }
  });
  if (lvSelect.ListItems.Count() == 0) return;
  if (const auto focused = lvSelect.SelectedItem()) focused->Selected = false;
  lvSelect.ListItems(1).Selected = true;
}

void frmTargets::offerAllComputers() {
  Candidates candidates(*this);
  store::Recordset computers;
  computers.Open(std::string(store::mdDataBase::kSystemTable), program_.gConn, store::CursorType::Static,
                 store::LockType::ReadOnly);
  computers.setFilter(store::statements::kComputersFilter);
  computers.Requery();
  for (; !computers.Bof() && !computers.Eof(); computers.MoveNext()) {
    const auto type = computers.Fields("System_Type").value().asInteger();
    if (type != kSolaris && type != kSyslogDevice)
      candidates.offer(computers.Fields("System_Name").value().asText());
  }
}

void frmTargets::offerGroup(const std::string& group) {
  Candidates candidates(*this);
  store::Recordset members;
  members.Open(std::string(store::mdDataBase::kSystemGroup), program_.gConn, store::CursorType::Static,
               store::LockType::ReadOnly);
  members.setFilter(store::statements::fill(store::statements::kGroupNameFilter, {{"group", group}}));
  members.Requery();
  for (; !members.Bof() && !members.Eof(); members.MoveNext())
    candidates.offer(members.Fields("System_Name").value().asText());
}

void frmTargets::cmdAdd_Click() {
  if (!lvSelect.SelectedItem()) return;
  const ui::ListView::BulkUpdate updateSelect(lvSelect), updateSelected(lvSelected);
  auto& rows = lvSelect.ListItems;
  int restored = 0;
  for (int i = rows.Count(); i != 0;) {
    if (!rows(i).Selected) {
      --i;
      continue;
    }
    const auto focused = lvSelect.SelectedItem();
    restored = focused ? focused->Index() : 0;
    const int left = moveSelectedRows();
    i = left > 0 && left < i ? left : i - 1;
  }
  if (restored > 0) restoreSelection(restored);
  if (lvSelected.ListItems.Count() > 0) cmdNext.Enabled = true;
}

/// One pass. The row that moves up after a removal is passed over, deliberately: a later pass catches it, and
/// the chosen rows stand in the order in which they were caught. How many rows are left.
int frmTargets::moveSelectedRows() {
  auto& rows = lvSelect.ListItems;
  Names selected(lvSelected);
  for (int k = 1; k <= rows.Count(); ++k) {
    auto& row = rows(k);
    if (!row.Selected || !selected.add(row.Text)) continue;
    addRow(lvSelected, row);
    rows.Remove(k);
  }
  return rows.Count();
}

void frmTargets::restoreSelection(int position) {
  auto& rows = lvSelect.ListItems;
  if (rows.Count() == 0) return;
  if (position > rows.Count()) position = 1;
  for (auto& row : rows) {
    if (&row != &rows(position)) row.Selected = false;
  }
  rows(position).Selected = true;
}

void frmTargets::cmdRemove_Click() {
  const auto focused = lvSelected.SelectedItem();
  if (!focused) return;
  const int remembered = focused->Index();
  {
    const ui::ListView::BulkUpdate update(lvSelected);
    auto& rows = lvSelected.ListItems;
    for (int i = rows.Count(); i > 0; --i) {
      if (rows(i).Selected) rows.Remove(i);
    }
    if (rows.Count() > 0) rows(rows.Count() >= remembered ? remembered : 1).Selected = true;
  }
  // What was freed comes back by the rules, not as the rows that went.
  cboGroups_Click();
  if (lvSelected.ListItems.Count() == 0) cmdNext.Enabled = false;
}

void frmTargets::cmdselectall_Click() {
  auto& rows = lvSelect.ListItems;
  if (rows.Count() == 0) return;
  const ui::ListView::BulkUpdate updateSelected(lvSelected), updateSystems(lvSystems);
  Names selected(lvSelected);
  for (int k = 1; k <= rows.Count(); ++k) {
    const auto& row = rows(k);
    if (!selected.add(row.Text)) continue;
    addRow(lvSelected, row);
    lvSystems.ListItems.Add(row.Text);
    // Row k, which is not the one just added where the list held rows before, deliberately.
    if (k <= lvSystems.ListItems.Count()) lvSystems.ListItems(k).SubItems(kStatusSubItem) = row.Tag.get();
  }
  rows.Clear();
  if (lvSelected.ListItems.Count() > 0) cmdNext.Enabled = true;
}

void frmTargets::cmdremoveall_Click() {
  if (lvSelected.ListItems.Count() == 0) return;
  lvSelected.ListItems.Clear();
  cboGroups_Click();
  cmdNext.Enabled = false;
}

}  // namespace varnhold::deployment
