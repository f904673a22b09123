#include "platform/formats/path_translation.h"

#include <gtest/gtest.h>

namespace varnhold::platform {
namespace {

TEST(PathTranslation, SplitsAPathOnAnAdministrativeShare) {
  EXPECT_EQ(splitSharePath(R"(\\HOST1\C$\Program Files\a.tmp)"),
            (SharePath{"HOST1", "C$", R"(Program Files\a.tmp)"}));
  EXPECT_EQ(splitSharePath(R"(\\HOST1\c$\a)"), (SharePath{"HOST1", "c$", "a"}));
}

TEST(PathTranslation, SplitsTheShareItself) {
  EXPECT_EQ(splitSharePath(R"(\\HOST1\C$)"), (SharePath{"HOST1", "C$", ""}));
  EXPECT_EQ(splitSharePath(R"(\\HOST1\C$\)"), (SharePath{"HOST1", "C$", ""}));
}

TEST(PathTranslation, KnowsWhatIsNoPathOnAShare) {
  for (const char* path : {"", "\\", "\\\\", "\\\\\\", R"(\\HOST)", R"(\\HOST\)", R"(\\\C$\a)",
                           R"(\\HOST\\a)", R"(C:\a)", R"(\a\b)", "//HOST/C$/a", R"(a\\b)"}) {
    EXPECT_EQ(splitSharePath(path), std::nullopt) << path;
  }
}

TEST(PathTranslation, TellsPathsToOtherComputersByTheirTwoBackslashes) {
  EXPECT_TRUE(isSharePath(R"(\\HOST\C$\a)"));
  EXPECT_FALSE(isSharePath(R"(\a)"));
  EXPECT_FALSE(isSharePath("//HOST/C$"));
  EXPECT_FALSE(isSharePath(""));
}

TEST(PathTranslation, TurnsBackslashesIntoSlashes) {
  EXPECT_EQ(toSlashes(R"(/home/u/.local\RemoteInstaller\remins)"), "/home/u/.local/RemoteInstaller/remins");
  EXPECT_EQ(toSlashes(""), "");
}

TEST(PathTranslation, ListsTheNamesOfAPath) {
  EXPECT_EQ(pathComponents(R"(/home\u//remote\\a b)"),
            (std::vector<std::string>{"home", "u", "remote", "a b"}));
  EXPECT_TRUE(pathComponents("\\/").empty());
}

}  // namespace
}  // namespace varnhold::platform
