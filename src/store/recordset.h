#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "store/connection.h"
#include "store/value.h"

namespace varnhold::store {

/// Adding to, changing or deleting from rows that were opened for reading only, or from a SELECT (ADO
/// adErrFeatureNotAvailable).
inline constexpr std::int32_t kRowsAreReadOnly = 3251;

enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };  ///< adOpen...
enum class LockType { ReadOnly = 1, Optimistic = 3 };                            ///< adLock...

/// The rows of a table or of a SELECT, one current at a time. Opening is lazy: rows are asked for when `Bof`,
/// `Eof`, a move or a field first needs them, with the filter that is set then as part of the statement, so
/// that finding one row costs one indexed look-up. Setting another filter asks anew and sees rows written
/// since. Errors as for `Connection`; a source that the engine refuses may be reported at `Open` or at the
/// first use of rows.
class Recordset {
 public:
  Recordset();
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// `source` is the name of a table, or the text of a SELECT. Columns of a SELECT over several tables that
  /// have the same name are found by the first of them.
  void Open(const std::string& source, Connection& connection, CursorType cursor, LockType lock,
            int options = -1);
  void Close() noexcept;

  /// Keeps the rows for which the condition holds, and goes to the first; an empty text lifts the filter. The
  /// condition is spliced into the statement as it stands.
  void setFilter(std::string_view condition);
  /// Asks for the rows anew and goes to the first.
  void Requery();

  [[nodiscard]] bool Bof();  ///< before the first row; with `Eof`: no rows
  [[nodiscard]] bool Eof();  ///< behind the last row
  void MoveFirst();          ///< raises kNoCurrentRow on an empty set
  void MoveNext();           ///< raises kNoCurrentRow when already behind the last row

  /// A column of the current row, named without regard to case.
  class Field {
   public:
    /// Raises kNoCurrentRow when there is no current row.
    [[nodiscard]] const Value& value() const;
    /// Changes the row being edited or added; it is written by `Update`. Raises kNoCurrentRow as `value`
    /// does, kRowsAreReadOnly, and kTypeMismatch for text that is no number in a column of numbers.
    void setValue(const Value& value);

   private:
    friend class Recordset;
    Field(Recordset& rows, std::size_t column) : rows_(rows), column_(column) {}
    Recordset& rows_;
    std::size_t column_;
  };
  /// Raises kItemNotFound when there is no such column.
  [[nodiscard]] Field Fields(std::string_view name);

  /// Begins a new row, all NULL; written, it is the current one. Raises kRowsAreReadOnly.
  void AddNew();
  /// Writes the added or changed row, exactly one, also where others are equal to it. Does nothing when none
  /// is being added or changed. Raises kDatabaseFailed when someone else changed or deleted the row since it
  /// was read. The edit is given up when it fails.
  void Update();
  /// Deletes the current row, exactly one, also where others are equal to it; the set stays on its place
  /// until it is moved. A row that is being added is given up. Raises kRowsAreReadOnly, kNoCurrentRow, and
  /// kDatabaseFailed as `Update` does.
  void Delete();

 private:
  struct State;
  [[nodiscard]] State& opened() const;

  std::unique_ptr<State> state_;
};

}  // namespace varnhold::store
