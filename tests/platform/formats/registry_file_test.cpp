#include "platform/formats/registry_file.h"
#include "tests/platform/formats/registry_bytes.h"

#include <gtest/gtest.h>

namespace varnhold::platform {
namespace {

using std::string_literals::operator""s;

constexpr auto kManager = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Kelmont Works\Varnhold\Manager)";

/// A key and a value line of it, as a registry editor exports them.
std::string fileWith(const std::string& valueLine) {
  return kVersion + "\r\n["s + kManager + "]\r\n" + valueLine + "\r\n";
}

RegistryFile parsed(const std::string& bytes) {
  RegistryFileError error;
  auto file = RegistryFile::parse(bytes, error);
  EXPECT_TRUE(file) << "line " << error.line << ": " << error.what;
  return file ? std::move(*file) : RegistryFile{};
}

void expectValue(const std::string& valueLine, const std::string& name, std::uint32_t type,
                 const std::string& bytes) {
  const auto file = parsed(fileWith(valueLine));
  const auto* value = file.find(kManager, name);
  ASSERT_NE(value, nullptr) << valueLine;
  EXPECT_EQ(value->type, type) << valueLine;
  EXPECT_EQ(value->bytes, bytes) << valueLine;
}

RegistryFileError refusal(const std::string& bytes) {
  RegistryFileError error;
  EXPECT_FALSE(RegistryFile::parse(bytes, error)) << bytes;
  return error;
}

/// What is written after one value was set in a file of one key.
std::string printedAfterSetting(const std::string& name, const RegistryValue& value) {
  auto file = parsed(kVersion + "[K]\r\n"s);
  EXPECT_TRUE(file.set("K", name, value));
  const auto whole = file.print();
  const auto start = kVersion + "[K]\r\n"s;
  EXPECT_TRUE(whole.starts_with(start)) << whole;
  return whole.substr(std::min(start.size(), whole.size()));
}

TEST(RegistryFile, ReadsTextWithItsEscapes) {
  expectValue(R"("INSTALLPATH"="C:\\Program Files\\Varnhold")", "INSTALLPATH", kRegText,
              "C:\\Program Files\\Varnhold\0"s);
  expectValue(R"("a\\b\"c"="say \"hi\"")", "a\\b\"c", kRegText, "say \"hi\"\0"s);
  expectValue(R"("empty"="")", "empty", kRegText, "\0"s);
}

TEST(RegistryFile, ReadsTextOverSeveralLines) {
  expectValue("\"a\"=\"one\r\ntwo\nthree\"", "a", kRegText, "one\r\ntwo\nthree\0"s);
}

TEST(RegistryFile, ReadsNumbers) {
  expectValue("\"MaxDBSize\"=dword:000001f4", "MaxDBSize", kRegNumber, "\xF4\x01\0\0"s);
  expectValue("\"n\"=dword:FFFFFFFE", "n", kRegNumber, "\xFE\xFF\xFF\xFF");
  expectValue("\"n\"=dword:1", "n", kRegNumber, "\1\0\0\0"s);
}

TEST(RegistryFile, ReadsBytesOfAnyType) {
  expectValue("\"b\"=hex:00,FF,0a", "b", kRegBinary, "\0\xFF\x0A"s);
  expectValue("\"b\"=hex:", "b", kRegBinary, "");
  expectValue("\"q\"=hex(b):01,02", "q", 11, "\1\2");
  expectValue("\"n\"=hex(0):", "n", 0, "");
  expectValue("\"x\"=hex(ffffffff):07", "x", 0xFFFFFFFF, "\7");
}

TEST(RegistryFile, ReadsTextThatStandsAsBytes) {
  expectValue("\"open\"=hex(1):41,00,20,ac", "open", kRegText, "A\xEA\xB0\xA0");
  expectValue("\"expand\"=hex(2):25,00,00,00", "expand", 2, "%\0"s);
  expectValue("\"multi\"=hex(7):61,00,00,00,00,00", "multi", kRegMultiText, "a\0\0"s);
}

TEST(RegistryFile, ReadsBytesThatGoOnInTheNextLine) {
  expectValue("\"b\"=hex:01,\\\r\n  02,\\  \r\n03", "b", kRegBinary, "\1\2\3");
  expectValue("\"b\"=hex:\\\r\n  01", "b", kRegBinary, "\1");
}

TEST(RegistryFile, ReadsTheValueWithoutName) {
  expectValue("@=\"default\"", "", kRegText, "default\0"s);
}

TEST(RegistryFile, ReadsBlanksAndCommentsAroundValues) {
  expectValue("  \"a\" = \"b\"  ; why", "a", kRegText, "b\0"s);
  expectValue("\"a\"=dword:00000001;why", "a", kRegNumber, "\1\0\0\0"s);
  expectValue("; before\r\n\"a\"=hex:01 ; why", "a", kRegBinary, "\1");
}

TEST(RegistryFile, ReadsEveryEncodingThatIsAllowed) {
  const auto text = fileWith("\"a\"=\"b\"");
  for (const auto& bytes : {text, "\xEF\xBB\xBF" + text, utf16(text)}) {
    EXPECT_NE(parsed(bytes).find(kManager, "a"), nullptr);
  }
}

