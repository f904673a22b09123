#include "core/mdCommon.h"

#include "base/runtime_error.h"
#include "base/text.h"

namespace varnhold::core {
namespace {

using platform::RegistryHive;
using platform::RegistryOutcome;
using platform::RegistryValue;

constexpr std::size_t kValueCapacity = 1024;
constexpr std::uint32_t kServiceRestartPauseMs = 5000;

std::string textUpToNull(const RegistryValue& stored, std::string_view key, std::string_view valueName) {
  // The value is read into a buffer of NULs, so that only a text that fills it can be without one.
  if (stored.bytes.size() >= kValueCapacity && stored.bytes.find('\0') == std::string::npos) {
    throw RuntimeError(kInvalidProcedureCall, "The registry value " + std::string(valueName) +
                                                  " of HKEY_LOCAL_MACHINE\\" + std::string(key) +
                                                  " is too long. Shorten it to less than 1024 characters.");
  }
  return TrimAtNull(stored.bytes);
}

std::string numberAsText(const RegistryValue& stored) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < sizeof number && i < stored.bytes.size(); ++i) {
    number |= std::uint32_t{static_cast<unsigned char>(stored.bytes[i])} << 8 * i;
  }
  return std::to_string(static_cast<std::int32_t>(number));
}

RegistryValue numberValue(std::int32_t value) {
  const auto number = static_cast<std::uint32_t>(value);
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);
  return {platform::kRegNumber, bytes};
}

}  // namespace

bool RegReadValue(platform::Registry& registry, RegistryHive hive, std::string_view key,
                  std::string_view valueName, std::string& value) {
  RegistryValue stored;
  if (registry.query(hive, key, valueName, kValueCapacity, stored) != RegistryOutcome::Done) {
    value.clear();
    return false;
  }
  if (stored.type == platform::kRegText) value = textUpToNull(stored, key, valueName);
  if (stored.type == platform::kRegNumber) value = numberAsText(stored);
  return true;
}

bool RegWriteDword(platform::Registry& registry, RegistryHive hive, std::string_view key,
                   std::string_view valueName, std::int32_t value) {
  return registry.set(hive, key, valueName, numberValue(value)) == RegistryOutcome::Done;
}

void RequestManagerResync(platform::Registry& registry) {
  static_cast<void>(RegWriteDword(registry, RegistryHive::LocalMachine, kManagerKey, "MpDbResend", 1));
}

std::int32_t RestartLocalService(Host& host, const std::string& serviceName) {
  const auto machine = R"(\\)" + TrimAtNull(host.environment.getComputerName().value_or(""));
  const platform::OwnedServiceHandle manager(host.services, host.services.openSCManager(machine));
  if (!manager) return 1;
  const platform::OwnedServiceHandle service(
      host.services, host.services.openService(manager.get(), serviceName, platform::kServiceAllAccess));
  if (!service) return 2;
  host.services.controlService(service.get(), platform::kServiceControlStop);
  host.clock.sleep(kServiceRestartPauseMs);
  const auto error = host.services.startService(service.get());
  return error == 0 || error == platform::kErrorServiceAlreadyRunning ? 0 : 3;
}

}  // namespace varnhold::core
