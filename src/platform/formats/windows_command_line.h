#pragma once

#include <string>
#include <string_view>

namespace varnhold::platform {

/// The arguments of a Windows command line as they were typed: everything behind the program's name and the
/// white space that follows it. The name ends at the first white space (any character up to U+0020) that is
/// not between double quotes; a quote that is never closed reaches to the end. Blanks behind the arguments
/// stay.
[[nodiscard]] std::string argumentsOf(std::string_view commandLine);

}  // namespace varnhold::platform
