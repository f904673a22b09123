#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <concepts>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "platform/service_control.h"

/// What every `ServiceControl` does. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ServiceControlContract, WindowsServiceHost);
namespace varnhold::contract {

template <class Host>
concept ServiceControlHost = std::default_initializable<Host> && requires(Host host) {
  { host.services() } -> std::convertible_to<platform::ServiceControl&>;
  /// A computer whose service manager answers, as `\\NAME`.
  { host.machine() } -> std::convertible_to<std::string>;
  /// A service of that computer that is stopped at first and runs under LocalSystem.
  { host.service() } -> std::convertible_to<std::string>;
};

template <ServiceControlHost Host>
class ServiceControlContract : public ::testing::Test {
 protected:
  static constexpr std::uint32_t kNotActive = 1062;  ///< winerror.h ERROR_SERVICE_NOT_ACTIVE

  platform::ServiceControl& services() { return host_.services(); }

  /// Asks until the answer is this one or ten seconds have passed: a service takes its time to start and
  /// stop.
  template <typename Call>
  std::uint32_t askUntil(std::uint32_t wanted, Call call) {
    std::uint32_t answer = call();
    for (int tries = 0; tries < 1000 && answer != wanted; ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      answer = call();
    }
    return answer;
  }

  /// The host's service. A host that is still starting may be late to know a service that was just made, so
  /// this asks for up to five seconds.
  platform::ServiceHandle openSoon(platform::ServiceHandle manager) {
    const auto open = [&] {
      return services().openService(manager, host_.service(), platform::kServiceAllAccess);
    };
    auto service = open();
    for (int tries = 0; tries < 500 && service == 0; ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      service = open();
    }
    return service;
  }

  Host host_;
};

TYPED_TEST_SUITE_P(ServiceControlContract);

TYPED_TEST_P(ServiceControlContract, OpensAServiceThatIsThereAndNoOther) {
  auto& services = this->services();
  const platform::OwnedServiceHandle manager(services, services.openSCManager(this->host_.machine()));
  ASSERT_TRUE(manager);
  const platform::OwnedServiceHandle service(services, this->openSoon(manager.get()));
  EXPECT_TRUE(service);
  EXPECT_EQ(services.openService(manager.get(), "No Such Service", platform::kServiceAllAccess), 0u);
}

TYPED_TEST_P(ServiceControlContract, StartsAndStopsAService) {
  auto& services = this->services();
  const platform::OwnedServiceHandle manager(services, services.openSCManager(this->host_.machine()));
  const platform::OwnedServiceHandle service(services, this->openSoon(manager.get()));
  ASSERT_TRUE(service);
  const auto start = [&] { return services.startService(service.get()); };
  const auto stop = [&] { return services.controlService(service.get(), platform::kServiceControlStop); };

  EXPECT_EQ(stop(), this->kNotActive);
  EXPECT_EQ(start(), 0u);
  EXPECT_EQ(start(), platform::kErrorServiceAlreadyRunning);
  EXPECT_EQ(this->askUntil(0, stop), 0u);
  EXPECT_EQ(this->askUntil(this->kNotActive, stop), this->kNotActive);
  EXPECT_EQ(this->askUntil(0, start), 0u);
  EXPECT_EQ(this->askUntil(0, stop), 0u);
}

TYPED_TEST_P(ServiceControlContract, TellsTheRoomForAConfigurationAndThenTheAccount) {
  auto& services = this->services();
  const platform::OwnedServiceHandle manager(services, services.openSCManager(this->host_.machine()));
  const platform::OwnedServiceHandle service(services, this->openSoon(manager.get()));
  ASSERT_TRUE(service);
  platform::ServiceConfig config;
  std::uint32_t needed = 0;
  EXPECT_FALSE(services.queryServiceConfig(service.get(), nullptr, 0, needed, config));
  EXPECT_FALSE(config.serviceStartName);
  ASSERT_GT(needed, 0u);
  // A host's record holds pointers, and is aligned as they are.
  std::vector<std::uint64_t> room(needed / sizeof(std::uint64_t) + 1);
  auto* const buffer = reinterpret_cast<std::uint8_t*>(room.data());
  ASSERT_TRUE(services.queryServiceConfig(service.get(), buffer, needed, needed, config));
  ASSERT_TRUE(config.serviceStartName);
  EXPECT_EQ(*config.serviceStartName, "LocalSystem");
}

TYPED_TEST_P(ServiceControlContract, RefusesAConfigurationOfNoService) {
  platform::ServiceConfig config;
  std::uint32_t needed = 7;
  EXPECT_FALSE(this->services().queryServiceConfig(0, nullptr, 0, needed, config));
  EXPECT_EQ(needed, 0u);
  EXPECT_NE(
      this->services().changeServiceConfig(0, platform::kServiceWin32OwnProcess, platform::kServiceNoChange,
                                           platform::kServiceNoChange, "LocalSystem", ""),
      0u);
}

REGISTER_TYPED_TEST_SUITE_P(ServiceControlContract, OpensAServiceThatIsThereAndNoOther,
                            StartsAndStopsAService, TellsTheRoomForAConfigurationAndThenTheAccount,
                            RefusesAConfigurationOfNoService);

}  // namespace varnhold::contract
