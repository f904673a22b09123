#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace varnhold::platform {

/// The words that Windows has for one of its error numbers (winerror.h), ended in CR LF as FormatMessage
/// gives them; nothing for a number that is not in the table of those that remote work meets.
[[nodiscard]] std::optional<std::string> systemMessage(std::uint32_t number);

}  // namespace varnhold::platform
