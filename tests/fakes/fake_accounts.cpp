#include "tests/fakes/fake_accounts.h"

#include <algorithm>

#include "base/text.h"

namespace varnhold::fakes {

bool FakeAccounts::lookupAccountName(const std::string& system, const std::string& account,
                                     platform::AccountBuffers& buffers) {
  auto line = "LookupAccountName " + system + " " + account + " room " + std::to_string(buffers.sid.size()) +
              " and " + std::to_string(buffers.domain.size());
  const auto found = accounts.find(toUpper(account));
  const bool isKnown = found != accounts.end() && !unreachable.contains(system);
  buffers.sidSize = isKnown ? static_cast<std::uint32_t>(found->second.sid.size()) : 0;
  buffers.domainSize = isKnown ? static_cast<std::uint32_t>(found->second.domain.size() + 1) : 0;
  const bool done =
      isKnown && buffers.sid.size() >= buffers.sidSize && buffers.domain.size() >= buffers.domainSize;
  if (done) {
    std::copy(found->second.sid.begin(), found->second.sid.end(), buffers.sid.begin());
    std::copy(found->second.domain.begin(), found->second.domain.end(), buffers.domain.begin());
  }
  journal_.push_back(line + (done ? " -> 1" : " -> 0"));
  return done;
}

std::uint8_t* FakeHeap::heapAlloc(std::size_t bytes) {
  const auto number = ++last_;
  const bool isRefused = refused.contains(number);
  journal_.push_back("HeapAlloc " + std::to_string(bytes) + " -> " + std::to_string(isRefused ? 0 : number));
  if (isRefused) return nullptr;
  std::vector<std::uint8_t> memory(std::max<std::size_t>(bytes, 1), 0);
  auto* const start = memory.data();
  live_[start] = {number, std::move(memory)};
  return start;
}

void FakeHeap::heapFree(std::uint8_t* memory) {
  const auto found = live_.find(memory);
  journal_.push_back("HeapFree " + std::to_string(found == live_.end() ? 0 : found->second.number));
  if (found != live_.end()) live_.erase(found);
}

}  // namespace varnhold::fakes
