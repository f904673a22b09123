#pragma once

#include <cstdint>

#include "companion/ini_text.h"

/// The mode of an agent, as a number in a job and as a key of the agent's configuration.
namespace varnhold::companion {

inline constexpr std::int32_t kStandardMode = 1, kHighPerformanceMode = 5;

inline void setHighPerformance(IniText& configuration, bool isOn) {
  configuration.setValue("Performance", "HighPerformance", isOn ? "1" : "0");
}

[[nodiscard]] inline bool isHighPerformance(const IniText& configuration) {
  return configuration.value("Performance", "HighPerformance") == "1";
}

}  // namespace varnhold::companion
