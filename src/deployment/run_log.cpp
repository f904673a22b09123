#include "deployment/run_log.h"

#include <array>
#include <cstdio>

#include "deployment/file_error.h"

namespace varnhold::deployment {
namespace {

std::string logIn(const std::string& folder) {
  return folder + "\\" + std::string(kRunLogFile);
}

void append(platform::Files& files, const std::string& path, std::string_view bytes) {
  const auto outcome = files.append(path, bytes);
  if (outcome != platform::FileOutcome::Done) throw fileError(outcome, "write", path);
}

}  // namespace

void ResetDeploymentLog(core::Program& program) {
  const auto path = logIn(program.gAppPath);
  const auto outcome = program.host.files.remove(path);
  if (outcome != platform::FileOutcome::Done && outcome != platform::FileOutcome::NotFound) {
    throw fileError(outcome, "delete", path);
  }
}

void AppendDeploymentLog(core::Program& program, std::string_view text) {
  append(program.host.files, logIn(program.gInstallerDir), "\"" + std::string(text) + "\"\r\n");
}

void appendLogLines(platform::Files& files, const std::string& folder,
                    const std::vector<std::string>& lines) {
  std::string bytes;
  for (const auto& line : lines) bytes.append(line).append("\r\n");
  append(files, logIn(folder), bytes);
}

std::string stampedLine(const platform::LocalTime& time, std::string_view message) {
  return formatTimeStamp(time).append(" :: ").append(message);
}

std::string formatTimeStamp(const platform::LocalTime& time) {
  const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
  std::array<char, 96> text{};
  std::snprintf(text.data(), text.size(), "%d/%d/%d %d:%02d:%02d %s", time.month, time.day, time.year, hour,
                time.minute, time.second, time.hour < 12 ? "AM" : "PM");
  return text.data();
}

}  // namespace varnhold::deployment
