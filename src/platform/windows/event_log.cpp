#include "platform/event_log.h"

#include <windows.h>

#include <array>

#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

constexpr DWORD kFormatFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
static_assert(kFormatFlags == 4608);

class WindowsEventLog : public EventLog {
 public:
  EventLogHandle openEventLog(const std::string& server, const std::string& source,
                              std::uint32_t& error) override {
    auto* const log = OpenEventLogW(toWide(server).c_str(), toWide(source).c_str());
    if (log == nullptr) error = GetLastError();
    return reinterpret_cast<EventLogHandle>(log);
  }

  void closeEventLog(EventLogHandle handle) override {
    CloseEventLog(reinterpret_cast<HANDLE>(handle));  // NOLINT(performance-no-int-to-ptr)
  }

  std::optional<std::string> formatMessage(std::uint32_t number, std::uint32_t& error) override {
    std::array<wchar_t, 255> buffer{};
    const auto length =
        FormatMessageW(kFormatFlags, nullptr, number, 0, buffer.data(), buffer.size(), nullptr);
    if (length != 0) return fromWide({buffer.data(), length});
    error = GetLastError();
    return std::nullopt;
  }
};

}  // namespace

std::unique_ptr<EventLog> makeEventLog() {
  return std::make_unique<WindowsEventLog>();
}

}  // namespace varnhold::platform::windows
