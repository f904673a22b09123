#include <gtest/gtest.h>

#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

TEST(UnattendedUi, WritesMessagesToStandardErrorAndReturns) {
  const auto ui = makeUnattendedUi();
  ::testing::internal::CaptureStderr();
  ui->messageBox("first, ä", MessageIcon::Critical);
  ui->messageBox("second", MessageIcon::Information);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "first, ä\nsecond\n");
}

}  // namespace
}  // namespace varnhold::platform::posix
