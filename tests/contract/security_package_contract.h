#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <concepts>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/security_package.h"

/// What every `SecurityPackage` does. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, SecurityPackageContract, PosixSecurityHost);
namespace varnhold::contract {

template <class Host>
concept SecurityPackageHost = std::default_initializable<Host> && requires(Host host) {
  { host.sspi() } -> std::convertible_to<platform::SecurityPackage&>;
  /// An account that the accepting role knows, and its password.
  { host.domain() } -> std::convertible_to<std::string>;
  { host.user() } -> std::convertible_to<std::string>;
  { host.password() } -> std::convertible_to<std::string>;
};

/// Whatever a test opens is given back at its end.
template <SecurityPackageHost Host>
class SecurityPackageContract : public ::testing::Test {
 protected:
  struct Role {
    platform::SecurityHandle credential = 0, context = 0;
    std::array<std::uint8_t, 4096> memory{};
    std::uint32_t length = 0;
  };

  ~SecurityPackageContract() override {
    for (const auto* const role : {&client_, &server_}) {
      if (role->context != 0) sspi().deleteSecurityContext(role->context);
      if (role->credential != 0) sspi().freeCredentialsHandle(role->credential);
    }
  }

  platform::SecurityPackage& sspi() { return host_.sspi(); }

  long acquireClient(const std::string& password) {
    const platform::SecWinntAuthIdentity identity{
        host_.user(),   size(host_.user()),         host_.domain(), size(host_.domain()), password,
        size(password), platform::kSecWinntAuthAnsi};
    return sspi().acquireCredentialsHandle("NTLM", platform::kSecpkgCredOutbound, &identity,
                                           client_.credential);
  }
  long acquireServer() {
    return sspi().acquireCredentialsHandle("NTLM", platform::kSecpkgCredInbound, nullptr, server_.credential);
  }
  long clientStep() {
    platform::SecBuffer output{static_cast<std::uint32_t>(client_.memory.size()), client_.memory.data()};
    const platform::SecBuffer input{server_.length, server_.memory.data()};
    const bool isFirst = client_.context == 0;
    const auto status = sspi().initializeSecurityContext(
        client_.credential, isFirst ? nullptr : &client_.context, 0, platform::kSecurityNativeDrep,
        isFirst ? nullptr : &input, client_.context, output);
    client_.length = output.cbBuffer;
    return status;
  }
  long serverStep() {
    platform::SecBuffer output{static_cast<std::uint32_t>(server_.memory.size()), server_.memory.data()};
    const bool isFirst = server_.context == 0;
    const auto status = sspi().acceptSecurityContext(server_.credential, isFirst ? nullptr : &server_.context,
                                                     {client_.length, client_.memory.data()}, 0,
                                                     platform::kSecurityNativeDrep, server_.context, output);
    server_.length = output.cbBuffer;
    return status;
  }
  /// All but the last step.
  void shakeHands(const std::string& password) {
    ASSERT_EQ(acquireClient(password), platform::kSecOk);
    ASSERT_EQ(acquireServer(), platform::kSecOk);
    ASSERT_EQ(clientStep(), platform::kSecContinueNeeded);
    ASSERT_EQ(serverStep(), platform::kSecContinueNeeded);
    ASSERT_EQ(clientStep(), platform::kSecOk);
  }

  Host host_;
  Role client_, server_;

 private:
  static std::uint32_t size(const std::string& text) { return static_cast<std::uint32_t>(text.size()); }
};

TYPED_TEST_SUITE_P(SecurityPackageContract);

TYPED_TEST_P(SecurityPackageContract, TellsTheLongestTokenOfNtlm) {
  platform::SecurityPackageInfo info;
  ASSERT_EQ(this->sspi().querySecurityPackageInfo("NTLM", info), platform::kSecOk);
  EXPECT_GT(info.cbMaxToken, 0u);
  EXPECT_EQ(this->sspi().freeContextBuffer(info.contextBuffer), platform::kSecOk);
}

TYPED_TEST_P(SecurityPackageContract, KnowsNoOtherPackage) {
  platform::SecurityPackageInfo info;
  EXPECT_LT(this->sspi().querySecurityPackageInfo("NoSuchPackage", info), 0);
  platform::SecurityHandle credential = 0;
  EXPECT_LT(this->sspi().acquireCredentialsHandle("NoSuchPackage", platform::kSecpkgCredInbound, nullptr,
                                                  credential),
            0);
}

TYPED_TEST_P(SecurityPackageContract, AcceptsARightPasswordInTwoStepsOfEachRole) {
  this->shakeHands(this->host_.password());
  EXPECT_EQ(this->serverStep(), platform::kSecOk);
}

TYPED_TEST_P(SecurityPackageContract, RefusesAWrongPasswordInTheServersLastStep) {
  this->shakeHands(this->host_.password() + "x");
  EXPECT_LT(this->serverStep(), 0);
}

TYPED_TEST_P(SecurityPackageContract, GivesAHandleBackOnce) {
  ASSERT_EQ(this->acquireServer(), platform::kSecOk);
  EXPECT_EQ(this->sspi().freeCredentialsHandle(this->server_.credential), platform::kSecOk);
  EXPECT_LT(this->sspi().freeCredentialsHandle(std::exchange(this->server_.credential, 0)), 0);
  EXPECT_LT(this->sspi().deleteSecurityContext(4711), 0);
}

TYPED_TEST_P(SecurityPackageContract, RefusesATokenThatIsNone) {
  ASSERT_EQ(this->acquireServer(), platform::kSecOk);
  this->client_.length = 9;
  std::fill_n(this->client_.memory.begin(), 9, std::uint8_t{0x55});
  EXPECT_LT(this->serverStep(), 0);
  EXPECT_EQ(this->server_.context, 0u);
}

REGISTER_TYPED_TEST_SUITE_P(SecurityPackageContract, TellsTheLongestTokenOfNtlm, KnowsNoOtherPackage,
                            AcceptsARightPasswordInTwoStepsOfEachRole,
                            RefusesAWrongPasswordInTheServersLastStep, GivesAHandleBackOnce,
                            RefusesATokenThatIsNone);

}  // namespace varnhold::contract
