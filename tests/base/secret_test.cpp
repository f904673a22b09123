#include "base/secret.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace varnhold {
namespace {

/// Long enough for memory of its own.
const std::string kSecret(200, 's');

TEST(Secret, IsOverwrittenAndNotOnlyForgotten) {
  std::string secret = kSecret;
  const char* const letters = secret.data();
  wipe(secret);
  EXPECT_EQ(secret, "");
  EXPECT_TRUE(std::all_of(letters, letters + kSecret.size(), [](char letter) { return letter == '\0'; }));
}

TEST(Secret, IsOverwrittenInWideLettersToo) {
  std::wstring secret(200, L's');
  const wchar_t* const letters = secret.data();
  wipe(secret);
  EXPECT_TRUE(std::all_of(letters, letters + 200, [](wchar_t letter) { return letter == L'\0'; }));
}

TEST(Secret, IsWipedOnEveryWayOut) {
  std::string secret = kSecret;
  try {
    const WipedAtEnd wiped(secret);
    throw 1;
  } catch (int) {
    EXPECT_EQ(secret, "");
  }
}

}  // namespace
}  // namespace varnhold
