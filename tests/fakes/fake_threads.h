#pragma once

#include <map>
#include <set>

#include "platform/threads.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// Worker threads that end after a number of polls. Journal lines: `GetExitCodeThread 7 -> 259` (or `->
/// fails`), `CloseHandle 7`, `TerminateThread 7 0`.
class FakeThreads : public platform::Threads {
 public:
  explicit FakeThreads(Journal& journal) : journal_(journal) {}

  /// A thread that still runs at the next `polls` polls and then has ended with `exitCode`. The first is 7.
  [[nodiscard]] platform::ThreadHandle start(std::uint32_t exitCode, int polls = 0);

  bool failsGetExitCode = false;

  [[nodiscard]] const std::set<platform::ThreadHandle>& openHandles() const { return openHandles_; }

  bool getExitCodeThread(platform::ThreadHandle thread, std::uint32_t& exitCode) override;
  bool terminateThread(platform::ThreadHandle thread, std::uint32_t exitCode) override;
  void closeHandle(platform::ThreadHandle thread) override;

 private:
  struct Thread {
    std::uint32_t exitCode;
    int pollsLeft;
  };

  Journal& journal_;
  platform::ThreadHandle next_ = 7;
  std::map<platform::ThreadHandle, Thread> threads_;
  std::set<platform::ThreadHandle> openHandles_;
};

}  // namespace varnhold::fakes
