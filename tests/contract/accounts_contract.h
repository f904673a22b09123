#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <string>

#include "platform/accounts.h"

/// What every `Accounts` does. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, AccountsContract, PosixAccountsHost);
namespace varnhold::contract {

template <class Host>
concept AccountsHost = std::default_initializable<Host> && requires(Host host) {
  { host.accounts() } -> std::convertible_to<platform::Accounts&>;
  /// An account that this computer can look up.
  { host.account() } -> std::convertible_to<std::string>;
};

template <AccountsHost Host>
class AccountsContract : public ::testing::Test {
 protected:
  bool look(const std::string& account) { return host_.accounts().lookupAccountName("", account, buffers_); }

  Host host_;
  platform::AccountBuffers buffers_;
};

TYPED_TEST_SUITE_P(AccountsContract);

TYPED_TEST_P(AccountsContract, SaysWhatBuffersAnAccountNeedsAndThenFillsThem) {
  this->buffers_.sid.resize(1);
  ASSERT_FALSE(this->look(this->host_.account()));
  ASSERT_GE(this->buffers_.sidSize, 8u);
  ASSERT_GE(this->buffers_.domainSize, 1u);
  this->buffers_.sid.assign(this->buffers_.sidSize, 0);
  this->buffers_.domain.assign(this->buffers_.domainSize, '\0');
  ASSERT_TRUE(this->look(this->host_.account()));
  EXPECT_EQ(this->buffers_.sid[0], 1) << "the revision of a SID";
  EXPECT_EQ(this->buffers_.sid.size(), 8u + 4u * this->buffers_.sid[1]) << "its count of parts";
}

TYPED_TEST_P(AccountsContract, FindsNoAccountThatIsNotThere) {
  this->buffers_.sid.resize(64);
  this->buffers_.domain.resize(64);
  EXPECT_FALSE(this->look("no such account"));
}

REGISTER_TYPED_TEST_SUITE_P(AccountsContract, SaysWhatBuffersAnAccountNeedsAndThenFillsThem,
                            FindsNoAccountThatIsNotThere);

}  // namespace varnhold::contract
