#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Reading the command line and the list files of the command-line installer. Pure functions of their text,
/// any thread.
namespace varnhold::startup {

/// What the command-line installer does with each computer. 4, install in high performance mode, is handled
/// by the installer too, but no switch sets it.
enum CliAction : std::int32_t { kCliInstall = 1, kCliUninstall = 2, kCliInstallHighPerformance = 4 };

/// Where the agent goes when the command line names no path; the library expands it on the target.
inline constexpr std::string_view kDefaultInstallPath = R"(%Program Files%\Kelmont Works\Varnhold)";

enum class CommandLineKind {
  Usage,       ///< no action or no target
  EmptyValue,  ///< a target switch with nothing behind it
  Run,
};

enum class TargetKind { Name, File };

/// A command line, all in upper case. `action` is 0 where there was none; `target` counts from EmptyValue on,
/// `value` and `path` count for Run only and stand untrimmed.
struct CommandLine {
  CommandLineKind kind = CommandLineKind::Usage;
  std::int32_t action = 0;
  TargetKind target = TargetKind::Name;
  std::string value;
  std::string path;
};

/// Reads the text behind the program's name. Switches are searched anywhere, inside other words too,
/// deliberately: a computer named "X-IB" makes an uninstall an install. "-N:" wins over "-F:"; "-P:" takes
/// all up to the end. Raises kInvalidProcedureCall for a "-P:" in front of the target.
[[nodiscard]] CommandLine parseCommandLine(std::string_view text);

/// The computers of a list file: lines end at CR, LF or CR LF and are trimmed, commas part further names, and
/// one empty name stands at the end. Text is UTF-8, with or without a byte order mark, or UTF-16 (lowest byte
/// first) with one. Names keep their blanks at commas and their letters' case.
[[nodiscard]] std::vector<std::string> computersOfList(std::string_view content);

}  // namespace varnhold::startup
