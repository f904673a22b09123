#include "store/odbc_fetch.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "store/odbc_text.h"

namespace varnhold::store::odbc {
namespace {

constexpr std::size_t kBlockBytes = 256 * 1024;
constexpr std::size_t kMostRowsPerBlock = 256;
/// The letters that a column is first read with when it declares more, and when it declares none. Longer
/// texts are met by a second pass. Wide enough for all of a MySQL TEXT: MariaDB's driver reads beyond its own
/// memory when it has to cut a text.
constexpr std::size_t kWidestAtFirst = 65535;
constexpr std::size_t kUndeclaredWidth = 255;

constexpr std::size_t kUnitsPerLetter = 2;  ///< one beyond the first plane is a surrogate pair

/// A column as bound: an array of values, and one of indicators, with a place per row of a block.
struct Bound {
  ColumnKind kind;
  std::size_t width;  ///< bytes of one value
  std::byte* values = nullptr;
  SQLLEN* indicators = nullptr;
};

ColumnKind kindOf(SQLSMALLINT type, SQLULEN size, SQLSMALLINT digits) {
  constexpr SQLULEN kDigitsOf64Bits = 18;
  switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return ColumnKind::Integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return digits == 0 && size <= kDigitsOf64Bits ? ColumnKind::Integer : ColumnKind::Number;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return ColumnKind::Number;
    default:
      return ColumnKind::Text;
  }
}

/// Describes one column, and gives a text column its first width.
bool describe(SQLHSTMT statement, std::size_t index, Column& column, std::size_t& width) {
  std::array<SQLWCHAR, 256> name{};
  SQLSMALLINT length = 0, type = 0, digits = 0, nullable = 0;
  SQLULEN size = 0;
  const SQLRETURN result =
      SQLDescribeColW(statement, static_cast<SQLUSMALLINT>(index + 1), name.data(),
                      static_cast<SQLSMALLINT>(name.size()), &length, &type, &size, &digits, &nullable);
  if (!SQL_SUCCEEDED(result)) return false;
  column.name = utf8Of(name.data(), std::min<std::size_t>(static_cast<std::size_t>(length), name.size() - 1));
  column.kind = kindOf(type, size, digits);
  const std::size_t letters = size == 0 ? kUndeclaredWidth : std::min<std::size_t>(size, kWidestAtFirst);
  if (width == 0) width = kUnitsPerLetter * letters + 1;
  return true;
}

class BlockReader {
 public:
  BlockReader(SQLHSTMT statement, TextWidths& widths, Rows& rows)
      : statement_(statement), widths_(widths), rows_(rows) {}

  bool read(BlockBuffer& buffer, SQLRETURN& failed) {
    failed = SQL_SUCCESS;
    if (!describeAll() || !bindAll(buffer)) {
      failed = SQL_ERROR;
      return true;
    }
    SQLRETURN result = SQLFetch(statement_);
    for (; SQL_SUCCEEDED(result); result = SQLFetch(statement_)) {
      if (hasRowInError()) {
        failed = SQL_ERROR;
        return true;
      }
      if (!takeBlock()) return false;
    }
    if (result != SQL_NO_DATA) failed = result;
    return true;
  }

