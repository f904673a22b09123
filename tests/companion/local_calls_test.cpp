#include "companion/local_calls.h"

#include <gtest/gtest.h>

#include "tests/companion/lab_fixture.h"

namespace varnhold::companion::test {
namespace {

class AgentConfiguration : public testing::Test {
 protected:
  [[nodiscard]] bool edit(std::int32_t mode) const {
    return editAgentConfiguration(lab_.agentFolder() / "vhagent", lab_.agentFolder(), ini_, mode);
  }

  LabFixture lab_;
  std::filesystem::path ini_ = lab_.agentFolder() / "vhaconfig.ini";
};

TEST_F(AgentConfiguration, IsStandardForTheModes0And1AndHighPerformanceFor5) {
  for (const auto& [mode, value] :
       {std::pair(5, "1"), std::pair(0, "0"), std::pair(5, "1"), std::pair(1, "0")}) {
    EXPECT_TRUE(edit(mode));
    EXPECT_EQ(readText(ini_), std::string("[Performance]\r\nHighPerformance=") + value + "\r\n");
  }
}

TEST_F(AgentConfiguration, KeepsAllOtherLinesAndTheirLineEnds) {
  writeText(ini_,
            "; agent\r\n[Log]\nLevel = 3 ; high\r\n\r\n[performance]\r\nHIGHPERFORMANCE = 0 ; "
            "standard\n[Last]\nx=y");
  EXPECT_TRUE(edit(5));
  EXPECT_EQ(readText(ini_),
            "; agent\r\n[Log]\nLevel = 3 ; high\r\n\r\n[performance]\r\nHIGHPERFORMANCE = 1 ; "
            "standard\n[Last]\nx=y");
}

TEST_F(AgentConfiguration, GetsTheKeyWhereItIsMissing) {
  writeText(ini_, "[Log]\r\nLevel=3\r\n");
  EXPECT_TRUE(edit(1));
  EXPECT_EQ(readText(ini_), "[Log]\r\nLevel=3\r\n[Performance]\r\nHighPerformance=0\r\n");
}

TEST_F(AgentConfiguration, IsNotEditedForAnotherMode) {
  const std::string before = readText(ini_);
  for (const std::int32_t mode : {-1, 2, 3, 4, 6}) EXPECT_FALSE(edit(mode)) << mode;
  EXPECT_EQ(readText(ini_), before);
}

TEST_F(AgentConfiguration, IsNotEditedWithoutTheAgentLibrary) {
  std::filesystem::remove(lab_.agentFolder() / "vhagent");
  EXPECT_FALSE(edit(1));
  writeText(lab_.agentFolder() / "vhagent.dll", "agent library");
  EXPECT_TRUE(edit(1));
}

TEST_F(AgentConfiguration, IsNotMadeWhereItIsMissing) {
  std::filesystem::remove(ini_);
  EXPECT_FALSE(edit(1));
  EXPECT_FALSE(std::filesystem::exists(ini_));
}

TEST_F(AgentConfiguration, IsNotEditedWhenItIsNoText) {
  const std::string bytes("[\0P\0]\0", 6);
  writeText(ini_, bytes);
  EXPECT_FALSE(edit(1));
  EXPECT_EQ(readText(ini_), bytes);
}

TEST(SetupInformation, IsWrittenIntoTheLibraryFolder) {
  const LabFixture lab;
  EXPECT_TRUE(writeSetupInformation(lab.libraryFolder(), {"WKS01", R"(%Program Files%\X)", "MANAGER", 5}));
  EXPECT_EQ(
      readText(lab.libraryFolder() / "vhsetup.ins"),
      "[Setup]\r\nSystem=WKS01\r\nInstallDirectory=%Program Files%\\X\r\nMode=5\r\nManager=MANAGER\r\n");
}

TEST(SetupInformation, IsNotWrittenWithoutTheFolder) {
  const LabFixture lab;
  EXPECT_FALSE(writeSetupInformation(lab.installPath() / "missing", {"WKS01", "C:\\X", "MANAGER", 1}));
}

TEST(SetupInformation, IsNotWrittenForTextsThatWouldBreakTheFile) {
  const LabFixture lab;
  const std::string before = readText(lab.libraryFolder() / "vhsetup.ins");
  EXPECT_FALSE(writeSetupInformation(lab.libraryFolder(), {"", "C:\\X", "MANAGER", 1}));
  EXPECT_FALSE(writeSetupInformation(lab.libraryFolder(), {"WKS01", "", "MANAGER", 1}));
  EXPECT_FALSE(writeSetupInformation(lab.libraryFolder(), {"WKS01\nMode=9", "C:\\X", "MANAGER", 1}));
  EXPECT_EQ(readText(lab.libraryFolder() / "vhsetup.ins"), before);
}

}  // namespace
}  // namespace varnhold::companion::test
