#pragma once

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>

namespace varnhold {

/// Matches a container of texts with exactly these, in this order. What testing::ElementsAre says too, but
/// that compiles anew for every number of texts and every length of one.
[[nodiscard]] inline auto LinesAre(std::initializer_list<std::string> lines) {
  return testing::ElementsAreArray(lines);
}

}  // namespace varnhold
