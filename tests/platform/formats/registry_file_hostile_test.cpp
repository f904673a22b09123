#include <gtest/gtest.h>

#include "platform/formats/registry_file.h"
#include "tests/platform/formats/registry_bytes.h"

// Files that a person, a full disk or another program has spoiled. Each is read, or refused with a line and a
// reason.
namespace varnhold::platform {
namespace {

using std::string_literals::operator""s;

std::string sample() {
  return kVersion +
         "\r\n; a comment\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Kelmont Works\\Varnhold\\Manager]\r\n"
         "\"INSTALLPATH\"=\"C:\\\\Program Files\\\\Varnhold\"\r\n\"MpDbResend\"=dword:12345678\r\n"
         "\"bytes\"=hex(b):01,02,\\\r\n  03,04\r\n@=\"default\"\r\n"s;
}

void expectRefused(const std::string& bytes, std::size_t line, const std::string& partOfWhat) {
  RegistryFileError error;
  EXPECT_FALSE(RegistryFile::parse(bytes, error)) << bytes;
  EXPECT_EQ(error.line, line) << bytes;
  EXPECT_NE(error.what.find(partOfWhat), std::string::npos) << error.what;
}

void expectLineRefused(const std::string& line, const std::string& partOfWhat) {
  expectRefused(kVersion + "[K]\r\n"s + line + "\r\n", 3, partOfWhat);
}

/// Either refused, or every value that was read is one of the whole file.
void expectNoWrongValue(const std::string& part, const RegistryFile& whole) {
  constexpr auto kKey = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Kelmont Works\Varnhold\Manager)";
  RegistryFileError error;
  const auto file = RegistryFile::parse(part, error);
  if (!file) {
    EXPECT_GE(error.line, 1u);
    EXPECT_FALSE(error.what.empty());
    return;
  }
  for (const char* name : {"INSTALLPATH", "MpDbResend", "bytes", ""}) {
    const auto* value = file->find(kKey, name);
    if (value == nullptr) continue;
    EXPECT_EQ(value->bytes, whole.find(kKey, name)->bytes) << part;
  }
}

TEST(RegistryFileHostile, CutOffAtAnyByteGivesNoWrongValue) {
  RegistryFileError error;
  const auto whole = RegistryFile::parse(sample(), error);
  ASSERT_TRUE(whole);
  for (const auto& bytes : {sample(), utf16(sample()), "\xEF\xBB\xBF" + sample()}) {
    for (std::size_t size = 0; size < bytes.size(); ++size) expectNoWrongValue(bytes.substr(0, size), *whole);
  }
}

TEST(RegistryFileHostile, RefusesWhatIsNoRegistryFile) {
  expectRefused("", 1, "begins with the line");
  expectRefused("REGEDIT4\r\n\r\n[K]\r\n", 1, "begins with the line");
  expectRefused("Windows Registry Editor Version 5.001\r\n", 1, "begins with the line");
  expectRefused(
      "\x7F"
      "ELF\2\1\1",
      1, "begins with the line");
  expectRefused("<html>\n</html>\n", 1, "begins with the line");
}

TEST(RegistryFileHostile, RefusesNulBytesAndSaysWhere) {
  expectRefused(kVersion + "[K]\r\n\"a\"=\"b\0\"\r\n"s, 3, "NUL");
  expectRefused(std::string(1000, '\0'), 1, "NUL");
  expectRefused(utf16(kVersion + "[K]\r\n\0\r\n"s), 3, "NUL");
}

TEST(RegistryFileHostile, RefusesLettersItCouldNotWriteBack) {
  expectRefused(kVersion +
                    "[K]\r\n\"a\"=\"Gr\xF6\xDF"
                    "e\"\r\n"s,
                3, "UTF-8");
  expectRefused("\xFE\xFF\0W\0i"s, 1, "swapped");
  expectRefused(utf16(kVersion + "; "s) + "\x01\xD8"s + utf16("\r\n").substr(2), 2, "surrogate");
  expectRefused(utf16(kVersion) + "[", 2, "cut off");
}

TEST(RegistryFileHostile, RefusesLinesItDoesNotUnderstand) {
  expectLineRefused("hello", "comment behind a semicolon");
  expectLineRefused("\"a\"", "no =");
  expectLineRefused("\"a", "no closing quote");
  expectLineRefused("\"a\"=b", "a value is text in quotes");
  expectLineRefused("\"a\"=\"b", "no closing quote");
  expectLineRefused("\"a\"=\"b\"c", "something behind the value");
  expectLineRefused("\"a\"=\"b\\c\"", "each backslash twice");
  expectLineRefused("\"a\"=dword:", "hexadecimal digits");
  expectLineRefused("\"a\"=dword:123456789", "something behind the value");
  expectLineRefused("\"a\"=dword:xyz", "hexadecimal digits");
  expectLineRefused("\"a\"=hex:1", "two hexadecimal digits");
  expectLineRefused("\"a\"=hex:01,", "two hexadecimal digits");
  expectLineRefused("\"a\"=hex:01 02", "something behind the value");
  expectLineRefused("\"a\"=hex:01,\\02", "no next line");
  expectLineRefused("\"a\"=hex01", "no :");
  expectLineRefused("\"a\"=hex():01", "in parentheses");
  expectLineRefused("\"a\"=hex(123456789):01", "in parentheses");
  expectLineRefused("\"a\"=hex(7:01", "in parentheses");
  expectLineRefused("[]", "has no name");
  expectLineRefused("[K", "no closing bracket");
  expectLineRefused("[K] x", "no closing bracket");
}

TEST(RegistryFileHostile, RefusesBytesThatDoNotGoOnThoughTheirLineSaysSo) {
  expectRefused(kVersion + "[K]\r\n\"a\"=hex:01,\\\r\n"s, 4, "two hexadecimal digits");
  expectRefused(kVersion + "[K]\r\n\"a\"=hex:01,\\\r\n\"b\"=\"1\"\r\n"s, 4, "two hexadecimal digits");
}

TEST(RegistryFileHostile, RefusesDeletionsSinceAStoreHasNothingToDelete) {
  expectLineRefused("\"a\"=-", "asks to delete a value");
  expectLineRefused("[-K]", "asks to delete a key");
}

TEST(RegistryFileHostile, RefusesAValueBeforeTheFirstKey) {
  expectRefused(kVersion + "\"a\"=\"b\"\r\n"s, 2, "before the first key");
}

TEST(RegistryFileHostile, RefusesNumbersAndBytesWithoutTheirLineEnd) {
  expectRefused(kVersion + "[K]\r\n\"a\"=dword:00000001"s, 3, "may be cut off");
  expectRefused(kVersion + "[K]\r\n\"a\"=hex:01"s, 3, "may be cut off");
  expectRefused(kVersion + "[K]\r\n\"a\"=hex:01,\\"s, 3, "no next line");
}

TEST(RegistryFileHostile, TakesTenMegabytesOfValues) {
  auto bytes = kVersion + "[K]\r\n"s;
  int count = 0;
  while (bytes.size() < 10'000'000)
    bytes += "\"value " + std::to_string(++count) + "\"=\"" + std::string(80, 'x') + "\"\r\n";
  RegistryFileError error;
  auto file = RegistryFile::parse(bytes, error);
  ASSERT_TRUE(file) << error.what;
  EXPECT_NE(file->find("K", "VALUE " + std::to_string(count)), nullptr);
  EXPECT_EQ(file->print().size(), bytes.size());
}

TEST(RegistryFileHostile, RefusesTenMegabytesOfOneThing) {
  for (const char filler : {'\\', '"', '[', ']', ';', ' ', '\n', 'a', '\0', '\xFF'}) {
    const std::string much(10'000'000, filler);
    RegistryFileError error;
    EXPECT_FALSE(RegistryFile::parse(much, error));
    const auto file = RegistryFile::parse(kVersion + much, error);
    EXPECT_EQ(file.has_value(), filler == ';' || filler == ' ' || filler == '\n') << filler;
  }
}

TEST(RegistryFileHostile, TakesAKeyOfTenMegabytesOfBackslashes) {
  RegistryFileError error;
  const auto key = std::string(10'000'000, '\\');
  const auto file = RegistryFile::parse(kVersion + "[K"s + key + "]\r\n", error);
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->hasKey("K" + key));
}

}  // namespace
}  // namespace varnhold::platform
