#include <gmock/gmock.h>

#include "base/runtime_error.h"
#include "core/mdCommon.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::core {
namespace {

using platform::RegistryHive;

constexpr auto kMachine = RegistryHive::LocalMachine;
constexpr const char* kKey = R"(SOFTWARE\Kelmont Works\Quorvane)";

class RegReadValueTest : public testing::Test {
 protected:
  bool read(const char* name) { return RegReadValue(host.registry, kMachine, kKey, name, value); }

  fakes::FakeHost host;
  std::string value = "before";
};

TEST_F(RegReadValueTest, GivesATextUpToItsFirstNul) {
  host.registry.setRaw(kKey, "DBPath", platform::kRegText, std::string("C:\\DATA\0rest\0", 13));
  EXPECT_TRUE(read("DBPath"));
  EXPECT_EQ(value, R"(C:\DATA)");
}

TEST_F(RegReadValueTest, GivesATextThatIsStoredWithoutClosingNul) {
  host.registry.setRaw(kKey, "DBPath", platform::kRegText, "10.1.1.11");
  EXPECT_TRUE(read("DBPath"));
  EXPECT_EQ(value, "10.1.1.11");
}

TEST_F(RegReadValueTest, GivesAnEmptyTextAsRead) {
  host.registry.setText(kKey, "DBPath", "");
  EXPECT_TRUE(read("DBPath"));
  EXPECT_EQ(value, "");
}

TEST_F(RegReadValueTest, TurnsANumberIntoDecimalText) {
  const std::pair<std::uint32_t, const char*> numbers[] = {
      {500, "500"},
      {0, "0"},
      {1, "1"},
      {258, "258"},
      {65535, "65535"},
      {32768, "32768"},
      {0x01020304, "16909060"},
      {0x7FFFFFFF, "2147483647"},
      {0x80000000, "-2147483648"},
      {0xFFFFFFFF, "-1"},
  };
  for (const auto& [number, text] : numbers) {
    host.registry.setNumber(kKey, "MaxDBSize", number);
    EXPECT_TRUE(read("MaxDBSize"));
    EXPECT_EQ(value, text);
  }
}

TEST_F(RegReadValueTest, TakesMissingBytesOfANumberAsZero) {
  host.registry.setRaw(kKey, "MaxDBSize", platform::kRegNumber, "\x01\x02");
  EXPECT_TRUE(read("MaxDBSize"));
  EXPECT_EQ(value, "513");
}

TEST_F(RegReadValueTest, LeavesTheValueAloneForEveryOtherType) {
  for (const std::uint32_t type : {0u, 2u, 3u, 5u, 7u, 11u}) {
    host.registry.setRaw(kKey, "Odd", type, "abcd");
    EXPECT_TRUE(read("Odd"));
    EXPECT_EQ(value, "before");
  }
}

TEST_F(RegReadValueTest, EmptiesTheValueWhenTheKeyIsMissing) {
  EXPECT_FALSE(read("DBPath"));
  EXPECT_EQ(value, "");
}

TEST_F(RegReadValueTest, EmptiesTheValueWhenTheValueIsMissing) {
  host.registry.makeKey(kKey);
  EXPECT_FALSE(read("DBPath"));
  EXPECT_EQ(value, "");
}

TEST_F(RegReadValueTest, FailsForAValueOfMoreThan1024Bytes) {
  host.registry.setRaw(kKey, "DBPath", platform::kRegText, std::string(1025, 'x'));
  EXPECT_FALSE(read("DBPath"));
  EXPECT_EQ(value, "");
}

TEST_F(RegReadValueTest, GivesATextThatFillsTheBufferWithItsNul) {
  host.registry.setText(kKey, "DBPath", std::string(1023, 'x'));
  EXPECT_TRUE(read("DBPath"));
  EXPECT_EQ(value, std::string(1023, 'x'));
}

TEST_F(RegReadValueTest, RaisesForATextThatFillsTheBufferWithoutNul) {
  host.registry.setRaw(kKey, "DBPath", platform::kRegText, std::string(1024, 'x'));
  try {
    read("DBPath");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), kInvalidProcedureCall);
    EXPECT_THAT(error.description(), testing::HasSubstr(std::string(kKey)));
    EXPECT_THAT(error.description(), testing::HasSubstr("DBPath"));
  }
}

TEST_F(RegReadValueTest, AllowsAValueOfAnotherTypeToFillTheBuffer) {
  host.registry.setRaw(kKey, "Odd", platform::kRegBinary, std::string(1024, 'x'));
  EXPECT_TRUE(read("Odd"));
  EXPECT_EQ(value, "before");
}

TEST_F(RegReadValueTest, LooksInTheHiveItIsGiven) {
  host.registry.setText(kKey, "DBPath", "x");
  EXPECT_FALSE(RegReadValue(host.registry, RegistryHive::CurrentUser, kKey, "DBPath", value));
}

TEST(RegWriteDword, WritesFourBytesLowestFirst) {
  fakes::FakeHost host;
  host.registry.makeKey(kKey);
  EXPECT_TRUE(RegWriteDword(host.registry, kMachine, kKey, "MaxDBSize", 500));
  EXPECT_TRUE(RegWriteDword(host.registry, kMachine, kKey, "Negative", -1));
  EXPECT_THAT(
      host.journal,
      LinesAre({R"(RegSetValueEx SOFTWARE\Kelmont Works\Quorvane\MaxDBSize type 4 F4010000 -> Done)",
                R"(RegSetValueEx SOFTWARE\Kelmont Works\Quorvane\Negative type 4 FFFFFFFF -> Done)"}));
}

TEST(RegWriteDword, DoesNotMakeAMissingKey) {
  fakes::FakeHost host;
  EXPECT_FALSE(RegWriteDword(host.registry, kMachine, kKey, "MaxDBSize", 500));
  EXPECT_THAT(
      host.journal,
      LinesAre({R"(RegSetValueEx SOFTWARE\Kelmont Works\Quorvane\MaxDBSize type 4 F4010000 -> KeyMissing)"}));
}

TEST(RegWriteDword, TellsThatTheHostRefuses) {
  fakes::FakeHost host;
  host.registry.makeKey(kKey);
  host.registry.refusesWrites = true;
  EXPECT_FALSE(RegWriteDword(host.registry, kMachine, kKey, "MaxDBSize", 500));
}

TEST(RequestManagerResync, SetsMpDbResendToOne) {
  fakes::FakeHost host;
  host.registry.setNumber(kManagerKey, "MpDbResend", 0);
  RequestManagerResync(host.registry);
  EXPECT_THAT(
      host.journal,
      LinesAre(
          {R"(RegSetValueEx SOFTWARE\Kelmont Works\Varnhold\Manager\MpDbResend type 4 01000000 -> Done)"}));
}

TEST(RequestManagerResync, IsSilentWhenItFails) {
  fakes::FakeHost host;
  RequestManagerResync(host.registry);
  host.registry.makeKey(kManagerKey);
  host.registry.refusesWrites = true;
  RequestManagerResync(host.registry);
  EXPECT_EQ(host.journal.size(), 2u);
}

}  // namespace
}  // namespace varnhold::core
