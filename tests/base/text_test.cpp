#include "base/text.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

namespace varnhold {
namespace {

TEST(TrimBlanks, TakesBlanksFromBothEndsAndLeavesTabsAndInnerBlanks) {
  EXPECT_EQ(trimBlanks("  a b  "), "a b");
  EXPECT_EQ(trimBlanks("\ta "), "\ta");
  EXPECT_EQ(trimBlanks("   "), "");
  EXPECT_EQ(trimBlanks(""), "");
}

TEST(TrimAtNull, CutsAtTheFirstNulAndKeepsTextWithoutOne) {
  EXPECT_EQ(TrimAtNull(std::string("ab\0cd\0", 6)), "ab");
  EXPECT_EQ(TrimAtNull(std::string("\0cd", 3)), "");
  EXPECT_EQ(TrimAtNull("abc"), "abc");
}

TEST(Split, GivesOnePieceMoreThanThereAreSeparators) {
  EXPECT_THAT(split("a,,b,", ','), LinesAre({"a", "", "b", ""}));
  EXPECT_THAT(split("", ','), LinesAre({""}));
}

TEST(ToUpper, RaisesLettersOfSeveralScriptsOneByOne) {
  EXPECT_EQ(toUpper("host-1.büro"), "HOST-1.BÜRO");
  EXPECT_EQ(toUpper("žluťoučký"), "ŽLUŤOUČKÝ");
  EXPECT_EQ(toUpper("сервер"), "СЕРВЕР");
  EXPECT_EQ(toUpper("διακομιστής"), "ΔΙΑΚΟΜΙΣΤΉΣ");
}

TEST(ToUpper, LeavesTheSharpSWhichHasNoSingleCapital) {
  EXPECT_EQ(toUpper("straße"), "STRAßE");
}

TEST(ToUpper, LeavesBytesThatAreNoUtf8) {
  EXPECT_EQ(toUpper("a\xFF\xC3z"), "A\xFF\xC3Z");
}

TEST(EqualsIgnoringCase, ComparesWholeTexts) {
  EXPECT_TRUE(equalsIgnoringCase("Büro1", "bÜRO1"));
  EXPECT_FALSE(equalsIgnoringCase("host", "host1"));
  EXPECT_TRUE(equalsIgnoringCase("", ""));
}

TEST(ContainsIgnoringCase, FindsAPartAnywhere) {
  EXPECT_TRUE(containsIgnoringCase("Managed - Standard Mode", "STANDARD"));
  EXPECT_TRUE(containsIgnoringCase("Büro", "BÜ"));
  EXPECT_TRUE(containsIgnoringCase("x", ""));
  EXPECT_FALSE(containsIgnoringCase("Standard", "Standard Mode"));
}

TEST(ReplaceAll, ReplacesEveryOccurrenceAndNotItsOwnWork) {
  EXPECT_EQ(replaceAll("a\r\nb\r\n", "\r\n", ""), "ab");
  EXPECT_EQ(replaceAll("aa", "a", "aa"), "aaaa");
  EXPECT_EQ(replaceAll("x", "y", "z"), "x");
}

}  // namespace
}  // namespace varnhold
