#include "deployment/agent_polling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/deployment/agent_key.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Polling : public ::testing::Test {
 protected:
  Polling() { fake.registry.makeKey(kAgentKey); }

  void store(const char* name, const std::string& text) { fake.registry.setText(kAgentKey, name, text); }
  std::string stored(const char* name) const {
    const auto value = fake.registry.stored(kAgentKey, name);
    return value ? value->bytes : "none";
  }
  HoursMinutes frequency() {
    HoursMinutes read{77, 66};
    ReadPollingFrequency(fake.registry, read);
    return read;
  }
  HoursMinutes startTime() {
    HoursMinutes read{77, 66};
    ReadPollStartTime(fake.registry, read);
    return read;
  }

  fakes::FakeHost fake;
};

using ReadPolling = Polling;
using WritePolling = Polling;
using ShowPolling = Polling;
using SavePolling = Polling;
using ValidatePollingTest = Polling;

TEST_F(ReadPolling, TakesHoursAndMinutes) {
  for (const auto& [text, expected] : std::vector<std::pair<std::string, HoursMinutes>>{
           {"0:15", {0, 15}}, {"4:0", {4, 0}}, {"168:0", {168, 0}}, {"06:05", {6, 5}}, {" 6: 5 ", {6, 5}}}) {
    store("gPollingFreq", text);
    store("gPollStartTime", text);
    EXPECT_EQ(frequency(), expected) << text;
    EXPECT_EQ(startTime(), expected) << text;
  }
}

TEST_F(ReadPolling, EndsAtTheNulsOfTheBuffer) {
  fake.registry.setRaw(kAgentKey, "gPollingFreq", platform::kRegText,
                       std::string("4:7\0"
                                   "9\0",
                                   6));
  EXPECT_EQ(frequency(), (HoursMinutes{4, 7}));
  fake.registry.setRaw(kAgentKey, "gPollingFreq", platform::kRegText, "4:30");
  EXPECT_EQ(frequency(), (HoursMinutes{4, 30}));
}

TEST_F(ReadPolling, CountsWhatIsNoNumberAsZero) {
  store("gPollStartTime", "x:y");
  EXPECT_EQ(startTime(), (HoursMinutes{0, 0}));
  store("gPollStartTime", ":");
  EXPECT_EQ(startTime(), (HoursMinutes{0, 0}));
}

TEST_F(ReadPolling, TakesTheNearestNumberBeyond32Bits) {
  store("gPollStartTime", "99999999999:-99999999999");
  EXPECT_EQ(startTime(), (HoursMinutes{INT32_MAX, INT32_MIN}));
}

TEST_F(ReadPolling, OfAMissingFrequencySetsHoursTo1AndLeavesMinutes) {
  EXPECT_EQ(frequency(), (HoursMinutes{1, 66}));
}

TEST_F(ReadPolling, OfAMissingStartTimeLeavesBoth) {
  EXPECT_EQ(startTime(), (HoursMinutes{77, 66}));
}

TEST_F(ReadPolling, WithoutTheKeyIsLikeAMissingValue) {
  fakes::FakeHost bare;
  HoursMinutes read{77, 66};
  ReadPollingFrequency(bare.registry, read);
  EXPECT_EQ(read, (HoursMinutes{1, 66}));
  read = {77, 66};
  ReadPollStartTime(bare.registry, read);
  EXPECT_EQ(read, (HoursMinutes{77, 66}));
}

TEST_F(ReadPolling, IgnoresATextWithoutAColon) {
  store("gPollingFreq", "15");
  store("gPollStartTime", "");
  EXPECT_EQ(frequency(), (HoursMinutes{1, 66}));
  EXPECT_EQ(startTime(), (HoursMinutes{77, 66}));
}

TEST_F(ReadPolling, IgnoresATextThatIsLongerThanItsBuffer) {
  fake.registry.setRaw(kAgentKey, "gPollStartTime", platform::kRegText, "6:" + std::string(30, ' '));
  EXPECT_EQ(startTime(), (HoursMinutes{6, 0}));
  fake.registry.setRaw(kAgentKey, "gPollStartTime", platform::kRegText, "7:" + std::string(31, ' '));
  EXPECT_EQ(startTime(), (HoursMinutes{77, 66}));
}

TEST_F(WritePolling, StoresDecimalTextWithoutANul) {
  WritePollingFrequency(fake.registry, fake.ui, {168, 0});
  WritePollStartTime(fake.registry, fake.ui, {6, 5});
  EXPECT_THAT(
      fake.journal,
      LinesAre({R"(RegSetValueEx SOFTWARE\Kelmont Works\Varnhold\Agent\gPollingFreq type 1 168:0 -> Done)",
                R"(RegSetValueEx SOFTWARE\Kelmont Works\Varnhold\Agent\gPollStartTime type 1 6:5 -> Done)"}));
  EXPECT_EQ(stored("gPollStartTime").size(), 3u);
}

