// The functions of the C ABI about discovery: the connection, the walk, the mode, the subnets.
#include <atomic>
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
void sleepUntilStopped(std::chrono::milliseconds time, const host::MustStop& mustStop) {
  constexpr std::chrono::milliseconds kPiece{20};
  for (; time.count() > 0 && !mustStop(); time -= kPiece) std::this_thread::sleep_for(std::min(time, kPiece));
}

/// A mode that was chosen and could not be stored, which holds for the rest of the run; below 0 for none.
std::atomic<int>& unstoredMode() {
  static std::atomic<int> mode{-1};
  return mode;
}

/// Whoever chose to add computers by hand gets none from the network.
bool findsByItself() {
  if (const int mode = unstoredMode(); mode >= 0) return mode != 0;
  return storedDiscoveryMode(platform::makeHostAdapters({})->registry()).value_or(1) != 0;
}

std::uint32_t walk(const LabNetwork& network, const host::MustStop& mustStop) {
  return abi::guarded<std::uint32_t>(kWalked, [&] {
    const auto withInventory = [&](const std::function<void(store::Connection&)>& work) {
      ownInventory().use(work, mustStop);
    };
    enumerateNetwork(network, withInventory, sleepUntilStopped, mustStop);
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
    *thread = host::startThread([network = LabNetwork(readSurroundings().labFolder),
                                 isWanted = findsByItself()](const host::MustStop& mustStop) {
      return isWanted ? walk(network, mustStop) : kWalked;
    });
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
    const bool isStored = storeDiscoveryMode(platform::makeHostAdapters({})->registry(), mode);
    unstoredMode() = isStored ? -1 : mode;
    return isStored ? 1 : 0;
  });
}

int32_t QRV_CALL qrvCheckIfBelongsToSubnet(char* address, char* subnet) {
  return abi::guarded<std::int32_t>(0, [&] {
    const auto own = abi::text(address), given = abi::text(subnet);
    return own && given && belongsToSubnet(*own, *given) ? 1 : 0;
  });
}
