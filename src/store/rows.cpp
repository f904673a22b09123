#include "store/rows.h"

#include <bit>
#include <charconv>
#include <cmath>

#include "base/runtime_error.h"
#include "base/text.h"

namespace varnhold::store {
namespace {

double numberOf(const Value& value) {
  const std::string text = trimBlanks(value.asText());
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && stop == text.data() + text.size() && !text.empty();
  if (!whole) throw RuntimeError(kTypeMismatch, "Type mismatch");
  return number;
}

}  // namespace

void Column::appendNull() {
  cells_.emplace_back();
}

void Column::append(std::int64_t number) {
  cells_.push_back({std::bit_cast<std::uint64_t>(number), 0});
}

void Column::append(double number) {
  cells_.push_back({std::bit_cast<std::uint64_t>(number), 0});
}

void Column::appendTextFrom(std::size_t begin) {
  cells_.push_back({begin, text.size() - begin});
}

void Column::append(const Value& value) {
  cells_.push_back(cellOf(value));
}

Value Column::at(std::size_t row) const {
  const Cell& cell = cells_[row];
  if (cell.extent == kNull) return {};
  if (kind == ColumnKind::Integer) return std::bit_cast<std::int64_t>(cell.bits);
  if (kind == ColumnKind::Number) return std::bit_cast<double>(cell.bits);
  return text.substr(cell.bits, cell.extent);
}

void Column::set(std::size_t row, const Value& value) {
  cells_[row] = cellOf(value);
}

Column::Cell Column::cellOf(const Value& value) {
  if (value.isNull()) return {};
  if (kind == ColumnKind::Integer) return {std::bit_cast<std::uint64_t>(value.asInteger()), 0};
  if (kind == ColumnKind::Number) return {std::bit_cast<std::uint64_t>(numberOf(value)), 0};
  const std::size_t begin = text.size();
  text += value.asText();
  return {begin, text.size() - begin};
}

Value Column::normalised(const Value& value) const {
  if (value.isNull()) return {};
  if (kind == ColumnKind::Integer) return value.asInteger();
  if (kind == ColumnKind::Number) return numberOf(value);
  return value.asText();
}

void Rows::append(const std::vector<Value>& row) {
  for (std::size_t i = 0; i < columns.size(); ++i) columns[i].append(row[i]);
  ++size;
}

}  // namespace varnhold::store
