#include "startup/command_line.h"

#include <optional>

#include "base/runtime_error.h"
#include "base/text.h"
#include "base/unicode.h"

namespace varnhold::startup {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::size_t kSwitchLength = 3;

bool isBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

bool holds(std::string_view line, std::string_view part) {
  return line.find(part) != std::string_view::npos;
}

std::int32_t actionOf(std::string_view line) {
  if (holds(line, "-I")) return kCliInstall;
  return holds(line, "-U") ? kCliUninstall : 0;
}

std::optional<TargetKind> targetOf(std::string_view line) {
  if (holds(line, "-N:")) return TargetKind::Name;
  return holds(line, "-F:") ? std::optional(TargetKind::File) : std::nullopt;
}

/// Cuts what stands behind the target's switch into value and path.
void readValues(std::string_view line, CommandLine& read) {
  const auto start = line.find(read.target == TargetKind::Name ? "-N:" : "-F:") + kSwitchLength;
  const auto pathSwitch = line.find("-P:");
  if (pathSwitch != std::string_view::npos) {
    if (pathSwitch < start) throw RuntimeError(kInvalidProcedureCall, "Invalid procedure call or argument");
    read.path = line.substr(pathSwitch + kSwitchLength);
    line = line.substr(0, pathSwitch);
  }
  if (isBlank(read.path)) read.path = kDefaultInstallPath;
  read.value = line.substr(start);
}

std::string utf16AsUtf8(std::string_view bytes) {
  std::u16string units;
  units.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]), high = static_cast<unsigned char>(bytes[i + 1]);
    units += static_cast<char16_t>(low | high << 8);
  }
  return fromUtf16(units);
}

}  // namespace

CommandLine parseCommandLine(std::string_view text) {
  const auto line = toUpper(trimBlanks(text));
  CommandLine read;
  read.action = actionOf(line);
  const auto target = targetOf(line);
  if (read.action == 0 || !target) return read;
  read.target = *target;
  readValues(line, read);
  read.kind = isBlank(read.value) ? CommandLineKind::EmptyValue : CommandLineKind::Run;
  return read;
}

std::vector<std::string> computersOfList(std::string_view content) {
  if (content.starts_with(kUtf16Mark)) return computersOfList(utf16AsUtf8(content.substr(kUtf16Mark.size())));
  if (content.starts_with(kUtf8Mark)) content.remove_prefix(kUtf8Mark.size());
  std::vector<std::string> computers;
  while (!content.empty()) {
    const auto end = content.find_first_of("\r\n");
    for (auto& name : split(trimBlanks(content.substr(0, end)), ',')) computers.push_back(std::move(name));
    if (end == std::string_view::npos) break;
    content.remove_prefix(content.substr(end).starts_with("\r\n") ? end + 2 : end + 1);
  }
  computers.emplace_back();
  return computers;
}

}  // namespace varnhold::startup
