#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/accounts.h"
#include "platform/heap.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// Accounts in memory. Journal line: `LookupAccountName <system> <account> room 1 and 0 -> 0` (1 when it was
/// found and both buffers had room).
class FakeAccounts : public platform::Accounts {
 public:
  explicit FakeAccounts(Journal& journal) : journal_(journal) {}

  struct Account {
    std::vector<std::uint8_t> sid;
    std::string domain;
  };
  std::map<std::string, Account> accounts;  ///< by name in upper case
  std::set<std::string> unreachable;        ///< systems that do not answer

  bool lookupAccountName(const std::string& system, const std::string& account,
                         platform::AccountBuffers& buffers) override;

 private:
  Journal& journal_;
};

/// A heap that can be used up. Journal lines: `HeapAlloc 36 -> 1` (the number of the allocation, 0 for none),
/// `HeapFree 1`.
class FakeHeap : public platform::Heap {
 public:
  explicit FakeHeap(Journal& journal) : journal_(journal) {}

  std::set<int> refused;  ///< the allocations that fail, counted from 1

  /// How many were made and not given back.
  [[nodiscard]] std::size_t live() const { return live_.size(); }

  std::uint8_t* heapAlloc(std::size_t bytes) override;
  void heapFree(std::uint8_t* memory) override;

 private:
  struct Allocation {
    int number;
    std::vector<std::uint8_t> memory;
  };

  Journal& journal_;
  int last_ = 0;
  std::map<const std::uint8_t*, Allocation> live_;
};

}  // namespace varnhold::fakes
