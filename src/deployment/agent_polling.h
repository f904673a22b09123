#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/registry.h"
#include "platform/ui.h"

/// How often, and counted from which time of day, the manager's own agent polls agentless systems. The values
/// live in the agent's registry key as `hours:minutes`. Main thread; a damaged registry raises the error of
/// `platform::Registry`.
namespace varnhold::deployment {

/// A polling interval or a time of day.
struct HoursMinutes {
  std::int32_t hours = 0;
  std::int32_t minutes = 0;

  friend bool operator==(const HoursMinutes&, const HoursMinutes&) = default;
};

struct PollFrequency {
  std::string_view caption;
  HoursMinutes interval;
};

/// The list of `cboPollFreq`; the place in it decides the interval.
inline constexpr std::array<PollFrequency, 18> kPollFrequencies{{
    {"15 minutes", {0, 15}},
    {"30 minutes", {0, 30}},
    {"1 hour", {1, 0}},
    {"2 hours", {2, 0}},
    {"3 hours", {3, 0}},
    {"4 hours", {4, 0}},
    {"5 hours", {5, 0}},
    {"6 hours", {6, 0}},
    {"7 hours", {7, 0}},
    {"8 hours", {8, 0}},
    {"9 hours", {9, 0}},
    {"10 hours", {10, 0}},
    {"11 hours", {11, 0}},
    {"12 hours", {12, 0}},
    {"Daily", {24, 0}},
    {"2 days", {48, 0}},
    {"4 days", {96, 0}},
    {"Weekly", {168, 0}},
}};

/// Reads `gPollingFreq` over `frequency`; hours are 1 first, so that a missing value reads as 1 hour. A value
/// that cannot be read, has more than 32 bytes or holds no ":" leaves the numbers; what is no number counts
/// as 0.
void ReadPollingFrequency(platform::Registry& registry, HoursMinutes& frequency);
/// Reads `gPollStartTime` over `startTime`, which stays as it is where the above leaves the numbers.
void ReadPollStartTime(platform::Registry& registry, HoursMinutes& startTime);

/// Writes `gPollingFreq`. A missing key is passed over in silence; a refused write shows a critical message.
void WritePollingFrequency(platform::Registry& registry, platform::Ui& ui, HoursMinutes frequency);
/// Writes `gPollStartTime` in the same way.
void WritePollStartTime(platform::Registry& registry, platform::Ui& ui, HoursMinutes startTime);

/// The controls of the agentless options.
struct PollingControls {
  std::int32_t cboPollFreq = 0;  ///< index into `kPollFrequencies`, -1 for none
  std::string txtStartHour = "00";
  std::string txtStartMin = "00";

  friend bool operator==(const PollingControls&, const PollingControls&) = default;
};

/// The place of an interval in the list: 1 hour where it has none, except that 15 and 30 minutes win over any
/// hours.
[[nodiscard]] std::int32_t pollFrequencyIndex(HoursMinutes frequency);
/// The interval of a place in the list; 1 hour and `minutesAsLeft` for an index that is not in it.
[[nodiscard]] HoursMinutes pollFrequencyAt(std::int32_t index, std::int32_t minutesAsLeft = 0);

/// What the controls show for what the registry holds.
[[nodiscard]] PollingControls ShowCurrentPolling(platform::Registry& registry);
/// Writes what the controls hold. Text that is no number counts as 0.
void SavePollingSettings(platform::Registry& registry, platform::Ui& ui, const PollingControls& controls);

/// The text for the first test that the settings fail, in their fixed order; nothing when they pass.
[[nodiscard]] std::optional<std::string_view> pollingFault(HoursMinutes frequency, HoursMinutes startTime);
/// True when agentless is not chosen or the controls pass; otherwise shows the fault with an exclamation
/// icon.
[[nodiscard]] bool ValidatePolling(platform::Ui& ui, bool optAgentless, const PollingControls& controls);

}  // namespace varnhold::deployment
