#include "deployment/security_log_check.h"

#include <string>

#include "base/text.h"
#include "deployment/run_log.h"

namespace varnhold::deployment {
namespace {

class OwnedEventLog {
 public:
  OwnedEventLog(platform::EventLog& eventLog, platform::EventLogHandle handle)
      : eventLog_(eventLog), handle_(handle) {}
  ~OwnedEventLog() {
    if (handle_ != 0) eventLog_.closeEventLog(handle_);
  }
  OwnedEventLog(const OwnedEventLog&) = delete;
  OwnedEventLog& operator=(const OwnedEventLog&) = delete;

  explicit operator bool() const { return handle_ != 0; }

 private:
  platform::EventLog& eventLog_;
  platform::EventLogHandle handle_;
};

void reportFault(core::Program& program, RunScreen& screen, std::int32_t row, std::uint32_t error) {
  screen.setErrorsSeen();
  const auto report = skipReport(program, screen.systemName(row), error);
  AppendDeploymentLog(program, report.logged);
  screen.setStatus(row, report.status);
}

}  // namespace

SkipReport skipReport(core::Program& program, const std::string& systemName, std::uint32_t error) {
  const auto logged = "Skipped: " + systemName + " - ";
  std::uint32_t formatError = 0;
  const auto words = program.host.eventLog.formatMessage(error, formatError);
  if (!words)
    return {logged + "Error in Format String -" + std::to_string(formatError),
            "Skipped: Due to unknown error. Refer to error log"};
  const auto text = replaceAll(TrimAtNull(*words), "\r\n", "");
  return {logged + text, "Skipped: " + text};
}

bool CheckRemoteSecurityLog(core::Program& program, RunScreen& screen, std::int32_t row) {
  auto& eventLog = program.host.eventLog;
  std::uint32_t error = 0;
  const OwnedEventLog log(eventLog,
                          eventLog.openEventLog("\\\\" + screen.systemName(row), "Security", error));
  if (!log) reportFault(program, screen, row, error);
  screen.pumpEvents();
  screen.refresh();
  return static_cast<bool>(log);
}

}  // namespace varnhold::deployment
