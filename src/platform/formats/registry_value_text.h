#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/registry.h"

namespace varnhold::platform {

/// True for the types whose bytes are text: REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ (winnt.h).
[[nodiscard]] bool isRegistryTextType(std::uint32_t type);

/// One value as a registry file has it, `"name"=...`, `@=...` for the empty name. Text that ends in its only
/// NUL stands in quotes and a number of four bytes behind `dword:`; everything else, text with line breaks or
/// without its closing NUL included, stands as `hex(type):`, whose lines end in `\` CR LF where they go on.
/// No line end behind it.
[[nodiscard]] std::string registryValueText(std::string_view name, const RegistryValue& value);

}  // namespace varnhold::platform
