#pragma once

#include <optional>
#include <string>
#include <vector>

namespace varnhold::companion {

/// The numbers of "7.0.12" without zeros at their end, for comparing; nothing for any other text.
[[nodiscard]] std::optional<std::vector<unsigned>> versionNumbers(const std::string& version);

}  // namespace varnhold::companion
