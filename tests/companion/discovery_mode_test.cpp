#include "companion/discovery_mode.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_registry.h"

namespace varnhold::companion::test {
namespace {

constexpr auto kHive = platform::RegistryHive::LocalMachine;
constexpr const char* kKey = R"(SOFTWARE\Kelmont Works\Quorvane)";

class DiscoveryMode : public testing::Test {
 protected:
  void write(const platform::RegistryValue& value) {
    ASSERT_EQ(registry_.createKey(kHive, kKey), platform::RegistryOutcome::Done);
    ASSERT_EQ(registry_.set(kHive, kKey, "NetAccessMode", value), platform::RegistryOutcome::Done);
  }

  fakes::Journal journal_;
  fakes::FakeRegistry registry_{journal_};
};

TEST_F(DiscoveryMode, IsNoneBeforeOneWasStored) {
  EXPECT_EQ(storedDiscoveryMode(registry_), std::nullopt);
  ASSERT_EQ(registry_.createKey(kHive, kKey), platform::RegistryOutcome::Done);
  EXPECT_EQ(storedDiscoveryMode(registry_), std::nullopt);
}

TEST_F(DiscoveryMode, IsStoredAsANumberUnderAKeyThatIsMadeForIt) {
  EXPECT_TRUE(storeDiscoveryMode(registry_, 1));
  EXPECT_EQ(storedDiscoveryMode(registry_), 1);
  platform::RegistryValue value;
  ASSERT_EQ(registry_.query(kHive, kKey, "NetAccessMode", 16, value), platform::RegistryOutcome::Done);
  EXPECT_EQ(value.type, platform::kRegNumber);
  EXPECT_EQ(value.bytes, std::string("\1\0\0\0", 4));
  EXPECT_TRUE(storeDiscoveryMode(registry_, 0));
  EXPECT_EQ(storedDiscoveryMode(registry_), 0);
  EXPECT_TRUE(storeDiscoveryMode(registry_, 255));
  EXPECT_EQ(storedDiscoveryMode(registry_), 255);
}

TEST_F(DiscoveryMode, OfANumberThatIsNoByteIsAutomatic) {
  write({platform::kRegNumber, std::string("\0\1\0\0", 4)});
  EXPECT_EQ(storedDiscoveryMode(registry_), 1);
}

TEST_F(DiscoveryMode, IsNoneWhereTheValueIsNoNumber) {
  write({platform::kRegText, std::string("1\0", 2)});
  EXPECT_EQ(storedDiscoveryMode(registry_), std::nullopt);
  write({platform::kRegNumber, std::string("\1\0", 2)});
  EXPECT_EQ(storedDiscoveryMode(registry_), std::nullopt);
}

TEST_F(DiscoveryMode, IsNotStoredWhereTheRegistryRefuses) {
  ASSERT_TRUE(storeDiscoveryMode(registry_, 0));
  registry_.refusesWrites = true;
  EXPECT_FALSE(storeDiscoveryMode(registry_, 1));
  registry_.refusesWrites = false;
  EXPECT_EQ(storedDiscoveryMode(registry_), 0);
}

}  // namespace
}  // namespace varnhold::companion::test
