#pragma once

#include <cstddef>
#include <string_view>

namespace varnhold::ui {

/// Error 35600 unless `index` is 1 to `count`. `what` names a member of the collection.
void checkIndex(std::string_view what, int index, std::size_t count);

/// Raises error 91: `what` is not there.
[[noreturn]] void raiseObjectNotSet(std::string_view what);

/// Raises error 380: `property` refuses the value, for the reason told.
[[noreturn]] void raiseInvalidValue(std::string_view property, std::string_view reason);

}  // namespace varnhold::ui
