#pragma once

#include <string>
#include <string_view>

namespace varnhold::platform::windows {

/// UTF-8 to what the wide calls of Windows take; what is no UTF-8 becomes U+FFFD.
[[nodiscard]] std::wstring toWide(std::string_view text);

/// What the wide calls give back, as UTF-8; a lone surrogate becomes U+FFFD.
[[nodiscard]] std::string fromWide(std::wstring_view text);

}  // namespace varnhold::platform::windows
