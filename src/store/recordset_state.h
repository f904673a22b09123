#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/recordset.h"
#include "store/session.h"

namespace varnhold::store {

/// An open recordset: what it was opened on, the rows once asked for, its place, and the row being written.
struct Recordset::State {
  std::weak_ptr<Connection::Session> connection;
  std::string source;
  bool isTable = false;
  LockType lock = LockType::ReadOnly;
  std::string filter;

  Rows rows;
  bool asked = false;       ///< the rows are all there
  bool onAddedRow = false;  ///< not asked yet, but there are rows that were added through this set
  std::size_t place = 0;    ///< of the current row; the number of rows when behind the last
  std::vector<bool> deleted;
  std::size_t deletedCount = 0;

  enum class Edit { None, Change, Add } edit = Edit::None;
  std::vector<Value> edited;   ///< the row being written, by column
  std::vector<bool> assigned;  ///< which of its columns were set

  /// The current row's values as far as they were asked for.
  std::vector<Value> cells;
  std::vector<bool> known;

  [[nodiscard]] Connection::Session& session() const;
  [[nodiscard]] std::string statement() const;
  /// Forgets all rows: they are asked for anew when next needed.
  void forget();
  void ensureRows();
  /// Knows the columns, without asking for rows.
  void ensureColumns();
  void goTo(std::size_t row);
  [[nodiscard]] std::size_t behindDeleted(std::size_t row) const;
  [[nodiscard]] bool hasCurrentRow() const;
  void requireCurrentRow() const;

  [[nodiscard]] const Value& cell(std::size_t column);
  void setCell(std::size_t column, const Value& value);

  void requireWritable() const;
  void beginEdit(Edit kind);
  void writeEdit();  ///< the row being written, if any
  void insertRow();
  void changeRow();
  void deleteRow();
  /// Executes `action` on one row that still holds what was read of the current one.
  void executeOnCurrentRow(std::string_view action, const std::string& assignments,
                           std::vector<Value> parameters);
};

}  // namespace varnhold::store
