#include "tests/fakes/fake_threads.h"

namespace varnhold::fakes {

platform::ThreadHandle FakeThreads::start(std::uint32_t exitCode, int polls) {
  threads_[next_] = {exitCode, polls};
  openHandles_.insert(next_);
  return next_++;
}

bool FakeThreads::getExitCodeThread(platform::ThreadHandle thread, std::uint32_t& exitCode) {
  const auto line = "GetExitCodeThread " + std::to_string(thread) + " -> ";
  const auto found = threads_.find(thread);
  if (failsGetExitCode || found == threads_.end()) {
    journal_.push_back(line + "fails");
    return false;
  }
  exitCode = found->second.pollsLeft-- > 0 ? platform::kStillActive : found->second.exitCode;
  journal_.push_back(line + std::to_string(exitCode));
  return true;
}

bool FakeThreads::terminateThread(platform::ThreadHandle thread, std::uint32_t exitCode) {
  journal_.push_back("TerminateThread " + std::to_string(thread) + " " + std::to_string(exitCode));
  const auto found = threads_.find(thread);
  if (found == threads_.end()) return false;
  if (found->second.pollsLeft > 0) found->second = {exitCode, 0};
  return true;
}

void FakeThreads::closeHandle(platform::ThreadHandle thread) {
  openHandles_.erase(thread);
  journal_.push_back("CloseHandle " + std::to_string(thread));
}

}  // namespace varnhold::fakes
