#pragma once

#include <string>
#include <vector>

#include "platform/host_adapters.h"

namespace varnhold::provision {

/// The whole program: arguments (UTF-8, without the program's name) to exit status. 0 done, 1 not done, 2
/// wrong usage; what is wrong goes to standard error.
[[nodiscard]] int run(const std::vector<std::string>& arguments, platform::ProcessStart start);

}  // namespace varnhold::provision
