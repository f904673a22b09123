#include "base/text.h"
#include "core/mdCommon.h"

namespace varnhold::core {
namespace {

/// Year, month and the others as bare numbers: no leading zeros.
std::string probeFileName(const platform::LocalTime& time) {
  const auto number = [](int value) { return std::to_string(value); };
  return number(time.year) + "-" + number(time.month) + "-" + number(time.day) + "_" + number(time.hour) +
         "-" + number(time.minute) + "-" + number(time.second) + ".tmp";
}

}  // namespace

bool CanAccessEventLog(platform::EventLog& eventLog, const std::string& computer) {
  std::uint32_t error = 0;
  return CanAccessEventLog(eventLog, computer, error);
}

bool CanAccessEventLog(platform::EventLog& eventLog, const std::string& computer, std::uint32_t& error) {
  const auto handle = eventLog.openEventLog(R"(\\)" + computer, "Security", error);
  if (handle == 0) return false;
  eventLog.closeEventLog(handle);
  return true;
}

bool CanWriteAdminShare(Host& host, const std::string& computer) {
  std::string programFiles;
  if (!host.libraries.qrvChkRmtRegNGetPrgFilePath(computer, programFiles)) return false;
  const auto share = R"(\\)" + computer + R"(\)" + TrimAtNull(programFiles).substr(0, 1) + "$";
  const auto file = share + R"(\)" + probeFileName(host.clock.getLocalTime());
  if (!host.files.createProbe(file)) return false;
  host.files.remove(file);
  return true;
}

bool CanReachComputer(Host& host, const std::string& computer) {
  std::uint32_t error = 0;
  return CanReachComputer(host, computer, error);
}

bool CanReachComputer(Host& host, const std::string& computer, std::uint32_t& error) {
  return CanWriteAdminShare(host, computer) && CanAccessEventLog(host.eventLog, computer, error);
}

}  // namespace varnhold::core
