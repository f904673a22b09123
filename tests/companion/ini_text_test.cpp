#include "companion/ini_text.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

namespace varnhold::companion {
namespace {

using testing::IsEmpty;

TEST(IniText, FindsSectionsAndKeysWithoutCase) {
  const IniText ini("[Host]\nAddress = 10.1.1.11\n");
  EXPECT_EQ(ini.value("HOST", "address"), "10.1.1.11");
  EXPECT_EQ(ini.value("host", "type"), std::nullopt);
  EXPECT_EQ(ini.value("result", "address"), std::nullopt);
}

TEST(IniText, EndsAValueAtACommentBehindABlank) {
  const IniText ini("[s]\na = 1   ; one\nb = x;y\n; c = 3\nd = \"p ; q\" ; quoted\ne =\n");
  EXPECT_EQ(ini.value("s", "a"), "1");
  EXPECT_EQ(ini.value("s", "b"), "x;y");
  EXPECT_EQ(ini.value("s", "c"), std::nullopt);
  EXPECT_EQ(ini.value("s", "d"), "p ; q");
  EXPECT_EQ(ini.value("s", "e"), "");
}

TEST(IniText, TakesTheFirstOfTwoEqualKeys) {
  EXPECT_EQ(IniText("[s]\na=1\nA=2\n[S]\na=3\n").value("s", "a"), "1");
}

TEST(IniText, KeepsEveryOtherLineAndItsLineEnd) {
  IniText ini("; head\r\n[One]\r\na = 1 ; first\nb=2\r\n\r\n[Two]\nc=3");
  ini.setValue("one", "A", "5");
  EXPECT_EQ(ini.text(), "; head\r\n[One]\r\na = 5 ; first\nb=2\r\n\r\n[Two]\nc=3");
}

TEST(IniText, AddsAKeyAtTheEndOfItsSection) {
  IniText ini("[One]\na=1\n\n[Two]\nc=3");
  ini.setValue("One", "b", "2");
  ini.setValue("Two", "d", "4");
  EXPECT_EQ(ini.text(), "[One]\na=1\nb=2\n\n[Two]\nc=3\nd=4\n");
}

TEST(IniText, AddsAMissingSectionAtTheEnd) {
  IniText ini("[One]\r\na=1");
  ini.setValue("Two", "b", "2");
  EXPECT_EQ(ini.text(), "[One]\r\na=1\r\n[Two]\r\nb=2\r\n");
}

TEST(IniText, KeepsAByteOrderMark) {
  IniText ini("\xEF\xBB\xBF[One]\na=1\n");
  ini.setValue("one", "a", "2");
  EXPECT_EQ(ini.text(), "\xEF\xBB\xBF[One]\na=2\n");
}

TEST(IniText, RemovesASectionAndNothingElse) {
  IniText ini("; head\n[One]\na=1\n; about one\n[Two]\nb=2\n");
  ini.removeSection("ONE");
  EXPECT_EQ(ini.text(), "; head\n[Two]\nb=2\n");
}

TEST(IniText, ReadsBackWhatItWrote) {
  for (const std::string value : {"plain", "a ; b", " blanks ", "\"quoted\"", "x;y", ""}) {
    IniText ini;
    ini.setValue("s", "k", value);
    const auto read = IniText(ini.text()).value("s", "k");
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(*read, value == "\"quoted\"" ? "'quoted'" : value);
  }
}

TEST(IniText, TurnsControlCharactersOfAValueIntoBlanks) {
  IniText ini;
  ini.setValue("s", "k", "a\r\n[evil]\nb");
  EXPECT_EQ(ini.text(), "[s]\r\nk=a  [evil] b\r\n");
}

TEST(IniText, PassesOverWhatItCannotUnderstandAndSaysSo) {
  const std::string bytes("[s]\nno equals\n[open\n=5\na=1\nb\0=2\n", 32);
  const IniText ini(bytes);
  EXPECT_EQ(ini.value("s", "a"), "1");
  EXPECT_THAT(ini.problems(),
              LinesAre({"line 2: is neither a section, a comment nor 'key = value'",
                        "line 3: has a section's '[' without its ']'", "line 4: has no key before its '='",
                        "line 6: holds a NUL byte; save the file as plain text"}));
  EXPECT_EQ(ini.text(), bytes);
}

TEST(IniText, SaysWhenAKeyStandsBeforeTheFirstSection) {
  const IniText ini("a=1\n[s]\n");
  EXPECT_THAT(ini.problems(), LinesAre({"line 1: stands before the first section"}));
}

TEST(IniText, OfNothingIsNothing) {
  EXPECT_EQ(IniText("").text(), "");
  EXPECT_THAT(IniText("").sections(), IsEmpty());
}

TEST(IniText, ListsEachSectionOnce) {
  EXPECT_THAT(IniText("[One]\n[Two]\n[ONE]\n").sections(), LinesAre({"One", "Two"}));
}

TEST(IniText, RemovesOneValueAndLeavesAllOtherLines) {
  IniText ini("[A]\r\nx=1 ; one\r\ny=2\r\n[B]\r\nx=3\r\n");
  ini.removeValue("a", "X");
  ini.removeValue("B", "y");
  ini.removeValue("C", "x");
  EXPECT_EQ(ini.text(), "[A]\r\ny=2\r\n[B]\r\nx=3\r\n");
}

}  // namespace
}  // namespace varnhold::companion