TEST_F(WritePolling, WithoutTheKeyWritesNothingAndSaysNothing) {
  fakes::FakeHost bare;
  WritePollingFrequency(bare.registry, bare.ui, {1, 0});
  WritePollStartTime(bare.registry, bare.ui, {1, 0});
  EXPECT_THAT(fakes::linesOf(bare.journal, "MessageBox"), IsEmpty());
  EXPECT_EQ(bare.registry.stored(kAgentKey, "gPollingFreq"), std::nullopt);
}

TEST_F(WritePolling, ShowsACriticalMessageWhenTheHostRefuses) {
  fake.registry.refusesWrites = true;
  WritePollingFrequency(fake.registry, fake.ui, {1, 0});
  WritePollStartTime(fake.registry, fake.ui, {1, 0});
  EXPECT_THAT(fakes::linesOf(fake.journal, "MessageBox"),
              LinesAre({"MessageBox critical: Could not save the polling frequency.",
                        "MessageBox critical: Could not save the poll start time."}));
}

TEST(PollFrequencies, StandInTheirOrder) {
  struct Row {
    std::string caption;
    HoursMinutes interval;
  };
  const std::vector<Row> expected = {{"15 minutes", {0, 15}}, {"30 minutes", {0, 30}}, {"1 hour", {1, 0}},
                                     {"2 hours", {2, 0}},     {"3 hours", {3, 0}},     {"4 hours", {4, 0}},
                                     {"5 hours", {5, 0}},     {"6 hours", {6, 0}},     {"7 hours", {7, 0}},
                                     {"8 hours", {8, 0}},     {"9 hours", {9, 0}},     {"10 hours", {10, 0}},
                                     {"11 hours", {11, 0}},   {"12 hours", {12, 0}},   {"Daily", {24, 0}},
                                     {"2 days", {48, 0}},     {"4 days", {96, 0}},     {"Weekly", {168, 0}}};
  ASSERT_EQ(kPollFrequencies.size(), expected.size());
  for (std::size_t place = 0; place < expected.size(); ++place) {
    EXPECT_EQ(kPollFrequencies[place].caption, expected[place].caption);
    EXPECT_EQ(pollFrequencyAt(static_cast<std::int32_t>(place), 99), expected[place].interval);
    EXPECT_EQ(pollFrequencyIndex(expected[place].interval), static_cast<std::int32_t>(place));
  }
}

