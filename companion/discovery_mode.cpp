#include "companion/discovery_mode.h"

namespace varnhold::companion {
namespace {

using platform::RegistryHive;
using platform::RegistryOutcome;

constexpr std::string_view kKey = R"(SOFTWARE\Kelmont Works\Quorvane)";
constexpr std::string_view kName = "NetAccessMode";
constexpr std::size_t kNumberSize = 4;

}  // namespace

std::optional<std::uint8_t> storedDiscoveryMode(platform::Registry& registry) {
  platform::RegistryValue value;
  const auto outcome = registry.query(RegistryHive::LocalMachine, kKey, kName, kNumberSize, value);
  const bool isNumber = outcome == RegistryOutcome::Done && value.type == platform::kRegNumber &&
                        value.bytes.size() == kNumberSize;
  if (!isNumber) return std::nullopt;
  // A number that somebody wrote by hand may have more than the one byte: it is not 0 then.
  const bool isByte = value.bytes.find_first_not_of('\0', 1) == std::string::npos;
  return isByte ? static_cast<std::uint8_t>(value.bytes[0]) : std::uint8_t{1};
}

bool storeDiscoveryMode(platform::Registry& registry, std::uint8_t mode) {
  platform::RegistryValue value{platform::kRegNumber, std::string(kNumberSize, '\0')};
  value.bytes[0] = static_cast<char>(mode);
  if (registry.createKey(RegistryHive::LocalMachine, kKey) != RegistryOutcome::Done) return false;
  return registry.set(RegistryHive::LocalMachine, kKey, kName, value) == RegistryOutcome::Done;
}

}  // namespace varnhold::companion