TEST(RegistryFile, ReadsLinesEndedByLineFeedAlone) {
  const auto file =
      parsed("Windows Registry Editor Version 5.00\n\n[K]\n\"a\"=\"b\"\n\"c\"=hex:01,\\\n  02\n");
  EXPECT_EQ(file.find("K", "a")->bytes, "b\0"s);
  EXPECT_EQ(file.print(), kVersion + "\r\n[K]\r\n\"a\"=\"b\"\r\n\"c\"=hex:01,\\\r\n  02\r\n"s);
}

TEST(RegistryFile, ComparesKeysAndNamesWithoutCase) {
  const auto file = parsed(kVersion + "[HKEY_LOCAL_MACHINE\\Größe]\r\n\"Näme\"=\"b\"\r\n"s);
  EXPECT_TRUE(file.hasKey("hkey_local_machine\\GRÖßE"));
  EXPECT_NE(file.find("hkey_local_machine\\grÖße", "nÄME"), nullptr);
}

TEST(RegistryFile, KnowsTheKeysAboveAKeyButNoneBesideIt) {
  const auto file = parsed(fileWith(""));
  EXPECT_TRUE(file.hasKey(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Kelmont Works)"));
  EXPECT_TRUE(file.hasKey("HKEY_LOCAL_MACHINE"));
  EXPECT_FALSE(file.hasKey(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Kelmont)"));
  EXPECT_FALSE(file.hasKey(std::string(kManager) + "s"));
  EXPECT_FALSE(file.hasKey(std::string(kManager) + "\\"));
}

TEST(RegistryFile, TakesTheLaterOfTwoValuesOfOneName) {
  const auto file = parsed(kVersion + "[K]\r\n\"a\"=\"1\"\r\n[L]\r\n[k]\r\n\"A\"=\"2\"\r\n"s);
  EXPECT_EQ(file.find("K", "a")->bytes, "2\0"s);
}

TEST(RegistryFile, TakesBracketsInKeys) {
  EXPECT_TRUE(parsed(kVersion + "[K\\a]b[c]  ; see [this]\r\n"s).hasKey("K\\a]b[c"));
}

TEST(RegistryFile, KeepsWhatItDoesNotChangeByteForByte) {
  const auto text =
      kVersion +
      "\r\n; made by hand\r\n\t[HKEY_CURRENT_CONFIG\\X] ; [x]\r\n\t; indented\r\n  \"b\" = hex(b):01,\\\r\n "
      "02;tail\r\n\r\n[k]\r\n\"a\"=\"1\" ; why\r\n\r\n; the end\r\n"s;
  EXPECT_EQ(parsed(text).print(), text);
}

TEST(RegistryFile, ChangesAValueInItsPlaceAndKeepsItsComment) {
  auto file = parsed(kVersion + "; top\r\n[K]\r\n\"One\"=\"1\" ; why\r\n\"Two\"=\"2\"\r\n\r\n; end\r\n"s);
  ASSERT_TRUE(file.set("k", "ONE", {kRegNumber, "\xF4\x01\0\0"s}));
  EXPECT_EQ(file.print(),
            kVersion + "; top\r\n[K]\r\n\"ONE\"=dword:000001f4 ; why\r\n\"Two\"=\"2\"\r\n\r\n; end\r\n"s);
}

TEST(RegistryFile, AddsAValueBehindTheLastOneOfItsKey) {
  auto file = parsed(kVersion + "[K]\r\n\"a\"=\"1\"\r\n\r\n; about L\r\n[L]\r\n; nothing yet\r\n"s);
  ASSERT_TRUE(file.set("K", "b", {kRegText, "2\0"s}));
  ASSERT_TRUE(file.set("K", "c", {kRegText, "3\0"s}));
  ASSERT_TRUE(file.set("L", "d", {kRegText, "4\0"s}));
  EXPECT_EQ(file.print(),
            kVersion +
                "[K]\r\n\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n\"c\"=\"3\"\r\n\r\n; about L\r\n[L]\r\n\"d\"=\"4\"\r\n"
                "; nothing yet\r\n"s);
  EXPECT_EQ(file.find("K", "a")->bytes, "1\0"s);
  EXPECT_EQ(file.find("K", "c")->bytes, "3\0"s);
}

TEST(RegistryFile, AddsAKeyAtTheEndOnce) {
  auto file = RegistryFile{};
  ASSERT_TRUE(file.createKey("K\\L"));
  ASSERT_TRUE(file.createKey("k\\l"));
  ASSERT_TRUE(file.createKey("K"));
  EXPECT_EQ(file.print(), kVersion + "\r\n[K\\L]\r\n"s);
}

TEST(RegistryFile, GivesAKeyThatWasKnownByThoseBelowItAPlaceForItsValues) {
  auto file = parsed(kVersion + "[K\\L]\r\n"s);
  ASSERT_TRUE(file.set("K", "a", {kRegText, "1\0"s}));
  EXPECT_EQ(file.print(), kVersion + "[K\\L]\r\n\r\n[K]\r\n\"a\"=\"1\"\r\n"s);
  EXPECT_EQ(file.find("k", "A")->bytes, "1\0"s);
}

TEST(RegistryFile, SetsNothingInAKeyThatIsMissing) {
  auto file = parsed(kVersion + "[K]\r\n"s);
  EXPECT_FALSE(file.set("L", "a", {kRegText, "1\0"s}));
  EXPECT_EQ(file.print(), kVersion + "[K]\r\n"s);
}

TEST(RegistryFile, TakesNoNameThatAFileCannotHold) {
  auto file = parsed(kVersion + "[K]\r\n"s);
  EXPECT_FALSE(file.set("K", "a\0b"s, {kRegText, "1\0"s}));
  EXPECT_FALSE(file.createKey("K\\a\nb"));
  EXPECT_FALSE(file.createKey(""));
  EXPECT_EQ(file.print(), kVersion + "[K]\r\n"s);
}

TEST(RegistryFile, WritesTextAndNumbersAsAPersonReadsThem) {
  EXPECT_EQ(printedAfterSetting("a\\b", {kRegText, "C:\\x \"y\"\0"s}),
            "\"a\\\\b\"=\"C:\\\\x \\\"y\\\"\"\r\n");
  EXPECT_EQ(printedAfterSetting("", {kRegText, "d\0"s}), "@=\"d\"\r\n");
  EXPECT_EQ(printedAfterSetting("n", {kRegNumber, "\x78\x56\x34\x12"}), "\"n\"=dword:12345678\r\n");
}

TEST(RegistryFile, WritesEverythingElseAsBytes) {
  EXPECT_EQ(printedAfterSetting("b", {kRegBinary, "\0\xFF"s}), "\"b\"=hex:00,ff\r\n");
  EXPECT_EQ(printedAfterSetting("b", {kRegBinary, ""}), "\"b\"=hex:\r\n");
  EXPECT_EQ(printedAfterSetting("ip", {kRegText, "10"}), "\"ip\"=hex(1):31,00,30,00\r\n");
  EXPECT_EQ(printedAfterSetting("nl", {kRegText, "\n\0"s}), "\"nl\"=hex(1):0a,00,00,00\r\n");
  EXPECT_EQ(printedAfterSetting("short", {kRegNumber, "\1"}), "\"short\"=hex(4):01\r\n");
  EXPECT_EQ(printedAfterSetting("wide", {0xAB, "\1"}), "\"wide\"=hex(ab):01\r\n");
}

TEST(RegistryFile, BreaksLongBytesIntoLinesOfAtMostEightyCharacters) {
  const auto printed = printedAfterSetting("long name of a value", {kRegBinary, std::string(100, '\x5A')});
  EXPECT_NE(printed.find(",\\\r\n  5a"), std::string::npos);
  std::size_t longest = 0;
  for (std::size_t at = 0; at < printed.size();) {
    const auto end = printed.find("\r\n", at);
    longest = std::max(longest, end - at);
    at = end + 2;
  }
  EXPECT_LE(longest, 80u);
  EXPECT_EQ(parsed(kVersion + "[K]\r\n"s + printed).find("K", "long name of a value")->bytes,
            std::string(100, '\x5A'));
}

TEST(RegistryFile, WritesUtf16WithMarkAsSoonAsALetterIsNoAscii) {
  auto file = parsed(kVersion + "[K]\r\n"s);
  ASSERT_TRUE(file.set("K", "a", {kRegText, "ä\0"s}));
  const auto expected = utf16(kVersion + "[K]\r\n\"a\"=\""s) + "\xE4\0"s + utf16("\"\r\n").substr(2);
  EXPECT_EQ(file.print(), expected);
  EXPECT_EQ(parsed(file.print()).find("K", "a")->bytes, "ä\0"s);
}

TEST(RegistryFile, FindsTheSameBeforeAndAfterItIsWritten) {
  auto file = parsed(kVersion + "[K]\r\n"s);
  ASSERT_TRUE(file.set("K", "bad\xFFname", {kRegText, "bad \xC3 text\0"s}));
  for (const auto& one : {file, parsed(file.print())}) {
    ASSERT_NE(one.find("K", "bad\xEF\xBF\xBDname"), nullptr);
    EXPECT_EQ(one.find("K", "bad\xEF\xBF\xBDname")->bytes, "bad \xEF\xBF\xBD text\0"s);
  }
}

TEST(RegistryFile, SaysInWhichLineItStoppedAndWhy) {
  EXPECT_EQ(refusal(fileWith("\"a\"=\"1\"\r\n\"b\"=what")).line, 5u);
  EXPECT_EQ(refusal(fileWith("\"p\"=\"C:\\Varnhold\"")).what,
            "inside quotes write each backslash twice, and a quote as \\\"");
  EXPECT_EQ(refusal(fileWith("\"a\"=\"1\nrest")).line, 4u);
}

}  // namespace
}  // namespace varnhold::platform
