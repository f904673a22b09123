#include <gtest/gtest.h>

#include "core/mdCommon.h"

namespace varnhold::core {
namespace {

struct Pair {
  std::int32_t code;
  const char* name;
};

TEST(GetSystemTypeName, NamesEveryCodeOfTheTable) {
  constexpr Pair kPairs[] = {
      {2, "Windows 95"},
      {3, "Windows 98"},
      {4, "Windows NT - Workstation"},
      {5, "Windows NT - Server"},
      {6, "Windows 2000 - Professional"},
      {7, "Windows 2000 - Server"},
      {8, "Windows 2000 - Advanced Server"},
      {9, "Windows NT - Cluster"},
      {10, "Windows XP"},
      {11, "Windows XP"},
      {13, "Windows Me"},
      {14, "Windows 2003 - Server"},
      {15, "Windows Vista"},
      {16, "Windows Server 2008"},
      {101, "Sun Solaris (BSM)"},
      {301, "SysLog System"},
  };
  for (const auto& [code, name] : kPairs) EXPECT_EQ(GetSystemTypeName(code), name);
}

TEST(GetSystemTypeName, GivesDotsForEveryOtherCode) {
  for (const std::int32_t code : {-1, 0, 1, 12, 17, 100, 102, 300, 302, 99999}) {
    EXPECT_EQ(GetSystemTypeName(code), "...") << code;
  }
}

TEST(GetSystemTypeCode, TurnsEveryNameOfItsTableIntoItsCode) {
  constexpr Pair kPairs[] = {
      {2, "Windows 95"},
      {3, "Windows 98"},
      {13, "Windows Me"},
      {4, "Windows NT - Workstation"},
      {6, "Windows 2000 - Professional"},
      {5, "Windows NT - Server"},
      {7, "Windows 2000 - Server"},
      {8, "Windows 2000 - Advanced Server"},
      {9, "Windows NT - Cluster"},
      {10, "Windows XP"},
      {14, "Windows 2003 - Server"},
      {15, "Windows VISTA"},
      {16, "Windows Server 2008"},
      {101, "Sun Solaris (BSM)"},
      {301, "SysLog System"},
  };
  for (const auto& [code, name] : kPairs) EXPECT_EQ(GetSystemTypeCode(name), code) << name;
}

TEST(GetSystemTypeCode, GivesZeroForTheNameThatVistaIsShownUnder) {
  EXPECT_EQ(GetSystemTypeCode(GetSystemTypeName(15)), 0);
}

TEST(GetSystemTypeCode, ComparesExactly) {
  for (const char* name : {"windows xp", "Windows XP ", "", "...", "Windows"}) {
    EXPECT_EQ(GetSystemTypeCode(name), 0) << name;
  }
}

}  // namespace
}  // namespace varnhold::core
