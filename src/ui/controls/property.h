#pragma once

#include <concepts>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "ui/controls/component.h"

namespace varnhold::ui {

/// A value of a control, a form or a part of one: reads as the value it holds, and tells its owner when it is
/// set to another one. Setting the value it holds already does nothing and raises nothing. Main thread.
template <class T>
class Property : public PropertyBase {
 public:
  using ValueType = T;
  /// Refuses a value by raising a run-time error; the property then keeps what it held.
  using Check = std::function<void(const T&)>;

  /// `owner` is the object that the property is a member of. What the property holds when the owner's form is
  /// loaded for the first time is its design value.
  explicit Property(Component& owner, T initial = T(), Check check = {})
      : PropertyBase(owner), value_(initial), design_(std::move(initial)), check_(std::move(check)) {}

  Property& operator=(const T& value) {
    assign(value);
    return *this;
  }
  Property& operator=(const Property& other) {
    if (this != &other) assign(other.value_);
    return *this;
  }

  operator const T&() const {
    return value_;
  }  // NOLINT(google-explicit-constructor): a property reads as its value
  [[nodiscard]] const T& get() const { return value_; }

  /// Sets the value and tells nobody: for the owner alone, where one value follows from another.
  void settle(T value) { value_ = std::move(value); }

  void keepDesign() override { design_ = value_; }
  void restoreDesign() override { value_ = design_; }

 private:
  void assign(const T& value) {
    if (value == value_) return;
    if (check_) check_(value);
    value_ = value;
    tellOwner();
  }

  T value_;
  T design_;
  Check check_;
};

/// Anything that holds a value and reads as it: a property, a field of a row, a cell.
template <class P>
concept HoldsValue = requires(const P& holder) {
  typename P::ValueType;
  { holder.get() } -> std::convertible_to<typename P::ValueType>;
};

template <class P>
concept HoldsText = HoldsValue<P> && std::same_as<typename P::ValueType, std::string>;

template <HoldsValue P, class U>
requires(!HoldsValue<U>) [[nodiscard]] bool operator==(const P& holder, const U& value) {
  return holder.get() == value;
}

template <HoldsValue P, HoldsValue Q>
[[nodiscard]] bool operator==(const P& left, const Q& right) {
  return left.get() == right.get();
}

template <HoldsText P>
[[nodiscard]] std::string operator+(const P& holder, std::string_view text) {
  return std::string(holder.get()).append(text);
}

template <HoldsText P>
[[nodiscard]] std::string operator+(std::string_view text, const P& holder) {
  return std::string(text).append(holder.get());
}

/// For a test's failure message.
template <HoldsValue P>
requires requires(std::ostream& out, const P& holder) {
  out << holder.get();
}
std::ostream& operator<<(std::ostream& out, const P& holder) {
  return out << holder.get();
}

}  // namespace varnhold::ui
