// The functions of the C ABI about discovery: the connection, the walk, the mode, the subnets.
#include <thread>

#include "companion/abi.h"
#include "companion/discovery_mode.h"
#include "companion/enumeration.h"
#include "companion/include/qrvutil.h"
#include "companion/inventory.h"
#include "companion/lab/lab_network.h"
#include "companion/subnet.h"
#include "companion/surroundings.h"
#include "platform/host_adapters.h"

namespace varnhold::companion {
namespace {

constexpr std::uint32_t kWalked = 1000;

/// Sleeps in short pieces, so that a stop is soon seen.
void sleepUntilStopped(std::chrono::milliseconds time, const std::stop_token& stop) {
  constexpr std::chrono::milliseconds kPiece{20};
  for (; time.count() > 0 && !stop.stop_requested(); time -= kPiece)
    std::this_thread::sleep_for(std::min(time, kPiece));
}

std::uint32_t walk(const LabNetwork& network, const std::stop_token& stop) {
  return abi::guarded<std::uint32_t>(kWalked, [&] {
    const auto withInventory = [&](const std::function<void(store::Connection&)>& work) {
      ownInventory().use(work, stop);
    };
    enumerateNetwork(network, withInventory, sleepUntilStopped, stop);
    return kWalked;
  });
}

}  // namespace
}  // namespace varnhold::companion

using namespace varnhold;
using namespace varnhold::companion;

int32_t QRV_CALL qrvInitDbConnection() {
  return abi::guarded<std::int32_t>(0, [] {
    ownInventory().open();
    return 1;
  });
}

int32_t QRV_CALL qrvCloseDbConnection() {
  return abi::guarded<std::int32_t>(0, [] {
    ownInventory().close();
    return 1;
  });
}

int32_t QRV_CALL qrvNetworkEnum(QrvThread* thread) {
  return abi::guarded<std::int32_t>(0, [&] {
    if (thread == nullptr) return 0;
    *thread = nullptr;
    *thread = host::startThread([network = LabNetwork(readSurroundings().labFolder)](
                                    const std::stop_token& stop) { return walk(network, stop); });
    return *thread != nullptr ? 1 : 0;
  });
}

int16_t QRV_CALL qrvGetNetAccessMode(uint8_t* mode) {
  return abi::guarded<std::int16_t>(0, [&]() -> std::int16_t {
    if (mode == nullptr) return 0;
    const auto stored = storedDiscoveryMode(platform::makeHostAdapters({})->registry());
    if (stored) *mode = *stored;
    return stored ? 1 : 0;
  });
}

int16_t QRV_CALL qrvSetNetAccessMode(uint8_t mode) {
  return abi::guarded<std::int16_t>(0, [&]() -> std::int16_t {
    return storeDiscoveryMode(platform::makeHostAdapters({})->registry(), mode) ? 1 : 0;
  });
}

int32_t QRV_CALL qrvCheckIfBelongsToSubnet(char* address, char* subnet) {
  return abi::guarded<std::int32_t>(0, [&] {
    const auto own = abi::text(address), given = abi::text(subnet);
    return own && given && belongsToSubnet(*own, *given) ? 1 : 0;
  });
}
