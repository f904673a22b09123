#include "platform/heap.h"

#include <cstdlib>

#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

class ProcessHeap : public Heap {
 public:
  std::uint8_t* heapAlloc(std::size_t bytes) override {
    // What calloc gives for no bytes is its own choice.
    return static_cast<std::uint8_t*>(std::calloc(bytes == 0 ? 1 : bytes, 1));
  }
  void heapFree(std::uint8_t* memory) override { std::free(memory); }
};

}  // namespace

std::unique_ptr<Heap> makeHeap() {
  return std::make_unique<ProcessHeap>();
}

}  // namespace varnhold::platform::posix
