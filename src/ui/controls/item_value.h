#pragma once

#include <string>
#include <utility>

#include "ui/controls/collection_errors.h"
#include "ui/controls/property.h"

namespace varnhold::ui {

/// A value of a row or a node, where there may be very many: as a `Property`, but it has no design value and
/// costs one pointer. `Item` has a member `changed(const void* value)`, to which the value's address says
/// which it was.
template <class T, class Item>
class ItemValue {
 public:
  using ValueType = T;

  explicit ItemValue(Item& item, T initial = T()) : item_(item), value_(std::move(initial)) {}
  ItemValue(const ItemValue&) = delete;
  ItemValue& operator=(const ItemValue& other) { return *this = other.value_; }

  ItemValue& operator=(const T& value) {
    if (value == value_) return *this;
    value_ = value;
    item_.changed(this);
    return *this;
  }

  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): reads as its value
  [[nodiscard]] const T& get() const { return value_; }
  /// Sets the value and tells nobody.
  void settle(T value) { value_ = std::move(value); }

 private:
  Item& item_;
  T value_;
};

/// A row or a node that may not be there. Using it as if it were raises error 91.
template <class Item>
class Ref {
 public:
  Ref(Item* item, const char* what) : item_(item), what_(what) {}

  explicit operator bool() const { return item_ != nullptr; }
  [[nodiscard]] Item* get() const { return item_; }
  [[nodiscard]] Item& operator*() const {
    if (item_ == nullptr) raiseObjectNotSet(what_);
    return *item_;
  }
  [[nodiscard]] Item* operator->() const { return &**this; }

 private:
  Item* item_;
  const char* what_;
};

}  // namespace varnhold::ui
