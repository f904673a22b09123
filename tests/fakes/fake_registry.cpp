#include "tests/fakes/fake_registry.h"

#include "base/text.h"

namespace varnhold::fakes {
namespace {

using platform::RegistryHive;
using platform::RegistryOutcome;
using platform::RegistryValue;

constexpr const char* kOutcomeNames[] = {"Done", "KeyMissing", "ValueMissing", "TooLong", "Refused"};

std::string nameOf(RegistryOutcome outcome) {
  return kOutcomeNames[static_cast<int>(outcome)];
}

std::string path(std::string_view key, std::string_view name) {
  return std::string(key) + "\\" + std::string(name);
}

std::string hexDigits(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string digits;
  for (const char byte : bytes) {
    digits += kDigits[static_cast<unsigned char>(byte) >> 4];
    digits += kDigits[static_cast<unsigned char>(byte) & 15];
  }
  return digits;
}

bool isText(std::uint32_t type) {
  return type == platform::kRegText;
}

}  // namespace

void FakeRegistry::setText(std::string_view key, std::string_view name, std::string_view text) {
  setRaw(key, name, platform::kRegText, std::string(text) + '\0');
}

void FakeRegistry::setNumber(std::string_view key, std::string_view name, std::uint32_t number) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);
  setRaw(key, name, platform::kRegNumber, bytes);
}

void FakeRegistry::setRaw(std::string_view key, std::string_view name, std::uint32_t type,
                          std::string bytes) {
  makeKey(key);
  keys_[toUpper(key)][toUpper(name)] = {type, std::move(bytes)};
}

void FakeRegistry::makeKey(std::string_view key) {
  for (auto end = key.find('\\'); end != std::string_view::npos; end = key.find('\\', end + 1)) {
    keys_[toUpper(key.substr(0, end))];
  }
  keys_[toUpper(key)];
}

std::optional<RegistryValue> FakeRegistry::stored(std::string_view key, std::string_view name) const {
  const auto* values = find(RegistryHive::LocalMachine, key);
  if (values == nullptr) return {};
  const auto found = values->find(toUpper(name));
  return found == values->end() ? std::nullopt : std::optional(found->second);
}

const FakeRegistry::Values* FakeRegistry::find(RegistryHive hive, std::string_view key) const {
  const auto found = keys_.find(toUpper(key));
  return hive != RegistryHive::LocalMachine || found == keys_.end() ? nullptr : &found->second;
}

RegistryOutcome FakeRegistry::query(RegistryHive hive, std::string_view key, std::string_view name,
                                    std::size_t capacity, RegistryValue& value) {
  const auto outcome = [&] {
    if (find(hive, key) == nullptr) return RegistryOutcome::KeyMissing;
    const auto found = stored(key, name);
    if (!found) return RegistryOutcome::ValueMissing;
    if (found->bytes.size() > capacity) return RegistryOutcome::TooLong;
    value = *found;
    return RegistryOutcome::Done;
  };
  if (damage) throw RuntimeError(*damage);
  const auto result = outcome();
  journal_.push_back("RegQueryValueEx " + path(key, name) + " -> " + nameOf(result));
  return result;
}

RegistryOutcome FakeRegistry::set(RegistryHive hive, std::string_view key, std::string_view name,
                                  const RegistryValue& value) {
  if (damage) throw RuntimeError(*damage);
  auto result = find(hive, key) == nullptr ? RegistryOutcome::KeyMissing : RegistryOutcome::Done;
  if (result == RegistryOutcome::Done && refusesWrites) result = RegistryOutcome::Refused;
  if (result == RegistryOutcome::Done) setRaw(key, name, value.type, value.bytes);
  journal_.push_back("RegSetValueEx " + path(key, name) + " type " + std::to_string(value.type) + " " +
                     (isText(value.type) ? shown(value.bytes) : hexDigits(value.bytes)) + " -> " +
                     nameOf(result));
  return result;
}

RegistryOutcome FakeRegistry::createKey(RegistryHive hive, std::string_view key) {
  if (damage) throw RuntimeError(*damage);
  const bool refused = refusesWrites || hive != RegistryHive::LocalMachine;
  if (!refused) makeKey(key);
  const auto result = refused ? RegistryOutcome::Refused : RegistryOutcome::Done;
  journal_.push_back("RegCreateKeyEx " + std::string(key) + " -> " + nameOf(result));
  return result;
}

}  // namespace varnhold::fakes
