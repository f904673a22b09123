// What the lab needs of a registry file beside reading and writing: listing and removing.
#include <gmock/gmock.h>

#include "platform/formats/registry_file.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::platform {
namespace {

using testing::IsEmpty;

constexpr const char* kText =
    "Windows Registry Editor Version 5.00\r\n\r\n"
    "; first\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\One]\r\n\"A\"=\"1\" ; about A\r\n; note\r\n\"B\"=dword:00000002\r\n\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Two\\Deep]\r\n@=\"x\"\r\n\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ONE]\r\n\"a\"=\"3\"\r\n";

RegistryFile read(const std::string& text = kText) {
  RegistryFileError error;
  return RegistryFile::parse(text, error).value();
}

TEST(RegistryRemoval, ListsKeysAndValuesOnce) {
  const RegistryFile file = read();
  EXPECT_THAT(file.subkeys("HKEY_LOCAL_MACHINE\\software"), LinesAre({"One", "Two"}));
  EXPECT_THAT(file.subkeys("HKEY_LOCAL_MACHINE\\SOFTWARE\\Two"), LinesAre({"Deep"}));
  EXPECT_THAT(file.subkeys("HKEY_LOCAL_MACHINE\\SOFTWARE\\One"), IsEmpty());
  EXPECT_THAT(file.valueNames("HKEY_LOCAL_MACHINE\\SOFTWARE\\one"), LinesAre({"A", "B"}));
  EXPECT_THAT(file.valueNames("HKEY_LOCAL_MACHINE\\SOFTWARE\\Two\\Deep"), LinesAre({""}));
  EXPECT_THAT(file.valueNames("HKEY_LOCAL_MACHINE\\SOFTWARE"), IsEmpty());
}

TEST(RegistryRemoval, ListsNamesWhoseUpperCaseHasOtherBytes) {
  // A dotless i takes two bytes, its upper-case partner one.
  const RegistryFile file = read(
      "Windows Registry Editor Version "
      "5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\S\xC4\xB1\\Below]\r\n\"A\"=\"1\"\r\n");
  EXPECT_THAT(file.subkeys("HKEY_LOCAL_MACHINE\\S\xC4\xB1"), LinesAre({"Below"}));
}

TEST(RegistryRemoval, RemovesAValueWhereverItIsWritten) {
  RegistryFile file = read();
  EXPECT_TRUE(file.removeValue("HKEY_LOCAL_MACHINE\\SOFTWARE\\One", "a"));
  EXPECT_EQ(file.find("HKEY_LOCAL_MACHINE\\SOFTWARE\\One", "A"), nullptr);
  EXPECT_EQ(file.find("HKEY_LOCAL_MACHINE\\SOFTWARE\\One", "B")->bytes, std::string("\2\0\0\0", 4));
  EXPECT_FALSE(file.removeValue("HKEY_LOCAL_MACHINE\\SOFTWARE\\One", "A"));
  EXPECT_FALSE(file.removeValue("HKEY_LOCAL_MACHINE\\SOFTWARE\\None", "A"));
  EXPECT_EQ(file.print(),
            "Windows Registry Editor Version 5.00\r\n\r\n; first\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\One]\r\n; "
            "note\r\n"
            "\"B\"=dword:00000002\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Two\\Deep]\r\n@=\"x\"\r\n\r\n"
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ONE]\r\n");
}

TEST(RegistryRemoval, RemovesAKeyWithAllItsSections) {
  RegistryFile file = read();
  EXPECT_TRUE(file.removeKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\one"));
  EXPECT_FALSE(file.hasKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\One"));
  EXPECT_FALSE(file.removeKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\One"));
  EXPECT_THAT(file.print(), testing::Not(testing::HasSubstr("dword")));
  EXPECT_THAT(file.print(), testing::HasSubstr("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Two\\Deep]\r\n@=\"x\""));
}

TEST(RegistryRemoval, KeepsAKeyThatHasKeysBelowIt) {
  RegistryFile file;
  ASSERT_TRUE(file.createKey("HKEY_LOCAL_MACHINE\\A"));
  ASSERT_TRUE(file.createKey("HKEY_LOCAL_MACHINE\\A\\B"));
  EXPECT_FALSE(file.removeKey("HKEY_LOCAL_MACHINE\\A"));
  EXPECT_TRUE(file.removeKey("HKEY_LOCAL_MACHINE\\A\\B"));
  EXPECT_TRUE(file.removeKey("HKEY_LOCAL_MACHINE\\A"));
  EXPECT_EQ(file.print(), RegistryFile().print());
}

TEST(RegistryRemoval, LeavesAFileThatIsReadAndWrittenAsBefore) {
  RegistryFile file = read();
  ASSERT_TRUE(file.removeKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\Two\\Deep"));
  ASSERT_TRUE(file.set("HKEY_LOCAL_MACHINE\\SOFTWARE\\One", "C", {kRegText, std::string("x\0", 2)}));
  ASSERT_TRUE(file.set("HKEY_LOCAL_MACHINE\\SOFTWARE\\One", "B", {kRegText, std::string("y\0", 2)}));
  const RegistryFile again = read(file.print());
  EXPECT_EQ(again.find("HKEY_LOCAL_MACHINE\\SOFTWARE\\One", "B")->bytes, std::string("y\0", 2));
  EXPECT_EQ(again.find("HKEY_LOCAL_MACHINE\\SOFTWARE\\One", "C")->bytes, std::string("x\0", 2));
}

}  // namespace
}  // namespace varnhold::platform