TEST(PollFrequencies, OutsideTheListAreOneHourWithTheMinutesAsLeft) {
  for (const std::int32_t index : {-1, 18, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(pollFrequencyAt(index), (HoursMinutes{1, 0})) << index;
    EXPECT_EQ(pollFrequencyAt(index, 7), (HoursMinutes{1, 7})) << index;
  }
}

TEST(PollFrequencies, ThatAreNotInTheListShowAsOneHour) {
  for (const std::int32_t hours : {0, 1, 13, 23, 25, 167, 169, -1}) {
    EXPECT_EQ(pollFrequencyIndex({hours, 0}), 2) << hours;
    EXPECT_EQ(pollFrequencyIndex({hours, 45}), 2) << hours;
  }
}

TEST(PollFrequencies, GiveQuartersAndHalvesTheirPlaceWhateverTheHours) {
  for (const std::int32_t hours : {0, 2, 13, 24, 168}) {
    EXPECT_EQ(pollFrequencyIndex({hours, 15}), 0) << hours;
    EXPECT_EQ(pollFrequencyIndex({hours, 30}), 1) << hours;
  }
  EXPECT_EQ(pollFrequencyIndex({4, 20}), 5);
}

TEST_F(ShowPolling, OfAnEmptyRegistryIsOneHourFromMidnight) {
  EXPECT_EQ(ShowCurrentPolling(fake.registry), (PollingControls{2, "00", "00"}));
}

TEST_F(ShowPolling, LetsTheMinutesWin) {
  store("gPollingFreq", "24:15");
  EXPECT_EQ(ShowCurrentPolling(fake.registry).cboPollFreq, 0);
}

TEST_F(ShowPolling, FormatsTheStartTimeWithTwoDigits) {
  store("gPollingFreq", "96:0");
  store("gPollStartTime", "6:30");
  EXPECT_EQ(ShowCurrentPolling(fake.registry), (PollingControls{16, "06", "30"}));
  store("gPollStartTime", "-6:100");
  EXPECT_EQ(ShowCurrentPolling(fake.registry), (PollingControls{16, "-06", "100"}));
}

TEST_F(SavePolling, OfA13HourFrequencyWritesOneHour) {
  store("gPollingFreq", "13:0");
  const auto controls = ShowCurrentPolling(fake.registry);
  EXPECT_EQ(kPollFrequencies[static_cast<std::size_t>(controls.cboPollFreq)].caption, "1 hour");
  SavePollingSettings(fake.registry, fake.ui, controls);
  EXPECT_EQ(stored("gPollingFreq"), "1:0");
}

TEST_F(SavePolling, DropsTheLeadingZerosOfTheStartTimeAndShowsThemAgain) {
  SavePollingSettings(fake.registry, fake.ui, {17, "06", "05"});
  EXPECT_EQ(stored("gPollingFreq"), "168:0");
  EXPECT_EQ(stored("gPollStartTime"), "6:5");
  EXPECT_EQ(ShowCurrentPolling(fake.registry), (PollingControls{17, "06", "05"}));
}

TEST_F(SavePolling, TakesEmptyBoxesAsMidnightAndNoChoiceAsOneHour) {
  SavePollingSettings(fake.registry, fake.ui, {-1, "", ""});
  EXPECT_EQ(stored("gPollingFreq"), "1:0");
  EXPECT_EQ(stored("gPollStartTime"), "0:0");
}

TEST_F(SavePolling, TriesTheStartTimeAfterTheFrequencyWasRefused) {
  fake.registry.refusesWrites = true;
  SavePollingSettings(fake.registry, fake.ui, {});
  EXPECT_EQ(fakes::linesOf(fake.journal, "MessageBox").size(), 2u);
}

constexpr const char* kTooLong = "Polling interval cannot be greater than 24 hours.";
constexpr const char* kMinutes = "Value of minutes cannot be greater than 59.";
constexpr const char* kTooShort = "Polling interval cannot be less than 15 minutes.";
constexpr const char* kStartHour =
    "Start time is in the HH:MM format and value of hour cannot be greater than 24 hours.";
constexpr const char* kStartMinutes =
    "Start time is in the HH:MM format and value of minutes cannot be greater than 59.";

TEST(PollingFault, FindsEachFaultAtItsLimit) {
  struct Case {
    HoursMinutes frequency, start;
    const char* text;
  };
  for (const auto& [frequency, start, text] : std::vector<Case>{{{169, 0}, {0, 0}, kTooLong},
                                                                {{168, 1}, {0, 0}, kTooLong},
                                                                {{167, 60}, {0, 0}, kMinutes},
                                                                {{0, 14}, {0, 0}, kTooShort},
                                                                {{1, 0}, {25, 0}, kStartHour},
                                                                {{1, 0}, {24, 1}, kStartMinutes},
                                                                {{1, 0}, {23, 60}, kMinutes}}) {
    EXPECT_EQ(pollingFault(frequency, start), text);
  }
  for (const auto& [frequency, start] : std::vector<std::pair<HoursMinutes, HoursMinutes>>{
           {{168, 0}, {24, 0}}, {{167, 59}, {23, 59}}, {{0, 15}, {0, 0}}, {{1, 0}, {0, 59}}}) {
    EXPECT_EQ(pollingFault(frequency, start), std::nullopt);
  }
}

TEST(PollingFault, ReportsTheFirstOfSeveral) {
  EXPECT_EQ(pollingFault({169, 60}, {25, 60}), kTooLong);
  EXPECT_EQ(pollingFault({168, 60}, {25, 60}), kTooLong);
  EXPECT_EQ(pollingFault({0, 60}, {25, 60}), kMinutes);
  EXPECT_EQ(pollingFault({0, 0}, {25, 60}), kTooShort);
  EXPECT_EQ(pollingFault({1, 0}, {25, 60}), kStartHour);
  EXPECT_EQ(pollingFault({1, 0}, {24, 60}), kStartMinutes);
}

TEST_F(ValidatePollingTest, PassesAtOnceWithoutAgentless) {
  EXPECT_TRUE(ValidatePolling(fake.ui, false, {2, "99", "99"}));
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(ValidatePollingTest, TakesMidnightAs24ButNothingBehindIt) {
  EXPECT_TRUE(ValidatePolling(fake.ui, true, {2, "24", "00"}));
  EXPECT_THAT(fake.journal, IsEmpty());
  EXPECT_FALSE(ValidatePolling(fake.ui, true, {2, "24", "01"}));
  EXPECT_THAT(fake.journal, LinesAre({std::string("MessageBox exclamation: ") + kStartMinutes}));
}

TEST_F(ValidatePollingTest, PassesEveryPlaceOfTheList) {
  for (std::int32_t index = -1; index <= 18; ++index)
    EXPECT_TRUE(ValidatePolling(fake.ui, true, {index, "0", "0"}));
}

}  // namespace
}  // namespace varnhold::deployment
