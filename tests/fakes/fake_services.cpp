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

void FakeServiceControl::closeServiceHandle(ServiceHandle handle) {
  openHandles_.erase(handle);
  journal_.push_back("CloseServiceHandle " + std::to_string(handle));
}

}  // namespace varnhold::fakes
