#include <gtest/gtest.h>

#include "platform/formats/registry_file.h"
#include "tests/platform/formats/registry_bytes.h"

// What is in a key, and taking it away.
namespace varnhold::platform {
namespace {

using std::string_literals::operator""s;
using Names = std::vector<std::string>;

RegistryFile parsedKeys(const std::string& keys) {
  RegistryFileError error;
  auto file = RegistryFile::parse(kVersion + keys, error);
  EXPECT_TRUE(file) << "line " << error.line << ": " << error.what;
  return file ? std::move(*file) : RegistryFile{};
}

TEST(RegistryFileRemoval, ListsTheKeysRightBelowEachOnce) {
  const auto file =
      parsedKeys("[K]\r\n[K\\One\\Deep]\r\n[k\\ONE]\r\n[K\\Two]\r\n[Kx\\Three]\r\n[L\\K\\Four]\r\n");
  EXPECT_EQ(file.subkeys("k"), (Names{"One", "Two"}));
  EXPECT_EQ(file.subkeys("K\\Two"), Names{});
  EXPECT_EQ(file.subkeys("M"), Names{});
}

TEST(RegistryFileRemoval, ListsTheValuesOfAKeyEachOnce) {
  const auto file = parsedKeys(
      "[K]\r\n\"a\"=\"1\"\r\n@=\"2\"\r\n[L]\r\n\"x\"=\"3\"\r\n[k]\r\n\"A\"=\"4\"\r\n\"b\"=\"5\"\r\n");
  EXPECT_EQ(file.valueNames("K"), (Names{"a", "", "b"}));
  EXPECT_EQ(file.valueNames("M"), Names{});
}

TEST(RegistryFileRemoval, RemovesAValueWhereverItStands) {
  auto file =
      parsedKeys("; top\r\n[K]\r\n\"a\"=\"1\" ; why\r\n; stays\r\n\"b\"=\"2\"\r\n[k]\r\n\"A\"=\"3\"\r\n");
  EXPECT_TRUE(file.removeValue("k", "A"));
  EXPECT_EQ(file.print(), kVersion + "; top\r\n[K]\r\n; stays\r\n\"b\"=\"2\"\r\n[k]\r\n"s);
  EXPECT_EQ(file.find("K", "a"), nullptr);
  EXPECT_EQ(file.find("K", "b")->bytes, "2\0"s);
  EXPECT_FALSE(file.removeValue("K", "a"));
  EXPECT_FALSE(file.removeValue("M", "a"));
}

TEST(RegistryFileRemoval, FindsAndSetsValuesRightAfterOthersWereRemoved) {
  auto file = parsedKeys("[K]\r\n\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n[L]\r\n\"c\"=\"3\"\r\n");
  ASSERT_TRUE(file.removeValue("K", "a"));
  ASSERT_TRUE(file.set("K", "b", {kRegText, "two\0"s}));
  ASSERT_TRUE(file.set("K", "d", {kRegText, "4\0"s}));
  EXPECT_EQ(file.print(), kVersion + "[K]\r\n\"b\"=\"two\"\r\n\"d\"=\"4\"\r\n[L]\r\n\"c\"=\"3\"\r\n"s);
}

TEST(RegistryFileRemoval, RemovesAKeyAndItsBlankLine) {
  auto file = parsedKeys("[K]\r\n\"a\"=\"1\"\r\n\r\n[L]\r\n\"c\"=\"3\"\r\n");
  EXPECT_TRUE(file.removeKey("l"));
  EXPECT_EQ(file.print(), kVersion + "[K]\r\n\"a\"=\"1\"\r\n"s);
  EXPECT_FALSE(file.hasKey("L"));
  EXPECT_EQ(file.find("K", "a")->bytes, "1\0"s);
}

TEST(RegistryFileRemoval, LeavesAKeyThatHasKeysBelowItOrIsNotThere) {
  auto file = parsedKeys("[K]\r\n[K\\L]\r\n");
  EXPECT_FALSE(file.removeKey("K"));
  EXPECT_FALSE(file.removeKey("M"));
  EXPECT_TRUE(file.removeKey("K\\L"));
  EXPECT_TRUE(file.removeKey("K"));
  EXPECT_EQ(file.print(), kVersion);
}

TEST(RegistryFileRemoval, UndoesAKeyThatWasMade) {
  auto file = parsedKeys("[K]\r\n\"a\"=\"1\"\r\n");
  const auto before = file.print();
  ASSERT_TRUE(file.createKey("L"));
  ASSERT_TRUE(file.set("L", "b", {kRegText, "2\0"s}));
  ASSERT_TRUE(file.removeKey("L"));
  EXPECT_EQ(file.print(), before);
}

}  // namespace
}  // namespace varnhold::platform
