#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/event_log.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// Event logs in memory. Journal lines: `OpenEventLog \\NAME Security -> 1` (or `-> 0, error 5`),
/// `CloseEventLog 1`, `FormatMessage 5`.
class FakeEventLog : public platform::EventLog {
 public:
  explicit FakeEventLog(Journal& journal) : journal_(journal) {}

  std::map<std::string, std::uint32_t>
      refused;  ///< by server (`\\NAME`): the error its logs are refused with
  std::map<std::uint32_t, std::string> messages;  ///< the host's words by error number
  std::uint32_t formatError = 317;                ///< left by `formatMessage` where there are no words

  [[nodiscard]] const std::set<platform::EventLogHandle>& openHandles() const { return openHandles_; }

  platform::EventLogHandle openEventLog(const std::string& server, const std::string& source,
                                        std::uint32_t& error) override;
  void closeEventLog(platform::EventLogHandle handle) override;
  std::optional<std::string> formatMessage(std::uint32_t number, std::uint32_t& error) override;

 private:
  Journal& journal_;
  platform::EventLogHandle last_ = 0;
  std::set<platform::EventLogHandle> openHandles_;
};

}  // namespace varnhold::fakes
