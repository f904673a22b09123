#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

class CompanionThreads : public Threads {
 public:
  explicit CompanionThreads(CompanionLibrary& companion) : companion_(companion) {}

  bool getExitCodeThread(ThreadHandle thread, std::uint32_t& exitCode) override {
    const auto ask = companion_.function<decltype(qrvHostGetExitCodeThread)>("qrvHostGetExitCodeThread");
    std::uint32_t code = 0;
    if (ask(reinterpret_cast<QrvThread>(thread), &code) == 0) return false;
    exitCode = code;
    return true;
  }

  bool terminateThread(ThreadHandle thread, std::uint32_t exitCode) override {
    const auto end = companion_.function<decltype(qrvHostTerminateThread)>("qrvHostTerminateThread");
    return end(reinterpret_cast<QrvThread>(thread), exitCode) != 0;
  }

  void closeHandle(ThreadHandle thread) override {
    companion_.function<decltype(qrvHostCloseHandle)>("qrvHostCloseHandle")(
        reinterpret_cast<QrvThread>(thread));
  }

 private:
  CompanionLibrary& companion_;
};

}  // namespace

std::unique_ptr<Threads> makeThreads(CompanionLibrary& companion) {
  return std::make_unique<CompanionThreads>(companion);
}

}  // namespace varnhold::platform::posix
