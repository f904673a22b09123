#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

namespace varnhold::store {

/// What the cells of a column hold, NULL apart.
enum class ColumnKind { Integer, Number, Text };

/// One column of an answer with its cells, row by row. The text of all cells lies in one piece, so that a row
/// costs no allocation of its own.
struct Column {
  std::string name;
  ColumnKind kind = ColumnKind::Text;

  void appendNull();
  void append(std::int64_t number);
  void append(double number);
  /// Appends text that the caller has already put behind the end of `text`, where it began at `begin`.
  void appendTextFrom(std::size_t begin);
  void append(const Value& value);

  [[nodiscard]] Value at(std::size_t row) const;
  /// `value` is NULL or of the column's kind.
  void set(std::size_t row, const Value& value);
  /// `value` as the column holds it; raises kTypeMismatch for text in a column of numbers that is none.
  [[nodiscard]] Value normalised(const Value& value) const;

  std::string text;

 private:
  static constexpr std::uint64_t kNull = ~std::uint64_t{0};
  /// For text: where it begins and how long it is. For numbers: their bits, and 0. `extent` kNull marks NULL.
  struct Cell {
    std::uint64_t bits = 0;
    std::uint64_t extent = kNull;
  };
  [[nodiscard]] Cell cellOf(const Value& value);

  std::vector<Cell> cells_;
};

/// The rows of one answer, all read.
struct Rows {
  std::vector<Column> columns;
  std::size_t size = 0;

  void append(const std::vector<Value>& row);
};

}  // namespace varnhold::store
