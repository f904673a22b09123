#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace varnhold::platform {

/// The predefined registry handles (winreg.h, HKEY_*).
enum class RegistryHive : std::uint32_t {
  ClassesRoot = 0x80000000,
  CurrentUser = 0x80000001,
  LocalMachine = 0x80000002,
  Users = 0x80000003,
};

/// The registry's value types that this program names (winnt.h, REG_*); others pass through as numbers.
enum RegistryType : std::uint32_t { kRegText = 1, kRegBinary = 3, kRegNumber = 4, kRegMultiText = 7 };

/// How far a registry call came.
enum class RegistryOutcome {
  Done,
  KeyMissing,    ///< the key could not be opened: absent or refused (RegOpenKeyEx)
  ValueMissing,  ///< the key is there, the value is not (RegQueryValueEx)
  TooLong,       ///< the value has more bytes than the caller has room for (ERROR_MORE_DATA)
  Refused,       ///< the key is there but the host did not write (RegSetValueEx, RegCreateKeyEx)
};

struct RegistryValue {
  std::uint32_t type = 0;
  /// The value as stored. Text types are UTF-8 and hold their closing NUL only where one is stored;
  /// a number is four bytes, lowest first.
  std::string bytes;
};

/// The registry, or what stands in for it. Keys are paths with backslashes, without the hive; keys and value
/// names compare without case. Main thread.
class Registry {
 public:
  virtual ~Registry() = default;

  /// Opens the key to query, reads one value of at most `capacity` bytes, closes the key. `value` is set
  /// only when the outcome is Done. A store that is there but cannot be understood (a damaged registry file)
  /// raises RuntimeError kPathFileAccess with what is wrong, where, and what to do.
  [[nodiscard]] virtual RegistryOutcome query(RegistryHive hive, std::string_view key, std::string_view name,
                                              std::size_t capacity, RegistryValue& value) = 0;

  /// Opens the key to set values, writes one value, closes the key. The key is not created.
  [[nodiscard]] virtual RegistryOutcome set(RegistryHive hive, std::string_view key, std::string_view name,
                                            const RegistryValue& value) = 0;

  /// Makes the key and those above it where they are missing.
  [[nodiscard]] virtual RegistryOutcome createKey(RegistryHive hive, std::string_view key) = 0;
};

}  // namespace varnhold::platform
