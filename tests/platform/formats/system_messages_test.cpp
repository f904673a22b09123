#include "platform/formats/system_messages.h"

#include <gtest/gtest.h>

namespace varnhold::platform {
namespace {

struct Expected {
  std::uint32_t number;
  const char* text;
};

TEST(SystemMessages, HasTheWordsOfTheErrorsThatRemoteWorkMeets) {
  constexpr Expected kExpected[] = {
      {2, "The system cannot find the file specified.\r\n"},
      {3, "The system cannot find the path specified.\r\n"},
      {5, "Access is denied.\r\n"},
      {53, "The network path was not found.\r\n"},
      {87, "The parameter is incorrect.\r\n"},
      {1056, "An instance of the service is already running.\r\n"},
      {1058,
       "The service cannot be started, either because it is disabled or because it has no enabled devices "
       "associated with it.\r\n"},
      {1060, "The specified service does not exist as an installed service.\r\n"},
      {1062, "The service has not been started.\r\n"},
      {1069, "The service did not start due to a logon failure.\r\n"},
      {1072, "The specified service has been marked for deletion.\r\n"},
      {1073, "The specified service already exists.\r\n"},
      {1326, "The user name or password is incorrect.\r\n"},
      {1722, "The RPC server is unavailable.\r\n"},
  };
  for (const auto& [number, text] : kExpected) EXPECT_EQ(systemMessage(number), text) << number;
}

TEST(SystemMessages, HasNoneForOtherNumbers) {
  for (const std::uint32_t number : {0u, 4u, 12345u, 0xFFFFFFFFu})
    EXPECT_EQ(systemMessage(number), std::nullopt);
}

}  // namespace
}  // namespace varnhold::platform
