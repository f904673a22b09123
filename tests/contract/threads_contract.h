#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <concepts>
#include <cstdint>
#include <thread>

#include "platform/threads.h"

/// What every `Threads` does. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ThreadsContract, WindowsThreadsHost);
namespace varnhold::contract {

template <class Host>
concept ThreadsHost = std::default_initializable<Host> && requires(Host host, std::uint32_t exitCode) {
  { host.threads() } -> std::convertible_to<platform::Threads&>;
  /// A thread that ends by itself with this code; the handle is the caller's.
  { host.startThatEndsWith(exitCode) } -> std::convertible_to<platform::ThreadHandle>;
  /// A thread that does not end before the host is destroyed; the handle is the caller's.
  { host.startThatNeverEnds() } -> std::convertible_to<platform::ThreadHandle>;
};

template <ThreadsHost Host>
class ThreadsContract : public ::testing::Test {
 protected:
  platform::Threads& threads() { return host_.threads(); }

  /// Polls until the thread has ended; kStillActive when it has not after ten seconds.
  std::uint32_t waitFor(platform::ThreadHandle thread) {
    std::uint32_t code = platform::kStillActive;
    for (int polls = 0; polls < 5000 && code == platform::kStillActive; ++polls) {
      if (!threads().getExitCodeThread(thread, code)) break;
      if (code == platform::kStillActive) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return code;
  }

  Host host_;
};

TYPED_TEST_SUITE_P(ThreadsContract);

TYPED_TEST_P(ThreadsContract, TellsTheExitCodeOfAnEndedThreadAsOftenAsAsked) {
  const platform::ThreadHandle thread = this->host_.startThatEndsWith(1150);
  ASSERT_NE(thread, 0u);
  EXPECT_EQ(this->waitFor(thread), 1150u);
  EXPECT_EQ(this->waitFor(thread), 1150u);
  this->threads().closeHandle(thread);
}

TYPED_TEST_P(ThreadsContract, KeepsCodesOfAllThirtyTwoBits) {
  for (const std::uint32_t code : {0u, 1u, 1000u, 0xFFFFFFFFu}) {
    const platform::ThreadHandle thread = this->host_.startThatEndsWith(code);
    EXPECT_EQ(this->waitFor(thread), code);
    this->threads().closeHandle(thread);
  }
}

TYPED_TEST_P(ThreadsContract, SaysStillActiveOfAThreadThatRuns) {
  const platform::ThreadHandle thread = this->host_.startThatNeverEnds();
  std::uint32_t code = 0;
  ASSERT_TRUE(this->threads().getExitCodeThread(thread, code));
  EXPECT_EQ(code, 259u);
  this->threads().closeHandle(thread);
}

TYPED_TEST_P(ThreadsContract, FailsWithoutAThreadAndLeavesTheCode) {
  std::uint32_t code = 42;
  EXPECT_FALSE(this->threads().getExitCodeThread(0, code));
  EXPECT_EQ(code, 42u);
}

TYPED_TEST_P(ThreadsContract, EndsARunningThreadWithTheGivenCode) {
  const platform::ThreadHandle thread = this->host_.startThatNeverEnds();
  EXPECT_TRUE(this->threads().terminateThread(thread, 7));
  EXPECT_EQ(this->waitFor(thread), 7u);
  this->threads().closeHandle(thread);
}

TYPED_TEST_P(ThreadsContract, LeavesAnEndedThreadItsCode) {
  const platform::ThreadHandle thread = this->host_.startThatEndsWith(1000);
  ASSERT_EQ(this->waitFor(thread), 1000u);
  this->threads().terminateThread(thread, 7);
  EXPECT_EQ(this->waitFor(thread), 1000u);
  this->threads().closeHandle(thread);
}

TYPED_TEST_P(ThreadsContract, EndsNothingWhereThereIsNoThread) {
  EXPECT_FALSE(this->threads().terminateThread(0, 0));
}

REGISTER_TYPED_TEST_SUITE_P(ThreadsContract, TellsTheExitCodeOfAnEndedThreadAsOftenAsAsked,
                            KeepsCodesOfAllThirtyTwoBits, SaysStillActiveOfAThreadThatRuns,
                            FailsWithoutAThreadAndLeavesTheCode, EndsARunningThreadWithTheGivenCode,
                            LeavesAnEndedThreadItsCode, EndsNothingWhereThereIsNoThread);

}  // namespace varnhold::contract
