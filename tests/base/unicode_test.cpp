#include "base/unicode.h"

#include <gtest/gtest.h>

#include <string_view>

namespace varnhold {
namespace {

char32_t first(std::string_view text) {
  std::size_t at = 0;
  return nextCodePoint(text, at);
}

TEST(NextCodePoint, ReadsSequencesOfEveryLength) {
  EXPECT_EQ(first("A"), U'A');
  EXPECT_EQ(first("é"), U'é');
  EXPECT_EQ(first("€"), U'€');
  EXPECT_EQ(first("😀"), U'😀');
}

TEST(NextCodePoint, RefusesOverlongCutSurrogateAndStrayBytesOneByteAtATime) {
  for (const auto* bad : {"\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "\xC3",
                          "\xE2\x82", "\xFF", "\xC3\x41"}) {
    std::size_t at = 0;
    EXPECT_EQ(nextCodePoint(bad, at), kNotUtf8) << bad;
    EXPECT_EQ(at, 1u);
  }
}

TEST(Utf16, ComesBackAsItWent) {
  const std::string text = "Host-1 Büro € 😀";
  EXPECT_EQ(fromUtf16(toUtf16(text)), text);
  EXPECT_EQ(toUtf16("😀"), u"\xD83D\xDE00");
}

TEST(Utf16, TurnsWhatIsBrokenIntoTheReplacementCharacter) {
  EXPECT_EQ(toUtf16("a\xFFz"), u"a\xFFFDz");
  EXPECT_EQ(fromUtf16(std::u16string{u'a', 0xD83D, u'z'}), "a\uFFFDz");
  EXPECT_EQ(fromUtf16(std::u16string{0xDE00}), "\uFFFD");
  EXPECT_EQ(fromUtf16(std::u16string{0xD83D}), "\uFFFD");
}

TEST(UpperCase, KnowsEveryLetterOfItsScripts) {
  struct Pair {
    char32_t small, capital;
  };
  constexpr Pair kPairs[] = {
      {U'a', U'A'}, {U'z', U'Z'}, {U'µ', U'Μ'}, {U'à', U'À'}, {U'ö', U'Ö'}, {U'ø', U'Ø'}, {U'ÿ', U'Ÿ'},
      {U'ā', U'Ā'}, {U'į', U'Į'}, {U'ķ', U'Ķ'}, {U'ĺ', U'Ĺ'}, {U'ň', U'Ň'}, {U'ŋ', U'Ŋ'}, {U'ŷ', U'Ŷ'},
      {U'ź', U'Ź'}, {U'ž', U'Ž'}, {U'ά', U'Ά'}, {U'ί', U'Ί'}, {U'α', U'Α'}, {U'ς', U'Σ'}, {U'σ', U'Σ'},
      {U'ό', U'Ό'}, {U'ώ', U'Ώ'}, {U'а', U'А'}, {U'я', U'Я'}, {U'ѐ', U'Ѐ'}, {U'џ', U'Џ'}, {U'ѡ', U'Ѡ'},
      {U'ґ', U'Ґ'}, {U'ա', U'Ա'}, {U'ֆ', U'Ֆ'}, {U'ạ', U'Ạ'}, {U'ỹ', U'Ỹ'}};
  for (const auto& [small, capital] : kPairs) {
    EXPECT_EQ(upperCase(small), capital) << std::hex << static_cast<unsigned>(small);
    EXPECT_EQ(upperCase(capital), capital) << std::hex << static_cast<unsigned>(capital);
  }
}

TEST(UpperCase, LeavesWhatIsNoSmallLetterOfTheseScripts) {
  for (const char32_t other : std::u32string_view(U"0 -_.÷ßıĸŉ漢あ")) {
    EXPECT_EQ(upperCase(other), other) << std::hex << static_cast<unsigned>(other);
  }
}

}  // namespace
}  // namespace varnhold
