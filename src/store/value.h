#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace varnhold::store {

/// What a column holds: NULL, a whole number, a number, or text (UTF-8).
class Value {
 public:
  Value() = default;
  Value(std::int64_t number) : content_(number) {}          // NOLINT(google-explicit-constructor)
  Value(int number) : content_(std::int64_t{number}) {}     // NOLINT(google-explicit-constructor)
  Value(double number) : content_(number) {}                // NOLINT(google-explicit-constructor)
  Value(std::string text) : content_(std::move(text)) {}    // NOLINT(google-explicit-constructor)
  Value(const char* text) : content_(std::string(text)) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(content_); }
  /// The value as text; raises kInvalidUseOfNull for NULL.
  [[nodiscard]] std::string asText() const;
  /// The value as a whole number; raises kInvalidUseOfNull for NULL and kTypeMismatch for text that is none.
  [[nodiscard]] std::int64_t asInteger() const;
  /// False for 0 only; errors as `asInteger`.
  [[nodiscard]] bool asBoolean() const { return asInteger() != 0; }

  /// What it holds, by kind: null for another kind.
  [[nodiscard]] const std::int64_t* ifInteger() const { return std::get_if<std::int64_t>(&content_); }
  [[nodiscard]] const double* ifNumber() const { return std::get_if<double>(&content_); }
  [[nodiscard]] const std::string* ifText() const { return std::get_if<std::string>(&content_); }

  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<std::monostate, std::int64_t, double, std::string> content_;
};

}  // namespace varnhold::store
