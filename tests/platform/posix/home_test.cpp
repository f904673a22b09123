#include "platform/posix/home.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <map>
#include <optional>

namespace varnhold::platform::posix {
namespace {

/// The variables that choose a home, as the test sets them, and as they were afterwards.
class HomeFolder : public ::testing::Test {
 protected:
  HomeFolder() {
    for (const char* name : {"VARNHOLD_HOME", "XDG_DATA_HOME", "HOME"}) {
      const char* value = ::getenv(name);
      before_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
      ::unsetenv(name);
    }
  }
  ~HomeFolder() override {
    for (const auto& [name, value] : before_) value ? set(name, *value) : void(::unsetenv(name.c_str()));
  }
  static void set(const std::string& name, const std::string& value) {
    ::setenv(name.c_str(), value.c_str(), 1);
  }

 private:
  std::map<std::string, std::optional<std::string>> before_;
};

TEST_F(HomeFolder, IsTheOneGiven) {
  set("VARNHOLD_HOME", "/other");
  EXPECT_EQ(homeFolder("/given/home"), "/given/home");
}

TEST_F(HomeFolder, IsElseThatOfTheProductsVariable) {
  set("VARNHOLD_HOME", "/own");
  set("XDG_DATA_HOME", "/data");
  EXPECT_EQ(homeFolder({}), "/own");
}

TEST_F(HomeFolder, IsElseInTheFolderForDataOfPrograms) {
  set("VARNHOLD_HOME", "");
  set("XDG_DATA_HOME", "/data");
  set("HOME", "/home/u");
  EXPECT_EQ(homeFolder({}), "/data/varnhold");
}

TEST_F(HomeFolder, IsElseInTheUsersFolder) {
  set("HOME", "/home/u");
  EXPECT_EQ(homeFolder({}), "/home/u/.local/share/varnhold");
}

TEST_F(HomeFolder, IsInTheUsersFolderOfTheAccountWhereNoVariableSaysSo) {
  const auto home = homeFolder({});
  EXPECT_TRUE(home.ends_with("/.local/share/varnhold")) << home;
  EXPECT_TRUE(home.starts_with("/")) << home;
}

TEST_F(HomeFolder, IsAbsoluteAndHasNoClosingSlash) {
  EXPECT_EQ(homeFolder("/a/b/../c//"), "/a/c");
  EXPECT_EQ(homeFolder("relative"), (std::filesystem::current_path() / "relative").string());
}

}  // namespace
}  // namespace varnhold::platform::posix
