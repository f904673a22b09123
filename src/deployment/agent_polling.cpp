#include "deployment/agent_polling.h"

#include <charconv>
#include <cstdlib>
#include <limits>

#include "base/text.h"
#include "core/mdCommon.h"

namespace varnhold::deployment {
namespace {

using platform::RegistryHive;
using platform::RegistryOutcome;

constexpr std::size_t kBufferSize = 32;
constexpr std::int32_t kHour = 2;  ///< place of "1 hour" in the list

struct StoredTime {
  const char* valueName;
  const char* saveFault;
};
constexpr StoredTime kFrequency{"gPollingFreq", "Could not save the polling frequency."};
constexpr StoredTime kStartTime{"gPollStartTime", "Could not save the poll start time."};

/// The whole number at the beginning of a text, 0 when there is none; beyond 32 bits the nearest one.
std::int32_t leadingNumber(std::string_view text) {
  const auto start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  std::int32_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc::result_out_of_range) return number;
  using Limits = std::numeric_limits<std::int32_t>;
  return text.front() == '-' ? Limits::min() : Limits::max();
}

void readTime(platform::Registry& registry, const StoredTime& stored, HoursMinutes& time) {
  platform::RegistryValue value;
  if (registry.query(RegistryHive::LocalMachine, core::kAgentKey, stored.valueName, kBufferSize, value) !=
      RegistryOutcome::Done) {
    return;
  }
  const auto colon = value.bytes.find(':');
  if (colon == std::string::npos) return;
  const std::string_view text = value.bytes;
  time.hours = leadingNumber(text.substr(0, colon));
  time.minutes = leadingNumber(text.substr(colon + 1));
}

void writeTime(platform::Registry& registry, platform::Ui& ui, const StoredTime& stored, HoursMinutes time) {
  const auto text = std::to_string(time.hours) + ":" + std::to_string(time.minutes);
  const auto outcome =
      registry.set(RegistryHive::LocalMachine, core::kAgentKey, stored.valueName, {platform::kRegText, text});
  if (outcome == RegistryOutcome::Done || outcome == RegistryOutcome::KeyMissing) return;
  ui.messageBox(stored.saveFault, platform::MessageIcon::Critical);
}

std::string twoDigits(std::int32_t number) {
  const auto digits = std::to_string(std::abs(std::int64_t{number}));
  return (number < 0 ? "-" : "") + std::string(digits.size() == 1 ? "0" : "") + digits;
}

HoursMinutes startTimeOf(const PollingControls& controls) {
  return {leadingNumber(controls.txtStartHour), leadingNumber(controls.txtStartMin)};
}

struct Rule {
  bool (*fails)(HoursMinutes frequency, HoursMinutes start);
  std::string_view text;
};

// The first limit is 168 hours while its text says 24, and no place of the list fails the first four: both
// stay.
constexpr std::array<Rule, 7> kRules{{
    {[](HoursMinutes frequency, HoursMinutes) { return frequency.hours > 168; },
     "Polling interval cannot be greater than 24 hours."},
    {[](HoursMinutes frequency, HoursMinutes) { return frequency.hours == 168 && frequency.minutes > 0; },
     "Polling interval cannot be greater than 24 hours."},
    {[](HoursMinutes frequency, HoursMinutes) { return frequency.minutes > 59; },
     "Value of minutes cannot be greater than 59."},
    {[](HoursMinutes frequency, HoursMinutes) { return frequency.hours < 1 && frequency.minutes < 15; },
     "Polling interval cannot be less than 15 minutes."},
    {[](HoursMinutes, HoursMinutes start) { return start.hours > 24; },
     "Start time is in the HH:MM format and value of hour cannot be greater than 24 hours."},
    {[](HoursMinutes, HoursMinutes start) { return start.hours == 24 && start.minutes > 0; },
     "Start time is in the HH:MM format and value of minutes cannot be greater than 59."},
    {[](HoursMinutes, HoursMinutes start) { return start.minutes > 59; },
     "Value of minutes cannot be greater than 59."},
}};

}  // namespace

void ReadPollingFrequency(platform::Registry& registry, HoursMinutes& frequency) {
  frequency.hours = 1;
  readTime(registry, kFrequency, frequency);
}

void ReadPollStartTime(platform::Registry& registry, HoursMinutes& startTime) {
  readTime(registry, kStartTime, startTime);
}

void WritePollingFrequency(platform::Registry& registry, platform::Ui& ui, HoursMinutes frequency) {
  writeTime(registry, ui, kFrequency, frequency);
}

void WritePollStartTime(platform::Registry& registry, platform::Ui& ui, HoursMinutes startTime) {
  writeTime(registry, ui, kStartTime, startTime);
}

std::int32_t pollFrequencyIndex(HoursMinutes frequency) {
  if (frequency.minutes == 15) return 0;
  if (frequency.minutes == 30) return 1;
  for (std::size_t place = kHour; place < kPollFrequencies.size(); ++place) {
    if (kPollFrequencies[place].interval.hours == frequency.hours) return static_cast<std::int32_t>(place);
  }
  return kHour;
}

HoursMinutes pollFrequencyAt(std::int32_t index, std::int32_t minutesAsLeft) {
  const auto place = static_cast<std::size_t>(index);
  return place < kPollFrequencies.size() ? kPollFrequencies[place].interval : HoursMinutes{1, minutesAsLeft};
}

PollingControls ShowCurrentPolling(platform::Registry& registry) {
  HoursMinutes frequency;
  HoursMinutes startTime;
  ReadPollingFrequency(registry, frequency);
  ReadPollStartTime(registry, startTime);
  return {pollFrequencyIndex(frequency), twoDigits(startTime.hours), twoDigits(startTime.minutes)};
}

void SavePollingSettings(platform::Registry& registry, platform::Ui& ui, const PollingControls& controls) {
  WritePollingFrequency(registry, ui, pollFrequencyAt(controls.cboPollFreq));
  WritePollStartTime(registry, ui, startTimeOf(controls));
}

std::optional<std::string_view> pollingFault(HoursMinutes frequency, HoursMinutes startTime) {
  for (const auto& rule : kRules) {
    if (rule.fails(frequency, startTime)) return rule.text;
  }
  return std::nullopt;
}

bool ValidatePolling(platform::Ui& ui, bool optAgentless, const PollingControls& controls) {
  if (!optAgentless) return true;
  const auto fault = pollingFault(pollFrequencyAt(controls.cboPollFreq), startTimeOf(controls));
  if (fault) ui.messageBox(std::string(*fault), platform::MessageIcon::Exclamation);
  return !fault;
}

}  // namespace varnhold::deployment
