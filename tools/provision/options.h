#pragma once

#include <optional>
#include <string>
#include <vector>

namespace varnhold::provision {

inline constexpr int kDefaultLabComputers = 12;
inline constexpr int kMostLabComputers = 10'000;         ///< a folder each: more serves nobody
inline constexpr int kMostInventoryComputers = 999'999;  ///< what the six digits of their names hold

/// What was asked for on the command line.
struct Options {
  std::optional<std::string> home;  ///< as typed; none: the host's own home
  int labComputers = kDefaultLabComputers;
  int inventoryComputers = 0;
  bool help = false;
};

struct ParsedOptions {
  Options options;
  std::string error;  ///< empty when the arguments make sense; else what is wrong and with which argument
};

/// Reads the arguments, without the program's name (UTF-8). A value follows its option as the next argument
/// or behind `=`. `--help` anywhere wins over every mistake.
[[nodiscard]] ParsedOptions parseOptions(const std::vector<std::string>& arguments);

/// The text of `--help`, and what follows an error.
[[nodiscard]] std::string usage();

}  // namespace varnhold::provision
