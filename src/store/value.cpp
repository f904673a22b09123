#include "store/value.h"

#include <charconv>
#include <cmath>

#include "base/runtime_error.h"
#include "base/text.h"

namespace varnhold::store {
namespace {

[[noreturn]] void raiseNull() {
  throw RuntimeError(kInvalidUseOfNull, "Invalid use of Null");
}
[[noreturn]] void raiseTypeMismatch() {
  throw RuntimeError(kTypeMismatch, "Type mismatch");
}

/// The shortest text that reads back as the same number; a whole one shows no point.
std::string textOf(double number) {
  char buffer[32];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
  return error == std::errc() ? std::string(buffer, end) : std::string();
}

/// Rounded to the nearest whole number, halves to the even one, as the product's platform converts.
std::int64_t wholeNumberOf(double number) {
  const double rounded = std::nearbyint(number);
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  if (!(rounded >= -kLimit && rounded < kLimit)) raiseTypeMismatch();
  return static_cast<std::int64_t>(rounded);
}

std::int64_t wholeNumberOf(const std::string& text) {
  const std::string digits = trimBlanks(text);
  const char* end = digits.data() + digits.size();
  std::int64_t whole = 0;
  if (const auto [stop, error] = std::from_chars(digits.data(), end, whole);
      error == std::errc() && stop == end) {
    return whole;
  }
  double number = 0;
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end) raiseTypeMismatch();
  return wholeNumberOf(number);
}

}  // namespace

std::string Value::asText() const {
  if (isNull()) raiseNull();
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&content_)) return textOf(*number);
  return std::get<std::string>(content_);
}

std::int64_t Value::asInteger() const {
  if (isNull()) raiseNull();
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return *whole;
  if (const auto* number = std::get_if<double>(&content_)) return wholeNumberOf(*number);
  return wholeNumberOf(std::get<std::string>(content_));
}

}  // namespace varnhold::store
