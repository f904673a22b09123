#include "platform/registry.h"

#include <windows.h>

#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

/// Owns a key that RegCloseKey gives back.
class OwnedKey {
 public:
  OwnedKey(RegistryHive hive, std::string_view key, REGSAM access) {
    opened_ = RegOpenKeyExW(predefined(hive), toWide(key).c_str(), 0, access, &key_) == ERROR_SUCCESS;
  }
  ~OwnedKey() {
    if (opened_) RegCloseKey(key_);
  }
  OwnedKey(const OwnedKey&) = delete;
  OwnedKey& operator=(const OwnedKey&) = delete;

  explicit operator bool() const { return opened_; }
  [[nodiscard]] HKEY get() const { return key_; }

  /// The handles of winreg.h are numbers of 32 bits with their sign kept.
  static HKEY predefined(RegistryHive hive) {
    const auto number = static_cast<ULONG_PTR>(static_cast<LONG>(hive));
    return reinterpret_cast<HKEY>(number);  // NOLINT(performance-no-int-to-ptr)
  }

 private:
  HKEY key_ = nullptr;
  bool opened_ = false;
};

bool isText(DWORD type) {
  return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_LINK || type == REG_MULTI_SZ;
}

/// The bytes as the registry holds them, whatever their length; false when there is no such value.
bool readStored(HKEY key, const std::wstring& name, DWORD& type, std::string& bytes) {
  LSTATUS status = ERROR_MORE_DATA;
  // The value may grow between the two calls.
  while (status == ERROR_MORE_DATA) {
    DWORD size = 0;
    if (RegQueryValueExW(key, name.c_str(), nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) return false;
    bytes.resize(size);
    auto* room = reinterpret_cast<BYTE*>(bytes.data());
    status = RegQueryValueExW(key, name.c_str(), nullptr, &type, room, &size);
    if (status == ERROR_SUCCESS) bytes.resize(size);
  }
  return status == ERROR_SUCCESS;
}

/// Text as stored to UTF-8; a last byte that is half a character is left out.
std::string storedToUtf8(const std::string& bytes) {
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
  return fromWide(text);
}

std::string utf8ToStored(std::string_view text) {
  const auto wide = toWide(text);
  return {reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(wchar_t)};
}

LSTATUS store(HKEY key, const std::wstring& name, DWORD type, std::string bytes) {
  const auto size = static_cast<DWORD>(bytes.size());
  // Of a text without closing NUL the host stores one more character when that is a NUL.
  if (isText(type)) bytes += "no NUL";
  return RegSetValueExW(key, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()), size);
}

class WindowsRegistry : public Registry {
 public:
  RegistryOutcome query(RegistryHive hive, std::string_view key, std::string_view name, std::size_t capacity,
                        RegistryValue& value) override {
    const OwnedKey opened(hive, key, KEY_QUERY_VALUE);
    if (!opened) return RegistryOutcome::KeyMissing;
    DWORD type = 0;
    std::string bytes;
    if (!readStored(opened.get(), toWide(name), type, bytes)) return RegistryOutcome::ValueMissing;
    if (isText(type)) bytes = storedToUtf8(bytes);
    if (bytes.size() > capacity) return RegistryOutcome::TooLong;
    value = {type, std::move(bytes)};
    return RegistryOutcome::Done;
  }

  RegistryOutcome set(RegistryHive hive, std::string_view key, std::string_view name,
                      const RegistryValue& value) override {
    const OwnedKey opened(hive, key, KEY_SET_VALUE);
    if (!opened) return RegistryOutcome::KeyMissing;
    const auto status = store(opened.get(), toWide(name), value.type,
                              isText(value.type) ? utf8ToStored(value.bytes) : value.bytes);
    return status == ERROR_SUCCESS ? RegistryOutcome::Done : RegistryOutcome::Refused;
  }

  RegistryOutcome createKey(RegistryHive hive, std::string_view key) override {
    HKEY made = nullptr;
    const auto status = RegCreateKeyExW(OwnedKey::predefined(hive), toWide(key).c_str(), 0, nullptr, 0,
                                        KEY_QUERY_VALUE, nullptr, &made, nullptr);
    if (status != ERROR_SUCCESS) return RegistryOutcome::Refused;
    RegCloseKey(made);
    return RegistryOutcome::Done;
  }
};

}  // namespace

std::unique_ptr<Registry> makeRegistry() {
  return std::make_unique<WindowsRegistry>();
}

}  // namespace varnhold::platform::windows
