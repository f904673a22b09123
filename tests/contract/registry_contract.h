#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <string>

#include "platform/registry.h"

/// What every `Registry` does, the fake included. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, RegistryContract, PosixRegistryHost);
namespace varnhold::contract {

template <class Host>
concept RegistryHost = std::default_initializable<Host> && requires(Host host) {
  { host.registry() } -> std::convertible_to<platform::Registry&>;
  /// A key of this host's own under `SOFTWARE`, the same at each call and missing at first; the host clears
  /// it away.
  { host.key() } -> std::convertible_to<std::string>;
};

template <RegistryHost Host>
class RegistryContract : public ::testing::Test {
 protected:
  static constexpr auto kMachine = platform::RegistryHive::LocalMachine;
  static constexpr std::size_t kRoom = 1024;

  platform::Registry& registry() { return host_.registry(); }
  std::string key() { return host_.key(); }
  void makeKey() { ASSERT_EQ(registry().createKey(kMachine, key()), platform::RegistryOutcome::Done); }

  platform::RegistryOutcome set(const std::string& name, std::uint32_t type, const std::string& bytes) {
    return registry().set(kMachine, key(), name, {type, bytes});
  }
  platform::RegistryOutcome query(const std::string& name, std::size_t capacity = kRoom) {
    return registry().query(kMachine, key(), name, capacity, value_);
  }
  void expectRoundTrip(const std::string& name, std::uint32_t type, const std::string& bytes) {
    ASSERT_EQ(set(name, type, bytes), platform::RegistryOutcome::Done);
    ASSERT_EQ(query(name), platform::RegistryOutcome::Done);
    EXPECT_EQ(value_.type, type);
    EXPECT_EQ(value_.bytes, bytes);
  }
  /// After a query that was not Done: the caller's value is as it was.
  void expectValueUntouched() {
    EXPECT_EQ(value_.type, 77u);
    EXPECT_EQ(value_.bytes, "before");
  }

