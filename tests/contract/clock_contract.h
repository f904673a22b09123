#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <concepts>
#include <cstdint>

#include "platform/clock.h"

/// What every `Clock` does, the fake included. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ClockContract, PosixClockHost);
namespace varnhold::contract {

template <class Host>
concept ClockHost = std::default_initializable<Host> && requires(Host host) {
  { host.clock() } -> std::convertible_to<platform::Clock&>;
  /// Milliseconds of the time in which the clock sleeps: steady time for a real one, the made-up time of a
  /// fake.
  { host.elapsedMs() } -> std::convertible_to<std::uint64_t>;
};

template <ClockHost Host>
class ClockContract : public ::testing::Test {
 protected:
  Host host_;
};

TYPED_TEST_SUITE_P(ClockContract);

TYPED_TEST_P(ClockContract, TellsADayOfTheCalendarAndATimeOfTheDay) {
  const auto now = this->host_.clock().getLocalTime();
  const std::chrono::year_month_day day{std::chrono::year{now.year},
                                        std::chrono::month{static_cast<unsigned>(now.month)},
                                        std::chrono::day{static_cast<unsigned>(now.day)}};
  EXPECT_TRUE(day.ok()) << now.year << '-' << now.month << '-' << now.day;
  EXPECT_TRUE(now.hour >= 0 && now.hour <= 23) << now.hour;
  EXPECT_TRUE(now.minute >= 0 && now.minute <= 59) << now.minute;
  EXPECT_TRUE(now.second >= 0 && now.second <= 60) << now.second;
}

TYPED_TEST_P(ClockContract, SleepsNoLessThanAsked) {
  const std::uint64_t before = this->host_.elapsedMs();
  this->host_.clock().sleep(20);
  EXPECT_GE(this->host_.elapsedMs() - before, 20u);
}

TYPED_TEST_P(ClockContract, ReturnsFromASleepOfNothing) {
  const std::uint64_t before = this->host_.elapsedMs();
  this->host_.clock().sleep(0);
  EXPECT_LT(this->host_.elapsedMs() - before, 1000u);
}

REGISTER_TYPED_TEST_SUITE_P(ClockContract, TellsADayOfTheCalendarAndATimeOfTheDay, SleepsNoLessThanAsked,
                            ReturnsFromASleepOfNothing);

}  // namespace varnhold::contract
