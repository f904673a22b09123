#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "base/runtime_error.h"
#include "ui/controls/constants.h"

namespace varnhold::ui {

/// Controls of one name that are told apart by an index from 0: `optClient(0)`. The form gives each its
/// handler in a loop (`optClient(i).Click = [this, i] { optClient_Click(i); }`) and adopts each under the
/// common name.
template <class ControlKind, std::size_t count>
class ControlArray {
 public:
  /// Error 340 where there is no such index.
  [[nodiscard]] ControlKind& operator()(int index) { return elements_[place(index)]; }
  [[nodiscard]] const ControlKind& operator()(int index) const { return elements_[place(index)]; }

  [[nodiscard]] static constexpr int Count() { return static_cast<int>(count); }

  [[nodiscard]] auto begin() { return elements_.begin(); }
  [[nodiscard]] auto end() { return elements_.end(); }

 private:
  static std::size_t place(int index) {
    if (index < 0 || index >= Count()) {
      throw RuntimeError(kNoSuchArrayElement,
                         "Control array element " + std::to_string(index) + " does not exist.");
    }
    return static_cast<std::size_t>(index);
  }

  std::array<ControlKind, count> elements_;
};

}  // namespace varnhold::ui
