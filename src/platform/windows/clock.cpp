#include "platform/clock.h"

#include <windows.h>

#include "platform/windows/adapters.h"

namespace varnhold::platform::windows {
namespace {

class WindowsClock : public Clock {
 public:
  void sleep(std::uint32_t milliseconds) override { Sleep(milliseconds); }

  LocalTime getLocalTime() override {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
  }
};

}  // namespace

std::unique_ptr<Clock> makeClock() {
  return std::make_unique<WindowsClock>();
}

}  // namespace varnhold::platform::windows
