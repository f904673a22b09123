#include "ui/controls/collection_errors.h"

#include <string>

#include "base/runtime_error.h"
#include "ui/controls/constants.h"

namespace varnhold::ui {

void checkIndex(std::string_view what, int index, std::size_t count) {
  if (index >= 1 && static_cast<std::size_t>(index) <= count) return;
  throw RuntimeError(kIndexOutOfBounds, "Index out of bounds: there is no " + std::string(what) + " " +
                                            std::to_string(index) + " among " + std::to_string(count) + ".");
}

void raiseObjectNotSet(std::string_view what) {
  throw RuntimeError(kObjectNotSet, "There is no " + std::string(what) + ".");
}

void raiseInvalidValue(std::string_view property, std::string_view reason) {
  throw RuntimeError(kInvalidPropertyValue, "Invalid property value for " + std::string(property) + ": " +
                                                std::string(reason) + ".");
}

}  // namespace varnhold::ui
