#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <filesystem>
#include <string>

#include "base/text.h"
#include "platform/environment.h"

/// What every `Environment` does, the fake included. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, EnvironmentContract, PosixEnvironmentHost);
namespace varnhold::contract {

template <class Host>
concept EnvironmentHost = std::default_initializable<Host> && requires(Host host) {
  /// Of a process whose folder of the program (or home) exists.
  { host.environment() } -> std::convertible_to<platform::Environment&>;
};

template <EnvironmentHost Host>
class EnvironmentContract : public ::testing::Test {
 protected:
  EnvironmentContract() : startedIn_(std::filesystem::current_path()) {}
  ~EnvironmentContract() override { std::filesystem::current_path(startedIn_); }

  platform::Environment& environment() { return host_.environment(); }

  Host host_;

 private:
  std::filesystem::path startedIn_;
};

TYPED_TEST_SUITE_P(EnvironmentContract);

TYPED_TEST_P(EnvironmentContract, NamesTheProgramsFolderWithoutClosingSeparator) {
  const auto folder = this->environment().programFolder();
  ASSERT_FALSE(folder.empty());
  EXPECT_NE(folder.back(), '\\');
  EXPECT_NE(folder.back(), '/');
}

TYPED_TEST_P(EnvironmentContract, GoesToAFolderThatIsThereAndNoOther) {
  const auto folder = this->environment().programFolder();
  EXPECT_TRUE(this->environment().setCurrentDirectory(folder));
  EXPECT_FALSE(this->environment().setCurrentDirectory(folder + "\\no such folder"));
}

TYPED_TEST_P(EnvironmentContract, TellsTheComputersNameInCapitalsWithoutItsDomain) {
  const auto filled = this->environment().getComputerName();
  ASSERT_TRUE(filled.has_value());
  EXPECT_LE(filled->size(), 256u);
  const auto name = TrimAtNull(*filled);
  EXPECT_FALSE(name.empty());
  EXPECT_EQ(name, toUpper(name));
  EXPECT_EQ(name.find_first_of(".\\ "), std::string::npos);
  EXPECT_EQ(this->environment().getComputerName(), filled);
}

REGISTER_TYPED_TEST_SUITE_P(EnvironmentContract, NamesTheProgramsFolderWithoutClosingSeparator,
                            GoesToAFolderThatIsThereAndNoOther,
                            TellsTheComputersNameInCapitalsWithoutItsDomain);

}  // namespace varnhold::contract
