#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <cstdint>
#include <string>

#include "platform/event_log.h"

/// What every `EventLog` does. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Windows, EventLogContract, WindowsEventLogHost);
namespace varnhold::contract {

template <class Host>
concept EventLogHost = std::default_initializable<Host> && requires(Host host) {
  { host.eventLog() } -> std::convertible_to<platform::EventLog&>;
  /// The server whose log "Security" can be opened, and one that does not answer.
  { host.server() } -> std::convertible_to<std::string>;
  { host.deadServer() } -> std::convertible_to<std::string>;
};

template <EventLogHost Host>
class EventLogContract : public ::testing::Test {
 protected:
  platform::EventLog& eventLog() { return host_.eventLog(); }

  Host host_;
};

TYPED_TEST_SUITE_P(EventLogContract);

TYPED_TEST_P(EventLogContract, OpensALogAndLeavesTheErrorAlone) {
  std::uint32_t error = 77;
  const auto log = this->eventLog().openEventLog(this->host_.server(), "Security", error);
  EXPECT_NE(log, 0u);
  EXPECT_EQ(error, 77u);
  this->eventLog().closeEventLog(log);
}

TYPED_TEST_P(EventLogContract, SaysWhyALogCannotBeOpened) {
  std::uint32_t error = 0;
  EXPECT_EQ(this->eventLog().openEventLog(this->host_.deadServer(), "Security", error), 0u);
  ASSERT_NE(error, 0u);
  std::uint32_t none = 0;
  EXPECT_TRUE(this->eventLog().formatMessage(error, none).has_value()) << error;
}

TYPED_TEST_P(EventLogContract, HasWordsForTheHostsErrorsThatEndInALineBreak) {
  std::uint32_t error = 77;
  const auto text = this->eventLog().formatMessage(5, error);
  ASSERT_TRUE(text.has_value());
  EXPECT_GT(text->size(), 2u);
  EXPECT_EQ(text->substr(text->size() - 2), "\r\n");
  EXPECT_EQ(error, 77u);
}

TYPED_TEST_P(EventLogContract, HasNoWordsForANumberOfNoError) {
  std::uint32_t error = 0;
  EXPECT_FALSE(this->eventLog().formatMessage(0x2FFFFFFF, error).has_value());
  EXPECT_EQ(error, 317u);  // winerror.h ERROR_MR_MID_NOT_FOUND
}

REGISTER_TYPED_TEST_SUITE_P(EventLogContract, OpensALogAndLeavesTheErrorAlone, SaysWhyALogCannotBeOpened,
                            HasWordsForTheHostsErrorsThatEndInALineBreak, HasNoWordsForANumberOfNoError);

}  // namespace varnhold::contract