  Host host_;
  platform::RegistryValue value_{77, "before"};
};

TYPED_TEST_SUITE_P(RegistryContract);

TYPED_TEST_P(RegistryContract, TellsAMissingKeyFromAMissingValue) {
  EXPECT_EQ(this->query("DBPath"), platform::RegistryOutcome::KeyMissing);
  this->expectValueUntouched();
  this->makeKey();
  EXPECT_EQ(this->query("DBPath"), platform::RegistryOutcome::ValueMissing);
  this->expectValueUntouched();
}

TYPED_TEST_P(RegistryContract, DoesNotMakeTheKeyWhenItSetsAValue) {
  EXPECT_EQ(this->set("MpDbResend", platform::kRegNumber, std::string("\1\0\0\0", 4)),
            platform::RegistryOutcome::KeyMissing);
  EXPECT_EQ(this->query("MpDbResend"), platform::RegistryOutcome::KeyMissing);
}

TYPED_TEST_P(RegistryContract, MakesAKeyWithThoseAboveItAndAnExistingOneAgain) {
  const auto deep = this->key() + R"(\Upper\Lower)";
  EXPECT_EQ(this->registry().createKey(this->kMachine, deep), platform::RegistryOutcome::Done);
  EXPECT_EQ(this->registry().createKey(this->kMachine, deep), platform::RegistryOutcome::Done);
  const auto upper = this->key() + R"(\Upper)";
  EXPECT_EQ(this->registry().set(this->kMachine, upper, "A", {platform::kRegBinary, "x"}),
            platform::RegistryOutcome::Done);
  EXPECT_EQ(this->query("A"), platform::RegistryOutcome::ValueMissing);
}

TYPED_TEST_P(RegistryContract, KeepsTheValuesOfAKeyThatIsMadeAgain) {
  this->makeKey();
  ASSERT_EQ(this->set("A", platform::kRegBinary, "kept"), platform::RegistryOutcome::Done);
  this->makeKey();
  ASSERT_EQ(this->query("A"), platform::RegistryOutcome::Done);
  EXPECT_EQ(this->value_.bytes, "kept");
}

TYPED_TEST_P(RegistryContract, GivesBackEveryTypeAsItWasSet) {
  this->makeKey();
  this->expectRoundTrip("text", platform::kRegText, std::string("C:\\Program Files\\Varn \"hold\"") + '\0');
  this->expectRoundTrip("number", platform::kRegNumber, std::string("\xF4\x01\0\0", 4));
  this->expectRoundTrip("binary", platform::kRegBinary, std::string("\0\xFF\x80\r\n", 5));
  this->expectRoundTrip("multi", platform::kRegMultiText, std::string("one\0two\0\0", 9));
  this->expectRoundTrip("none", 0, std::string("\1\2", 2));
  this->expectRoundTrip("empty binary", platform::kRegBinary, "");
}

TYPED_TEST_P(RegistryContract, KeepsTextWithAndWithoutItsClosingNulApart) {
  this->makeKey();
  this->expectRoundTrip("closed", platform::kRegText, std::string("10.1.1.11\0", 10));
  this->expectRoundTrip("ConfigIPAddr", platform::kRegText, "10.1.1.11");
  this->expectRoundTrip("empty", platform::kRegText, std::string(1, '\0'));
  this->expectRoundTrip("two", platform::kRegText, std::string("a\0b\0", 4));
}

TYPED_TEST_P(RegistryContract, KeepsTextOfEveryScriptAndLineBreaks) {
  this->makeKey();
  this->expectRoundTrip("Größe €", platform::kRegText, std::string("Ärger € \xF0\x9F\x98\x80") + '\0');
  this->expectRoundTrip("lines", platform::kRegText, std::string("one\r\ntwo\tthree") + '\0');
  this->expectRoundTrip("name\\with \"quotes\"", platform::kRegText, std::string("[x]=;") + '\0');
}

TYPED_TEST_P(RegistryContract, ComparesKeysAndNamesWithoutCase) {
  this->makeKey();
  ASSERT_EQ(this->set("InstallPath", platform::kRegBinary, "first"), platform::RegistryOutcome::Done);
  ASSERT_EQ(this->set("INSTALLPATH", platform::kRegBinary, "second"), platform::RegistryOutcome::Done);
  auto key = this->key();
  for (auto& letter : key) letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
  ASSERT_EQ(this->registry().query(this->kMachine, key, "installpath", this->kRoom, this->value_),
            platform::RegistryOutcome::Done);
  EXPECT_EQ(this->value_.bytes, "second");
}

TYPED_TEST_P(RegistryContract, KnowsTheValueWithoutName) {
  this->makeKey();
  this->expectRoundTrip("", platform::kRegText, std::string("default") + '\0');
}

TYPED_TEST_P(RegistryContract, ReplacesAValueOfAnotherType) {
  this->makeKey();
  this->expectRoundTrip("MaxDBSize", platform::kRegText, std::string("500") + '\0');
  this->expectRoundTrip("MaxDBSize", platform::kRegNumber, std::string("\xF4\x01\0\0", 4));
}

TYPED_TEST_P(RegistryContract, GivesAValueThatJustFitsAndRefusesALongerOne) {
  this->makeKey();
  ASSERT_EQ(this->set("fits", platform::kRegText, std::string(1024, 'x')), platform::RegistryOutcome::Done);
  EXPECT_EQ(this->query("fits", 1023), platform::RegistryOutcome::TooLong);
  this->expectValueUntouched();
  ASSERT_EQ(this->query("fits", 1024), platform::RegistryOutcome::Done);
  EXPECT_EQ(this->value_.bytes, std::string(1024, 'x'));
}

TYPED_TEST_P(RegistryContract, RefusesANumberWithoutRoomForItsFourBytes) {
  this->makeKey();
  ASSERT_EQ(this->set("n", platform::kRegNumber, std::string("\1\0\0\0", 4)),
            platform::RegistryOutcome::Done);
  EXPECT_EQ(this->query("n", 3), platform::RegistryOutcome::TooLong);
  EXPECT_EQ(this->query("n", 4), platform::RegistryOutcome::Done);
}

TYPED_TEST_P(RegistryContract, KeepsTheHivesApart) {
  this->makeKey();
  EXPECT_EQ(this->registry().query(platform::RegistryHive::CurrentUser, this->key(), "A", this->kRoom,
                                   this->value_),
            platform::RegistryOutcome::KeyMissing);
}

TYPED_TEST_P(RegistryContract, KeepsKeysThatOnlyBeginAlikeApart) {
  this->makeKey();
  EXPECT_EQ(this->registry().query(this->kMachine, this->key() + "2", "A", this->kRoom, this->value_),
            platform::RegistryOutcome::KeyMissing);
  const auto shorter = this->key().substr(0, this->key().size() - 1);
  EXPECT_EQ(this->registry().query(this->kMachine, shorter, "A", this->kRoom, this->value_),
            platform::RegistryOutcome::KeyMissing);
}

REGISTER_TYPED_TEST_SUITE_P(RegistryContract, TellsAMissingKeyFromAMissingValue,
                            DoesNotMakeTheKeyWhenItSetsAValue, MakesAKeyWithThoseAboveItAndAnExistingOneAgain,
                            KeepsTheValuesOfAKeyThatIsMadeAgain, GivesBackEveryTypeAsItWasSet,
                            KeepsTextWithAndWithoutItsClosingNulApart, KeepsTextOfEveryScriptAndLineBreaks,
                            ComparesKeysAndNamesWithoutCase, KnowsTheValueWithoutName,
                            ReplacesAValueOfAnotherType, GivesAValueThatJustFitsAndRefusesALongerOne,
                            RefusesANumberWithoutRoomForItsFourBytes, KeepsTheHivesApart,
                            KeepsKeysThatOnlyBeginAlikeApart);

}  // namespace varnhold::contract
