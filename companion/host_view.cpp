#include "companion/host_view.h"

#include <algorithm>

#include "base/text.h"
#include "companion/paths.h"
#include "platform/formats/path_translation.h"

namespace varnhold::companion {
namespace {

constexpr std::uint32_t kStop = 1;  // winsvc.h SERVICE_CONTROL_STOP

/// Opens the computer's service manager, and does something with its services.
template <typename Action>
Win32Error withServices(const Network& network, const std::string& machine, Action action) {
  const auto computer = network.find(machine);
  if (computer == nullptr || !computer->answers()) return kServerUnavailable;
  if (const Win32Error refused = computer->refusal("service_manager")) return refused;
  if (const Win32Error error = computer->services().open()) return error;
  return action(*computer);
}

bool canBeServiceAccount(const std::string& account) {
  if (account == ServiceEntry().account) return true;
  const auto cut = account.find('\\');
  return cut != std::string::npos && cut > 0 && cut + 1 < account.size();
}

}  // namespace

Win32Error openServiceManager(const Network& network, const std::string& machine) {
  return withServices(network, machine, [](RemoteComputer&) { return kDone; });
}

Win32Error openService(const Network& network, const std::string& machine, const std::string& service) {
  return withServices(network, machine, [&](RemoteComputer& computer) {
    ServiceEntry entry;
    return computer.services().query(service, entry);
  });
}

Win32Error controlService(const Network& network, const std::string& machine, const std::string& service,
                          std::uint32_t control) {
  return withServices(network, machine, [&](RemoteComputer& computer) {
    if (control != kStop) return kInvalidControl;
    if (const Win32Error refused = computer.refusal("stop")) return refused;
    return computer.services().stop(service);
  });
}

Win32Error startService(const Network& network, const std::string& machine, const std::string& service) {
  return withServices(network, machine, [&](RemoteComputer& computer) {
    if (const Win32Error refused = computer.refusal("start")) return refused;
    return computer.services().start(service);
  });
}

Win32Error queryServiceAccount(const Network& network, const std::string& machine, const std::string& service,
                               std::string& account) {
  return withServices(network, machine, [&](RemoteComputer& computer) {
    ServiceEntry entry;
    if (const Win32Error error = computer.services().query(service, entry)) return error;
    account = entry.account;
    return kDone;
  });
}

Win32Error changeServiceAccount(const Network& network, const std::string& machine,
                                const std::string& service, const std::string& account,
                                const std::string& password) {
  return withServices(network, machine, [&](RemoteComputer& computer) {
    ServiceEntry entry;
    if (const Win32Error error = computer.services().query(service, entry)) return error;
    if (const Win32Error refused = computer.refusal("account")) return refused;
    if (account.empty()) return kDone;
    if (!canBeServiceAccount(account)) return kInvalidAccount;
    const bool isBuiltIn = account == ServiceEntry().account;
    if (!isBuiltIn && computer.logOn(account, password) == kLogonRefused) return kInvalidAccount;
    entry.account = account;
    return computer.services().change(entry, password);
  });
}

Win32Error restartService(const Network& network, const std::string& machine, const std::string& service) {
  const Win32Error stopped = controlService(network, machine, service, kStop);
  if (stopped != kDone && stopped != kServiceNotActive) return stopped;
  return startService(network, machine, service);
}

Win32Error openEventLog(const Network& network, const std::string& machine, const std::string& log) {
  const auto computer = network.find(machine);
  return computer == nullptr ? kServerUnavailable : computer->openEventLog(log);
}

std::optional<AdminSharePath> readAdminSharePath(const std::string& uncPath) {
  const auto share = platform::splitSharePath(uncPath);
  if (!share || share->share.size() != 2 || share->share[1] != '$') return std::nullopt;
  const auto path = readDrivePath(share->share.substr(0, 1) + ":\\" + share->rest);
  if (!path) return std::nullopt;
  return AdminSharePath{share->host, path->text()};
}

Win32Error ShareConnections::connect(const Network& network, const std::string& share,
                                     const std::string& account, const std::string& password) {
  const auto path = readAdminSharePath(share);
  if (!path) return kShareMissing;
  const auto computer = network.find(path->host);
  if (computer == nullptr) return kNetworkPathMissing;
  if (const Win32Error error = computer->logOn(account, password)) return error;
  const std::lock_guard lock(mutex_);
  connected_[toUpper(share)] = computer->facts().name;
  return kDone;
}

Win32Error ShareConnections::disconnect(const std::string& share) {
  const std::lock_guard lock(mutex_);
  return connected_.erase(toUpper(share)) > 0 ? kDone : kNotConnected;
}

bool ShareConnections::isConnected(const Network& network, const std::string& nameOrAddress) {
  const auto computer = network.find(nameOrAddress);
  if (computer == nullptr) return false;
  const std::lock_guard lock(mutex_);
  return std::any_of(connected_.begin(), connected_.end(),
                     [&](const auto& entry) { return entry.second == computer->facts().name; });
}

ShareConnections& ownShareConnections() {
  static auto* own = new ShareConnections;
  return *own;
}

}  // namespace varnhold::companion
