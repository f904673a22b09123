// The selection page: which computers of a group can be picked, and how rows move between its two lists.
#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

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

/// Leaves only these rows, none of them selected. Taken out one at a time, each of many would cost all that
/// stand behind it; filled anew, the list costs every row once.
void leaveOnly(ui::ListView& list, const std::vector<const ui::ListItem*>& rows) {
  std::vector<std::pair<std::string, std::string>> left;
  left.reserve(rows.size());
  for (const auto* const row : rows) left.emplace_back(row->Text.get(), row->Tag.get());
  list.ListItems.Clear();
  for (const auto& [text, tag] : left) list.ListItems.Add(text).Tag = tag;
}

/// The passes of `cmdAdd_Click` over the rows of a list, which stays as it is until they are done.
class AddPasses {
 public:
  AddPasses(const ui::ListView& from, const ui::ListView& to) : names_(to) {
    for (const auto& row : from.ListItems) rows_.push_back(&row);
    if (const auto focused = from.SelectedItem()) focused_ = &*focused;
  }

  /// Whether it moved a row. The row that moves up after a removal is passed over, deliberately: a later pass
  /// catches it, and the chosen rows stand in the order in which they were caught.
  bool run() {
    Rows kept;
    const auto before = taken_.size();
    for (std::size_t k = 0; k < rows_.size(); ++k) {
      if (!rows_[k]->Selected || !names_.add(rows_[k]->Text)) {
        kept.push_back(rows_[k]);
        continue;
      }
      const auto* const gone = rows_[k];
      taken_.push_back(gone);
      if (++k < rows_.size()) kept.push_back(rows_[k]);
      // The focus goes to the row that takes the place, or to the last one.
      if (focused_ == gone) focused_ = kept.empty() ? nullptr : kept.back();
    }
    rows_ = std::move(kept);
    return taken_.size() > before;
  }

  using Rows = std::vector<const ui::ListItem*>;
  /// The rows that are left, and those that were taken, in their order.
  [[nodiscard]] const Rows& rows() const { return rows_; }
  [[nodiscard]] const Rows& taken() const { return taken_; }
  [[nodiscard]] int left() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] bool isSelected(int place) const {
    return rows_[static_cast<std::size_t>(place) - 1]->Selected;
  }
  /// From 1; 0 for no row.
  [[nodiscard]] int focusedPlace() const {
    const auto found = std::find(rows_.begin(), rows_.end(), focused_);
    return found == rows_.end() ? 0 : static_cast<int>(found - rows_.begin()) + 1;
  }

 private:
  Rows rows_, taken_;
  const ui::ListItem* focused_ = nullptr;
  Names names_;
};

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
  if (const int restored = moveSelectedRows(); restored > 0) restoreSelection(restored);
  if (lvSelected.ListItems.Count() > 0) cmdNext.Enabled = true;
}

/// Moves what is selected. Where the focused row stood before the last pass, from 1; 0 where there was none.
int frmTargets::moveSelectedRows() {
  AddPasses passes(lvSelect, lvSelected);
  int restored = 0;
  for (int i = passes.left(); i != 0;) {
    if (!passes.isSelected(i)) {
      --i;
      continue;
    }
    restored = passes.focusedPlace();
    // A pass that moves nothing leaves all as it was, and so would every later one.
    if (!passes.run()) break;
    i = passes.left() > 0 && passes.left() < i ? passes.left() : i - 1;
  }
  if (passes.taken().empty()) return restored;
  for (const auto* const row : passes.taken()) addRow(lvSelected, *row);
  leaveOnly(lvSelect, passes.rows());
  return restored;
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
    std::vector<const ui::ListItem*> left;
    for (const auto& row : rows) {
      if (!row.Selected) left.push_back(&row);
    }
    leaveOnly(lvSelected, left);
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
