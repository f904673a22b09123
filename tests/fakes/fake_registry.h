#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/runtime_error.h"
#include "platform/registry.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// A registry of HKEY_LOCAL_MACHINE in memory; every other hive is empty. Journal lines:
/// `RegQueryValueEx <key>\<name> -> Done`, `RegSetValueEx <key>\<name> type 4 01000000 -> Done` (the bytes of
/// a number in hexadecimal digits, of text as text), `RegCreateKeyEx <key> -> Done`.
class FakeRegistry : public platform::Registry {
 public:
  explicit FakeRegistry(Journal& journal) : journal_(journal) {}

  /// Set-up by the test, making the key; writes no line. Text is stored with its closing NUL.
  void setText(std::string_view key, std::string_view name, std::string_view text);
  void setNumber(std::string_view key, std::string_view name, std::uint32_t number);
  void setRaw(std::string_view key, std::string_view name, std::uint32_t type, std::string bytes);
  void makeKey(std::string_view key);
  /// What is stored now; nothing when there is no such key or value.
  [[nodiscard]] std::optional<platform::RegistryValue> stored(std::string_view key,
                                                              std::string_view name) const;

  bool refusesWrites = false;          ///< `set` and `createKey` give Refused for keys that are there
  std::optional<RuntimeError> damage;  ///< raised by every call: a store that cannot be understood

  platform::RegistryOutcome query(platform::RegistryHive hive, std::string_view key, std::string_view name,
                                  std::size_t capacity, platform::RegistryValue& value) override;
  platform::RegistryOutcome set(platform::RegistryHive hive, std::string_view key, std::string_view name,
                                const platform::RegistryValue& value) override;
  platform::RegistryOutcome createKey(platform::RegistryHive hive, std::string_view key) override;

 private:
  using Values = std::map<std::string, platform::RegistryValue>;
  const Values* find(platform::RegistryHive hive, std::string_view key) const;

  Journal& journal_;
  std::map<std::string, Values> keys_;  ///< keys and names in upper case
};

}  // namespace varnhold::fakes
