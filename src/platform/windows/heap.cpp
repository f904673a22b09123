#include "platform/heap.h"

#include <windows.h>

#include "platform/windows/adapters.h"

namespace varnhold::platform::windows {
namespace {

class ProcessHeap : public Heap {
 public:
  std::uint8_t* heapAlloc(std::size_t bytes) override {
    return static_cast<std::uint8_t*>(HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, bytes));
  }
  void heapFree(std::uint8_t* memory) override { HeapFree(GetProcessHeap(), 0, memory); }
};

}  // namespace

std::unique_ptr<Heap> makeHeap() {
  return std::make_unique<ProcessHeap>();
}

}  // namespace varnhold::platform::windows
