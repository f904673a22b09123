// Any bytes as a registry file: never a crash, and what is accepted keeps its meaning when it is written.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/formats/registry_file.h"

namespace {

using varnhold::platform::RegistryFile;
using varnhold::platform::RegistryFileError;
using varnhold::platform::RegistryValue;

constexpr auto kOwnKey = "HKEY_LOCAL_MACHINE\\Fuzz";
constexpr const char* kKeys[] = {"K", "HKEY_LOCAL_MACHINE\\SOFTWARE", kOwnKey};

void require(bool condition) {
  if (!condition) std::abort();
}

RegistryFile writtenAndRead(const RegistryFile& file) {
  RegistryFileError error;
  auto again = RegistryFile::parse(file.print(), error);
  require(again.has_value());
  require(again->print() == file.print());
  return std::move(*again);
}

void requireSameValues(const RegistryFile& left, const RegistryFile& right) {
  for (const auto* key : kKeys) {
    require(left.hasKey(key) == right.hasKey(key));
    require(left.valueNames(key) == right.valueNames(key));
    for (const auto& name : left.valueNames(key)) {
      const auto *one = left.find(key, name), *other = right.find(key, name);
      require(one != nullptr && other != nullptr);
      require(one->type == other->type && one->bytes == other->bytes);
    }
  }
}

/// Sets a value whose type, name and bytes come from the input, and looks for it in what was written.
void changeAndCheck(RegistryFile& file, const std::string& bytes) {
  require(file.createKey(kOwnKey));
  const auto type = static_cast<std::uint32_t>(bytes.size() % 12);
  const auto name = bytes.substr(0, bytes.find('\0')).substr(0, 20);
  require(file.set(kOwnKey, name, RegistryValue{type, bytes}));
  requireSameValues(file, writtenAndRead(file));
  for (const auto& known : file.valueNames(kOwnKey)) require(file.removeValue(kOwnKey, known));
  require(file.valueNames(kOwnKey).empty());
  requireSameValues(file, writtenAndRead(file));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  RegistryFileError error;
  auto file = RegistryFile::parse(bytes, error);
  if (file) {
    requireSameValues(*file, writtenAndRead(*file));
    changeAndCheck(*file, bytes);
  } else {
    require(error.line >= 1 && !error.what.empty());
    RegistryFile fresh;
    changeAndCheck(fresh, bytes);
  }
  return 0;
}