 private:
  bool describeAll() {
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(statement_, &count))) return false;
    rows_.columns.resize(static_cast<std::size_t>(count));
    widths_.resize(rows_.columns.size());
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      if (!describe(statement_, i, rows_.columns[i], widths_[i])) return false;
    }
    return true;
  }

  bool bindAll(BlockBuffer& buffer) {
    std::size_t rowBytes = 0;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      const ColumnKind kind = rows_.columns[i].kind;
      // Rounded up, so that every array in the buffer is aligned for what follows it.
      const std::size_t bytes = kind == ColumnKind::Text ? (widths_[i] * sizeof(SQLWCHAR) + 7) / 8 * 8 : 8;
      bound_.push_back({kind, bytes});
      rowBytes += bytes + sizeof(SQLLEN);
    }
    const std::size_t count =
        std::clamp<std::size_t>(kBlockBytes / std::max<std::size_t>(rowBytes, 1), 1, kMostRowsPerBlock);
    states_.assign(count, SQL_ROW_SUCCESS);
    if (!setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, count) ||
        !setAttribute(SQL_ATTR_ROW_STATUS_PTR, states_.data()) ||
        !setAttribute(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_)) {
      return false;
    }
    return bindColumns(buffer.reserve(rowBytes * count), count);
  }

  bool bindColumns(std::byte* place, std::size_t count) {
    for (std::size_t i = 0; i < bound_.size(); ++i) {
      Bound& bound = bound_[i];
      bound.values = place;
      bound.indicators = reinterpret_cast<SQLLEN*>(place + bound.width * count);
      place += (bound.width + sizeof(SQLLEN)) * count;
      if (!SQL_SUCCEEDED(SQLBindCol(statement_, static_cast<SQLUSMALLINT>(i + 1), typeOf(bound.kind),
                                    bound.values, static_cast<SQLLEN>(bound.width), bound.indicators))) {
        return false;
      }
    }
    return true;
  }

  static SQLSMALLINT typeOf(ColumnKind kind) {
    if (kind == ColumnKind::Text) return SQL_C_WCHAR;
    return kind == ColumnKind::Integer ? SQLSMALLINT{SQL_C_SBIGINT} : SQLSMALLINT{SQL_C_DOUBLE};
  }

  template <class T>
  bool setAttribute(SQLINTEGER attribute, T value) {
    return SQL_SUCCEEDED(
        SQLSetStmtAttrW(statement_, attribute, (SQLPOINTER)value, 0));  // NOLINT: number or pointer
  }

  [[nodiscard]] bool hasRowInError() const {
    const auto end = states_.begin() + static_cast<std::ptrdiff_t>(fetched_);
    return std::find(states_.begin(), end, SQLUSMALLINT{SQL_ROW_ERROR}) != end;
  }

  /// Takes the block's rows over; false when a text was cut.
  bool takeBlock() {
    bool whole = true;
    for (std::size_t i = 0; i < bound_.size(); ++i) {
      whole = (bound_[i].kind == ColumnKind::Text ? takeText(i) : takeNumbers(i)) && whole;
    }
    rows_.size += fetched_;
    return whole;
  }

  bool takeNumbers(std::size_t index) {
    const Bound& bound = bound_[index];
    Column& column = rows_.columns[index];
    for (std::size_t row = 0; row < fetched_; ++row) {
      if (bound.indicators[row] == SQL_NULL_DATA) {
        column.appendNull();
      } else if (bound.kind == ColumnKind::Integer) {
        column.append(reinterpret_cast<const std::int64_t*>(bound.values)[row]);
      } else {
        column.append(reinterpret_cast<const double*>(bound.values)[row]);
      }
    }
    return true;
  }

  bool takeText(std::size_t index) {
    const Bound& bound = bound_[index];
    Column& column = rows_.columns[index];
    // The last unit is the NUL that the driver closes the text with.
    const auto most = static_cast<SQLLEN>(bound.width - sizeof(SQLWCHAR));
    for (std::size_t row = 0; row < fetched_; ++row) {
      const SQLLEN bytes = bound.indicators[row];
      if (bytes == SQL_NULL_DATA) {
        column.appendNull();
        continue;
      }
      if (bytes == SQL_NO_TOTAL || bytes > most) return widen(index, bytes);
      const std::size_t begin = column.text.size();
      appendUtf8(column.text, reinterpret_cast<const SQLWCHAR*>(bound.values + row * bound.width),
                 static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR));
      column.appendTextFrom(begin);
    }
    return true;
  }

  /// At least twice the width, so that a column with ever longer texts costs few passes. Always false.
  bool widen(std::size_t index, SQLLEN bytes) {
    const std::size_t known =
        bytes == SQL_NO_TOTAL ? 0 : static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR) + 1;
    widths_[index] = std::max(widths_[index] * 2, known);
    return false;
  }

  SQLHSTMT statement_;
  TextWidths& widths_;
  Rows& rows_;
  std::vector<Bound> bound_;
  std::vector<SQLUSMALLINT> states_;
  SQLULEN fetched_ = 0;
};

}  // namespace

std::byte* BlockBuffer::reserve(std::size_t bytes) {
  if (bytes > size_) {
    bytes_ = std::make_unique_for_overwrite<std::byte[]>(bytes);
    size_ = bytes;
  }
  return bytes_.get();
}

bool fetchRows(SQLHSTMT statement, TextWidths& widths, BlockBuffer& buffer, Rows& rows, SQLRETURN& failed) {
  return BlockReader(statement, widths, rows).read(buffer, failed);
}

}  // namespace varnhold::store::odbc
