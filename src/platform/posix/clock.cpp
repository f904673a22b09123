#include <ctime>
#include <thread>

#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

class SystemClock : public Clock {
 public:
  void sleep(std::uint32_t milliseconds) override {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }

  LocalTime getLocalTime() override {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
  }
};

}  // namespace

std::unique_ptr<Clock> makeClock() {
  return std::make_unique<SystemClock>();
}

}  // namespace varnhold::platform::posix
