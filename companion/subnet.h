#pragma once

#include <string_view>

namespace varnhold::companion {

/// Does the dotted address belong to the subnet "a.b.c.0"? The parts of the subnet that are 0 and have
/// nothing but zeros behind them stand for any value; "0.0.0.0" holds every address. Parts compare as
/// numbers. False for whatever is no dotted address of four parts, the empty text among it.
[[nodiscard]] bool belongsToSubnet(std::string_view address, std::string_view subnet);

}  // namespace varnhold::companion
