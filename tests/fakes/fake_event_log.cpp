#include "tests/fakes/fake_event_log.h"

namespace varnhold::fakes {

platform::EventLogHandle FakeEventLog::openEventLog(const std::string& server, const std::string& source,
                                                    std::uint32_t& error) {
  const auto line = "OpenEventLog " + server + " " + source + " -> ";
  if (const auto found = refused.find(server); found != refused.end()) {
    error = found->second;
    journal_.push_back(line + "0, error " + std::to_string(error));
    return 0;
  }
  openHandles_.insert(++last_);
  journal_.push_back(line + std::to_string(last_));
  return last_;
}

void FakeEventLog::closeEventLog(platform::EventLogHandle handle) {
  openHandles_.erase(handle);
  journal_.push_back("CloseEventLog " + std::to_string(handle));
}

std::optional<std::string> FakeEventLog::formatMessage(std::uint32_t number, std::uint32_t& error) {
  journal_.push_back("FormatMessage " + std::to_string(number));
  if (const auto found = messages.find(number); found != messages.end()) return found->second;
  error = formatError;
  return {};
}

}  // namespace varnhold::fakes
