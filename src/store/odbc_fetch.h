#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "store/odbc_api.h"
#include "store/rows.h"

namespace varnhold::store::odbc {

/// Where blocks of rows land. Kept by the session, since one look-up's memory serves the next.
class BlockBuffer {
 public:
  /// At least `bytes`, aligned for any type; what was in it is lost.
  [[nodiscard]] std::byte* reserve(std::size_t bytes);

 private:
  std::unique_ptr<std::byte[]> bytes_;
  std::size_t size_ = 0;
};

/// For each column, how many UTF-16 units it is read with, the closing NUL included; 0: not yet known.
using TextWidths = std::vector<std::size_t>;

/// Reads all rows of an executed statement, in blocks of bound columns.
/// False when a text was longer than its column's width: `widths` has then grown, and the statement is to be
/// executed and read anew. A long text thus costs a second pass, and all others no call per cell.
/// `failed` is the result of an ODBC call that failed, else SQL_SUCCESS.
[[nodiscard]] bool fetchRows(SQLHSTMT statement, TextWidths& widths, BlockBuffer& buffer, Rows& rows,
                             SQLRETURN& failed);

}  // namespace varnhold::store::odbc
