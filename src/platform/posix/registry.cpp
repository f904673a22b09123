#include <algorithm>
#include <array>

#include "platform/posix/adapters.h"
#include "platform/posix/registry_store.h"

namespace varnhold::platform::posix {
namespace {

struct HiveName {
  RegistryHive hive;
  std::string_view name;
};

constexpr std::array kHiveNames = {
    HiveName{RegistryHive::ClassesRoot, "HKEY_CLASSES_ROOT"},
    HiveName{RegistryHive::CurrentUser, "HKEY_CURRENT_USER"},
    HiveName{RegistryHive::LocalMachine, "HKEY_LOCAL_MACHINE"},
    HiveName{RegistryHive::Users, "HKEY_USERS"},
};

/// The key as the file names it; empty for a hive there is none of.
std::string fullKey(RegistryHive hive, std::string_view key) {
  const auto* found = std::find_if(kHiveNames.begin(), kHiveNames.end(),
                                   [&](const HiveName& entry) { return entry.hive == hive; });
  return found == kHiveNames.end() ? std::string{} : std::string(found->name) + "\\" + std::string(key);
}

class RegistryOfFile : public Registry {
 public:
  RegistryOfFile(const std::string& home, std::chrono::milliseconds lockWait) : store_(home, lockWait) {}

  RegistryOutcome query(RegistryHive hive, std::string_view key, std::string_view name, std::size_t capacity,
                        RegistryValue& value) override {
    const auto& file = store_.current();
    const auto path = fullKey(hive, key);
    if (!file.hasKey(path)) return RegistryOutcome::KeyMissing;
    const auto* found = file.find(path, name);
    if (found == nullptr) return RegistryOutcome::ValueMissing;
    if (found->bytes.size() > capacity) return RegistryOutcome::TooLong;
    value = *found;
    return RegistryOutcome::Done;
  }

  RegistryOutcome set(RegistryHive hive, std::string_view key, std::string_view name,
                      const RegistryValue& value) override {
    const auto path = fullKey(hive, key);
    if (!store_.current().hasKey(path)) return RegistryOutcome::KeyMissing;
    auto outcome = RegistryOutcome::Refused;
    const bool written = store_.update([&](RegistryFile& file) {
      if (!file.hasKey(path)) outcome = RegistryOutcome::KeyMissing;
      return file.set(path, name, value);
    });
    return written ? RegistryOutcome::Done : outcome;
  }

  RegistryOutcome createKey(RegistryHive hive, std::string_view key) override {
    const auto path = fullKey(hive, key);
    if (store_.current().hasKey(path)) return RegistryOutcome::Done;
    const bool written = store_.update([&](RegistryFile& file) { return file.createKey(path); });
    return written ? RegistryOutcome::Done : RegistryOutcome::Refused;
  }

 private:
  RegistryStore store_;
};

}  // namespace

std::unique_ptr<Registry> makeRegistry(const std::string& home, std::chrono::milliseconds lockWait) {
  return std::make_unique<RegistryOfFile>(home, lockWait);
}

}  // namespace varnhold::platform::posix
