#pragma once

#include <gtest/gtest.h>

#include <concepts>

#include "platform/heap.h"

/// What every `Heap` does. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, HeapContract, PosixHeapHost);
namespace varnhold::contract {

template <class Host>
concept HeapHost = std::default_initializable<Host> && requires(Host host) {
  { host.heap() } -> std::convertible_to<platform::Heap&>;
};

template <HeapHost Host>
class HeapContract : public ::testing::Test {
 protected:
  platform::Heap& heap() { return host_.heap(); }

 private:
  Host host_;
};

TYPED_TEST_SUITE_P(HeapContract);

TYPED_TEST_P(HeapContract, GivesZeroedMemoryThatCanBeWritten) {
  const platform::OwnedHeapMemory memory(this->heap(), 4096);
  ASSERT_TRUE(memory);
  for (int i = 0; i < 4096; ++i) ASSERT_EQ(memory.get()[i], 0) << i;
  memory.get()[4095] = 255;
}

TYPED_TEST_P(HeapContract, GivesNoBytesAnAddressToo) {
  const platform::OwnedHeapMemory memory(this->heap(), 0);
  EXPECT_TRUE(memory);
}

REGISTER_TYPED_TEST_SUITE_P(HeapContract, GivesZeroedMemoryThatCanBeWritten, GivesNoBytesAnAddressToo);

}  // namespace varnhold::contract
