#include "platform/formats/system_messages.h"
#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

constexpr std::uint32_t kMessageNotFound = 317;  // winerror.h ERROR_MR_MID_NOT_FOUND

class CompanionEventLog : public EventLog {
 public:
  explicit CompanionEventLog(CompanionLibrary& companion) : companion_(companion) {}

  EventLogHandle openEventLog(const std::string& server, const std::string& source,
                              std::uint32_t& error) override {
    const auto open = companion_.function<decltype(qrvHostOpenEventLog)>("qrvHostOpenEventLog");
    const auto result = open(server.c_str(), source.c_str());
    if (result == 0) return ++last_;
    error = result;
    return 0;
  }

  /// The companion answers whether a log can be opened and keeps none open.
  void closeEventLog(EventLogHandle) override {}

  std::optional<std::string> formatMessage(std::uint32_t number, std::uint32_t& error) override {
    auto text = systemMessage(number);
    if (!text) error = kMessageNotFound;
    return text;
  }

 private:
  CompanionLibrary& companion_;
  EventLogHandle last_ = 0;
};

}  // namespace

std::unique_ptr<EventLog> makeEventLog(CompanionLibrary& companion) {
  return std::make_unique<CompanionEventLog>(companion);
}

}  // namespace varnhold::platform::posix
