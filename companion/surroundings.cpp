#include "companion/surroundings.h"

#include "base/text.h"
#include "companion/host.h"
#include "companion/paths.h"
#include "platform/host_adapters.h"

namespace varnhold::companion {
namespace {

constexpr std::string_view kManagerKey = R"(SOFTWARE\Kelmont Works\Varnhold\Manager)";
constexpr std::size_t kLongestValue = 1024;
/// In the order in which the console looks for them.
constexpr std::string_view kChangesKeys[] = {R"(SOFTWARE\Kelmont Works\TKWindows)",
                                             R"(SOFTWARE\Kelmont Works\TKWFileTracker)",
                                             R"(SOFTWARE\Kelmont Works\TKWRegTracker)"};

std::string textOf(platform::Registry& registry, std::string_view key, std::string_view name) {
  platform::RegistryValue value;
  const auto outcome = registry.query(platform::RegistryHive::LocalMachine, key, name, kLongestValue, value);
  if (outcome != platform::RegistryOutcome::Done || value.type != platform::kRegText) return {};
  return TrimAtNull(value.bytes);
}

void readChangesProduct(platform::Registry& registry, Surroundings& surroundings) {
  for (const std::string_view key : kChangesKeys) {
    const std::string folder = textOf(registry, key, "LocalRootDir");
    if (folder.empty()) continue;
    surroundings.changesFolder = host::localPath(folder);
    surroundings.changesVersion = textOf(registry, key, "Version");
    return;
  }
}

}  // namespace

Surroundings readSurroundings() {
  const auto adapters = platform::makeHostAdapters({});
  platform::Registry& registry = adapters->registry();
  Surroundings surroundings;
  if (const std::string installPath = textOf(registry, kManagerKey, "INSTALLPATH"); !installPath.empty()) {
    const auto folder = host::localPath(installPath);
    surroundings.labFolder = resolveIgnoringCase(folder, {"lab"});
    surroundings.materialFolder = resolveIgnoringCase(folder, {"RemoteInstaller", "remins"});
  }
  surroundings.managerName = TrimAtNull(adapters->environment().getComputerName().value_or("LocalHost"));
  surroundings.agentVersion = textOf(registry, kManagerKey, "VHVersion");
  readChangesProduct(registry, surroundings);
  return surroundings;
}

}  // namespace varnhold::companion
