#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <unordered_map>

#include "companion/host.h"
#include "companion/remote_computer.h"
#include "companion/systems.h"
#include "store/connection.h"

/// The discovery of computers: what `qrvNetworkEnum` does in its thread.
namespace varnhold::companion {

/// The computers that the inventory holds, by their names in upper case: a computer that was entered in other
/// letters is the same one.
using KnownSystems = std::unordered_map<std::string, SystemRow>;
[[nodiscard]] KnownSystems readKnownSystems(store::Connection& connection);

/// Enters a computer that was found. One that is not known is added. Of one that is known only a new address
/// is written: its type and its description may be an operator's correction, and a name that does not resolve
/// any more keeps the last address. A row of type 99999 is no computer and stays. Errors as for `Connection`.
void enterFoundSystem(store::Connection& connection, const KnownSystems& known, const SystemRow& found);

/// Does `work` with the connection to the inventory.
using WithInventory = std::function<void(const std::function<void(store::Connection&)>& work)>;
/// Pauses the thread, for less time when it must stop.
using StoppableSleep = std::function<void(std::chrono::milliseconds, const host::MustStop&)>;

/// Visits the computers of the network in the order of their names, waits at each as its script says, and
/// enters those that answer. It looks before each step whether it is to stop, and then returns. A computer
/// that can't be entered is passed over; without an inventory nobody is visited.
void enumerateNetwork(const Network& network, const WithInventory& withInventory, const StoppableSleep& sleep,
                      const host::MustStop& mustStop);

}  // namespace varnhold::companion
