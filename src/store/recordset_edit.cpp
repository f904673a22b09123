#include <utility>

#include "base/runtime_error.h"
#include "store/recordset_state.h"

namespace varnhold::store {
namespace {

/// Items joined by a separator.
class Joined {
 public:
  explicit Joined(std::string_view separator) : separator_(separator) {}
  void add(std::string_view item) {
    if (!text.empty()) text += separator_;
    text += item;
  }
  std::string text;

 private:
  std::string_view separator_;
};

}  // namespace

void Recordset::State::requireWritable() const {
  if (isTable && lock == LockType::Optimistic) return;
  throw RuntimeError(kRowsAreReadOnly, "The rows of " + source + " were opened for reading only.");
}

void Recordset::State::beginEdit(Edit kind) {
  edit = kind;
  edited.assign(rows.columns.size(), Value());
  assigned.assign(rows.columns.size(), false);
}

void Recordset::State::writeEdit() {
  // Given up first: an edit that the engine refuses must not be tried again by every later step.
  switch (std::exchange(edit, Edit::None)) {
    case Edit::None:
      return;
    case Edit::Add:
      return insertRow();
    case Edit::Change:
      return changeRow();
  }
}

void Recordset::State::insertRow() {
  const bool nothingSet = assigned == std::vector<bool>(assigned.size(), false);
  Joined names(", "), marks(", ");
  std::vector<Value> parameters;
  for (std::size_t i = 0; i < edited.size(); ++i) {
    if (!assigned[i] && !nothingSet) continue;
    names.add(session().quotedName(rows.columns[i].name));
    marks.add("?");
    parameters.push_back(edited[i]);
  }
  session().execute("INSERT INTO " + source + " (" + names.text + ") VALUES (" + marks.text + ")",
                    parameters);
  rows.append(edited);
  onAddedRow = !asked;
  goTo(rows.size - 1);
}

void Recordset::State::changeRow() {
  Joined assignments(", ");
  std::vector<Value> parameters;
  for (std::size_t i = 0; i < edited.size(); ++i) {
    if (!assigned[i] || edited[i] == rows.columns[i].at(place)) continue;
    assignments.add(session().quotedName(rows.columns[i].name) + " = ?");
    parameters.push_back(edited[i]);
  }
  if (parameters.empty()) return;
  executeOnCurrentRow("UPDATE", assignments.text, std::move(parameters));
  for (std::size_t i = 0; i < edited.size(); ++i) {
    if (assigned[i]) rows.columns[i].set(place, edited[i]);
  }
  goTo(place);
}

void Recordset::State::deleteRow() {
  requireWritable();
  if (std::exchange(edit, Edit::None) == Edit::Add) return;
  ensureRows();
  requireCurrentRow();
  executeOnCurrentRow("DELETE", "", {});
  deleted.resize(rows.size, false);
  deleted[place] = true;
  ++deletedCount;
}

void Recordset::State::executeOnCurrentRow(std::string_view action, const std::string& assignments,
                                           std::vector<Value> parameters) {
  Joined condition(" AND ");
  for (const Column& column : rows.columns) {
    const Value value = column.at(place);
    condition.add(session().quotedName(column.name) + (value.isNull() ? " IS NULL" : " = ?"));
    if (!value.isNull()) parameters.push_back(value);
  }
  const std::string statement =
      oneRowStatement(session().engine(), action, source, assignments, condition.text);
  if (session().execute(statement, parameters) == 1) return;
  throw RuntimeError(kDatabaseFailed,
                     "The row of " + source +
                         " was changed or deleted by someone else since it was read. Read it anew "
                         "and try again.");
}

}  // namespace varnhold::store
