#pragma once

#include <cstddef>
#include <cstdint>

namespace varnhold::platform {

/// The process heap, for the routines that tell what they do when it is used up. Main thread.
class Heap {
 public:
  virtual ~Heap() = default;

  /// HeapAlloc with flag 8: `bytes` zeroed bytes, none included; null when there are not that many left.
  [[nodiscard]] virtual std::uint8_t* heapAlloc(std::size_t bytes) = 0;
  /// HeapFree. Null is allowed.
  virtual void heapFree(std::uint8_t* memory) = 0;
};

/// Owns memory of a `Heap` and gives it back.
class OwnedHeapMemory {
 public:
  OwnedHeapMemory(Heap& heap, std::size_t bytes) : heap_(heap), memory_(heap.heapAlloc(bytes)) {}
  ~OwnedHeapMemory() {
    if (memory_ != nullptr) heap_.heapFree(memory_);
  }
  OwnedHeapMemory(const OwnedHeapMemory&) = delete;
  OwnedHeapMemory& operator=(const OwnedHeapMemory&) = delete;

  explicit operator bool() const { return memory_ != nullptr; }
  [[nodiscard]] std::uint8_t* get() const { return memory_; }

 private:
  Heap& heap_;
  std::uint8_t* memory_;
};

}  // namespace varnhold::platform
