#pragma once

#include <optional>
#include <string>

namespace varnhold::platform::posix {

/// The folder with everything that stands in for the product's platform: `given`, else $VARNHOLD_HOME, else
/// $XDG_DATA_HOME/varnhold, else .local/share/varnhold in the user's folder; variables that are empty count
/// as absent. Absolute, without closing slash; need not exist.
[[nodiscard]] std::string homeFolder(const std::optional<std::string>& given);

}  // namespace varnhold::platform::posix
