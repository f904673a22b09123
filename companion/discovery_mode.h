#pragma once

#include <cstdint>
#include <optional>

#include "platform/registry.h"

/// Where the discovery mode is kept: the number `NetAccessMode` of the product's own key, so that every
/// account of the computer has the same.
namespace varnhold::companion {

/// The stored mode, non-zero for automatic; nothing when none was saved, or what stands there is no number.
[[nodiscard]] std::optional<std::uint8_t> storedDiscoveryMode(platform::Registry& registry);

/// False when the registry does not take it. The key is made where it is missing.
[[nodiscard]] bool storeDiscoveryMode(platform::Registry& registry, std::uint8_t mode);

}  // namespace varnhold::companion
