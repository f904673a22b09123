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

TEST(Secret, IsOverwrittenWhereItWasLongerBefore) {
  std::string secret = kSecret;
  const char* const letters = secret.data();
  secret.resize(3);
  wipe(secret);
  EXPECT_TRUE(std::all_of(letters + 4, letters + kSecret.size(), [](char letter) { return letter == '\0'; }));
}

TEST(Secret, IsOverwrittenWhereItWasMovedFromInItsPlace) {
  std::string moved = "short", secret = std::move(moved);
  EXPECT_EQ(secret, "short");
  wipe(moved);
  const char* const letters = moved.data();
  EXPECT_TRUE(std::all_of(letters, letters + moved.capacity(), [](char letter) { return letter == '\0'; }));
}

TEST(Secret, KeepsItsTextInCopiesAndTakesItAlongWhenItMoves) {
  Secret first{std::string(kSecret)};
  const Secret copy = first;
  Secret second = std::move(first);
  const std::string& kept = second;
  EXPECT_EQ(kept, kSecret);
  second = Secret(std::string("other"));
  EXPECT_EQ(kept, "other");
  EXPECT_EQ(static_cast<const std::string&>(copy), kSecret);
}

TEST(Secret, TakesATextWithoutLeavingOneBehind) {
  std::string given = kSecret;
  const Secret secret(std::move(given));
  EXPECT_EQ(static_cast<const std::string&>(secret), kSecret);
  EXPECT_EQ(given, "");
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
