#include "companion/surroundings.h"

#include "base/text.h"
#include "companion/host.h"
#include "companion/paths.h"
#include "platform/host_adapters.h"

namespace varnhold::companion {
namespace {

constexpr std::string_view kManagerKey = R"(SOFTWARE\Kelmont Works\Varnhold\Manager)";
constexpr std::size_t kLongestValue = 1024;
constexpr const char* kOwnVersion = "7.0";

std::string managerValue(platform::Registry& registry, std::string_view name) {
  platform::RegistryValue value;
  const auto outcome =
      registry.query(platform::RegistryHive::LocalMachine, kManagerKey, name, kLongestValue, value);
  if (outcome != platform::RegistryOutcome::Done || value.type != platform::kRegText) return {};
  return TrimAtNull(value.bytes);
}

}  // namespace

Surroundings readSurroundings() {
  const auto adapters = platform::makeHostAdapters({});
  Surroundings surroundings;
  if (const std::string installPath = managerValue(adapters->registry(), "INSTALLPATH"); !installPath.empty())
    surroundings.labFolder = resolveIgnoringCase(host::localPath(installPath), {"lab"});
  surroundings.managerName = TrimAtNull(adapters->environment().getComputerName().value_or("LocalHost"));
  const std::string version = managerValue(adapters->registry(), "VHVersion");
  surroundings.agentVersion = version.empty() ? kOwnVersion : version;
  return surroundings;
}

}  // namespace varnhold::companion
