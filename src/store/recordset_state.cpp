#include "store/recordset_state.h"

#include <utility>

#include "base/runtime_error.h"

namespace varnhold::store {

Connection::Session& Recordset::State::session() const {
  // Whoever calls has looked that the connection is open; one thread at a time uses it.
  return *connection.lock();
}

std::string Recordset::State::statement() const {
  if (isTable) return "SELECT * FROM " + source + (filter.empty() ? "" : " WHERE " + filter);
  return filter.empty() ? source : "SELECT * FROM (" + source + ") AS rows_of_set WHERE " + filter;
}

void Recordset::State::forget() {
  rows = {};
  asked = onAddedRow = false;
  deleted.clear();
  deletedCount = 0;
  goTo(0);
}

void Recordset::State::ensureRows() {
  if (asked || onAddedRow) return;
  rows = session().query(statement());
  asked = true;
  goTo(0);
}

void Recordset::State::ensureColumns() {
  if (rows.columns.empty()) rows = session().query("SELECT * FROM " + source + " WHERE 1 = 0");
}

void Recordset::State::goTo(std::size_t row) {
  place = row;
  cells.resize(rows.columns.size());
  known.assign(rows.columns.size(), false);
}

std::size_t Recordset::State::behindDeleted(std::size_t row) const {
  while (row < deleted.size() && deleted[row]) ++row;
  return row;
}

bool Recordset::State::hasCurrentRow() const {
  return place < rows.size && !(place < deleted.size() && deleted[place]);
}

void Recordset::State::requireCurrentRow() const {
  if (!hasCurrentRow()) throw RuntimeError(kNoCurrentRow, "There is no current row in " + source + ".");
}

const Value& Recordset::State::cell(std::size_t column) {
  if (edit != Edit::None && (edit == Edit::Add || assigned[column])) return edited[column];
  requireCurrentRow();
  if (!known[column]) {
    cells[column] = rows.columns[column].at(place);
    known[column] = true;
  }
  return cells[column];
}

void Recordset::State::setCell(std::size_t column, const Value& value) {
  requireWritable();
  if (edit == Edit::None) {
    requireCurrentRow();
    beginEdit(Edit::Change);
  }
  edited[column] = rows.columns[column].normalised(value);
  assigned[column] = true;
}

}  // namespace varnhold::store
