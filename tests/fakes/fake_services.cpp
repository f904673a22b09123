#include "tests/fakes/fake_services.h"

#include <sstream>

namespace varnhold::fakes {

using platform::ServiceHandle;

ServiceHandle FakeServiceControl::open(bool allowed) {
  if (!allowed) return 0;
  openHandles_.insert(++last_);
  return last_;
}

ServiceHandle FakeServiceControl::openSCManager(const std::string& machine) {
  const auto handle = open(!unreachable.contains(machine));
  journal_.push_back("OpenSCManager " + machine + " -> " + std::to_string(handle));
  return handle;
}

ServiceHandle FakeServiceControl::openService(ServiceHandle manager, const std::string& service,
                                              std::uint32_t access) {
  const auto handle = open(services.contains(service));
  std::ostringstream line;
  line << "OpenService " << manager << ' ' << service << " 0x" << std::hex << std::uppercase << access
       << std::dec << " -> " << handle;
  journal_.push_back(line.str());
  return handle;
}

std::uint32_t FakeServiceControl::controlService(ServiceHandle service, std::uint32_t control) {
  journal_.push_back("ControlService " + std::to_string(service) + " " + std::to_string(control) + " -> " +
                     std::to_string(controlError));
  return controlError;
}

std::uint32_t FakeServiceControl::startService(ServiceHandle service) {
  journal_.push_back("StartService " + std::to_string(service) + " -> " + std::to_string(startError));
  return startError;
}

bool FakeServiceControl::queryServiceConfig(ServiceHandle service, std::uint8_t* buffer, std::uint32_t size,
                                            std::uint32_t& bytesNeeded, platform::ServiceConfig& config) {
  const bool done = tellsConfig && buffer != nullptr && size >= configSize;
  journal_.push_back("QueryServiceConfig " + std::to_string(service) + " room " + std::to_string(size) +
                     (done ? " -> 1" : " -> 0"));
  bytesNeeded = configSize;
  if (done) config.serviceStartName = startName;
  return done;
}

std::uint32_t FakeServiceControl::changeServiceConfig(ServiceHandle service, std::uint32_t serviceType,
                                                      std::uint32_t startType, std::uint32_t errorControl,
                                                      const std::string& account,
                                                      const std::string& newPassword) {
  const auto number = [](std::uint32_t value) { return std::to_string(static_cast<std::int32_t>(value)); };
  journal_.push_back("ChangeServiceConfig " + std::to_string(service) + " " + number(serviceType) + " " +
                     number(startType) + " " + number(errorControl) + " " + account + " -> " +
                     std::to_string(changeError));
  if (changeError != 0) return changeError;
  startName = account;
  password = newPassword;
  return 0;
}

void FakeServiceControl::closeServiceHandle(ServiceHandle handle) {
  openHandles_.erase(handle);
  journal_.push_back("CloseServiceHandle " + std::to_string(handle));
}

}  // namespace varnhold::fakes
