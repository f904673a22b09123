#include "tools/provision/registry_setup.h"

#include <array>
#include <string_view>

#include "base/runtime_error.h"
#include "base/text.h"
#include "core/registry_values.h"

namespace varnhold::provision {
namespace {

constexpr auto kHive = platform::RegistryHive::LocalMachine;
constexpr std::string_view kProductVersion = "7.0";  ///< of the agents that are deployed from the home
constexpr std::size_t kCapacity = 1024;              ///< what the product reads of a value

/// One value of a fresh home. `%HOME%` and `%DRIVER%` in a text are holes.
struct FreshValue {
  std::string_view key, name;
  std::string_view text;
  std::uint32_t number = 0;
  bool isNumber = false;
};

constexpr std::array<FreshValue, 8> kFreshValues{{
    {core::kQuorvaneKey, "DBPath", "%HOME%"},
    {core::kQuorvaneKey, "MaxDBSize", {}, 500, true},
    {core::kManagerKey, "VHVersion", kProductVersion},
    {core::kManagerKey, "MpDbResend", {}, 0, true},
    {core::kAgentKey, "InstallPath", R"(%HOME%\Agent)"},
    {core::kAgentKey, "gPollingFreq", "1:0"},
    {core::kAgentKey, "gPollStartTime", "0:0"},
    {core::kDataSourcesKey, "qrvdb", "%DRIVER%"},
}};

platform::RegistryValue textValue(std::string_view text) {
  return {platform::kRegText, std::string(text) + '\0'};
}

platform::RegistryValue numberValue(std::uint32_t number) {
  platform::RegistryValue value{platform::kRegNumber, {}};
  for (int byte = 0; byte < 4; ++byte) value.bytes += static_cast<char>((number >> (8 * byte)) & 0xFF);
  return value;
}

void write(platform::Registry& registry, std::string_view key, std::string_view name,
           const platform::RegistryValue& value) {
  auto outcome = registry.createKey(kHive, key);
  if (outcome == platform::RegistryOutcome::Done) outcome = registry.set(kHive, key, name, value);
  if (outcome == platform::RegistryOutcome::Done) return;
  throw RuntimeError(kPermissionDenied, "Cannot write the registry value '" + std::string(name) +
                                            "' of HKEY_LOCAL_MACHINE\\" + std::string(key) +
                                            ". Run varnhold-provision with the rights of an administrator.");
}

}  // namespace

std::string installedFolder(platform::Registry& registry) {
  platform::RegistryValue value;
  const auto outcome = registry.query(kHive, core::kManagerKey, "INSTALLPATH", kCapacity, value);
  if (outcome != platform::RegistryOutcome::Done || value.type != platform::kRegText) return {};
  return TrimAtNull(value.bytes);
}

void writeRegistryValues(platform::Registry& registry, const std::string& home,
                         const std::string& driverName) {
  for (const auto& fresh : kFreshValues) {
    const auto text = replaceAll(replaceAll(fresh.text, "%DRIVER%", driverName), "%HOME%", home);
    write(registry, fresh.key, fresh.name, fresh.isNumber ? numberValue(fresh.number) : textValue(text));
  }
}

void writeInstalledFolder(platform::Registry& registry, const std::string& home) {
  write(registry, core::kManagerKey, "INSTALLPATH", textValue(home));
}

}  // namespace varnhold::provision
