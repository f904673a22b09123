#include <map>

#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

constexpr std::uint32_t kInvalidHandle = 6;  // winerror.h ERROR_INVALID_HANDLE

/// Keeps no connection open: the companion is asked anew at each call, by machine and service.
class CompanionServiceControl : public ServiceControl {
 public:
  explicit CompanionServiceControl(CompanionLibrary& companion) : companion_(companion) {}

  ServiceHandle openSCManager(const std::string& machine) override {
    const auto open = companion_.function<decltype(qrvHostOpenServiceManager)>("qrvHostOpenServiceManager");
    return open(machine.c_str()) == 0 ? keep({machine, {}}) : 0;
  }

  ServiceHandle openService(ServiceHandle manager, const std::string& service, std::uint32_t) override {
    const auto* opened = find(manager);
    if (opened == nullptr) return 0;
    const auto open = companion_.function<decltype(qrvHostOpenService)>("qrvHostOpenService");
    return open(opened->machine.c_str(), service.c_str()) == 0 ? keep({opened->machine, service}) : 0;
  }

  std::uint32_t controlService(ServiceHandle service, std::uint32_t control) override {
    const auto* opened = find(service);
    if (opened == nullptr) return kInvalidHandle;
    const auto send = companion_.function<decltype(qrvHostControlService)>("qrvHostControlService");
    return send(opened->machine.c_str(), opened->service.c_str(), control);
  }

  std::uint32_t startService(ServiceHandle service) override {
    const auto* opened = find(service);
    if (opened == nullptr) return kInvalidHandle;
    const auto start = companion_.function<decltype(qrvHostStartService)>("qrvHostStartService");
    return start(opened->machine.c_str(), opened->service.c_str());
  }

  bool queryServiceConfig(ServiceHandle service, std::uint8_t* buffer, std::uint32_t size,
                          std::uint32_t& bytesNeeded, ServiceConfig& config) override {
    const auto* opened = find(service);
    bytesNeeded = 0;
    if (opened == nullptr) return false;
    const auto query =
        companion_.function<decltype(qrvHostQueryServiceAccount)>("qrvHostQueryServiceAccount");
    auto* const account = reinterpret_cast<char*>(buffer);
    if (query(opened->machine.c_str(), opened->service.c_str(), account, size, &bytesNeeded) != 0)
      return false;
    config.serviceStartName = account;
    return true;
  }

  std::uint32_t changeServiceConfig(ServiceHandle service, std::uint32_t, std::uint32_t, std::uint32_t,
                                    const std::string& account, const std::string& password) override {
    const auto* opened = find(service);
    if (opened == nullptr) return kInvalidHandle;
    const auto change =
        companion_.function<decltype(qrvHostChangeServiceAccount)>("qrvHostChangeServiceAccount");
    return change(opened->machine.c_str(), opened->service.c_str(), account.c_str(), password.c_str());
  }

  void closeServiceHandle(ServiceHandle handle) override { open_.erase(handle); }

 private:
  struct Opened {
    std::string machine, service;  ///< no service for a manager
  };

  ServiceHandle keep(Opened opened) {
    open_[++last_] = std::move(opened);
    return last_;
  }
  [[nodiscard]] const Opened* find(ServiceHandle handle) const {
    const auto found = open_.find(handle);
    return found == open_.end() ? nullptr : &found->second;
  }

  CompanionLibrary& companion_;
  ServiceHandle last_ = 0;
  std::map<ServiceHandle, Opened> open_;
};

}  // namespace

std::unique_ptr<ServiceControl> makeServiceControl(CompanionLibrary& companion) {
  return std::make_unique<CompanionServiceControl>(companion);
}

}  // namespace varnhold::platform::posix
