#include "companion/lab/lab_registry.h"

#include "companion/host.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

using platform::RegistryFile;

constexpr std::size_t kLargestFile = 64U << 20;

std::filesystem::path registryFile(const std::filesystem::path& computerFolder) {
  return computerFolder / "registry.reg";
}

std::string fullKey(const std::string& key) {
  return "HKEY_LOCAL_MACHINE\\" + key;
}

/// Is the key above there? The hive itself always is.
bool hasKeyAbove(const RegistryFile& file, const std::string& key) {
  const auto last = key.rfind('\\');
  return last == std::string::npos || file.hasKey(fullKey(key.substr(0, last)));
}

}  // namespace

std::optional<RegistryFile> LabRegistry::load() const {
  const auto file = registryFile(computerFolder_);
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return RegistryFile();
  const auto bytes = readWhole(file, kLargestFile);
  if (!bytes) return std::nullopt;
  platform::RegistryFileError reason;
  return RegistryFile::parse(*bytes, reason);
}

Win32Error LabRegistry::edit(const std::function<Win32Error(RegistryFile&)>& change) const {
  const auto lock = host::lockFile(computerFolder_ / "state.lock");
  auto file = load();
  if (!file) return kRegistryDamaged;
  const std::string before = file->print();
  if (const Win32Error error = change(*file)) return error;
  const std::string after = file->print();
  if (after == before) return kDone;
  if (after != RegistryFile().print()) return host::replaceFile(registryFile(computerFolder_), after);
  std::error_code error;
  std::filesystem::remove(registryFile(computerFolder_), error);
  return error ? kAccessDenied : kDone;
}

Win32Error LabRegistry::open() {
  if (!settings_.answers) return kNetworkPathMissing;
  return load() ? kDone : kRegistryDamaged;
}

bool LabRegistry::hasKey(const std::string& key) {
  const auto file = load();
  return file && file->hasKey(fullKey(key));
}

std::vector<NamedValue> LabRegistry::values(const std::string& key) {
  const auto file = load();
  std::vector<NamedValue> values;
  if (!file) return values;
  for (const std::string& name : file->valueNames(fullKey(key)))
    values.push_back({name, *file->find(fullKey(key), name)});
  return values;
}

std::vector<std::string> LabRegistry::subkeys(const std::string& key) {
  const auto file = load();
  return file ? file->subkeys(fullKey(key)) : std::vector<std::string>();
}

Win32Error LabRegistry::createKey(const std::string& key) {
  return edit([&](RegistryFile& file) {
    if (!hasKeyAbove(file, key)) return kPathMissing;
    return file.createKey(fullKey(key)) ? kDone : kInvalidParameter;
  });
}

Win32Error LabRegistry::set(const std::string& key, const NamedValue& value) {
  return edit([&](RegistryFile& file) {
    if (!file.hasKey(fullKey(key))) return kFileMissing;
    return file.set(fullKey(key), value.name, value.value) ? kDone : kInvalidParameter;
  });
}

Win32Error LabRegistry::removeValue(const std::string& key, const std::string& name) {
  return edit(
      [&](RegistryFile& file) { return file.removeValue(fullKey(key), name) ? kDone : kFileMissing; });
}

Win32Error LabRegistry::removeKey(const std::string& key) {
  return edit([&](RegistryFile& file) {
    if (!file.hasKey(fullKey(key))) return kFileMissing;
    return file.removeKey(fullKey(key)) ? kDone : kAccessDenied;
  });
}

}  // namespace varnhold::companion
