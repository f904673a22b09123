#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/adapters.h"
#include "platform/windows/text.h"
#include "tests/platform/windows/temporary_folder.h"

namespace varnhold::platform::windows {
namespace {

std::string currentDirectory() {
  wchar_t folder[MAX_PATH] = {};
  return fromWide({folder, GetCurrentDirectoryW(MAX_PATH, folder)});
}

class WindowsEnvironmentTest : public ::testing::Test {
 protected:
  ~WindowsEnvironmentTest() override { SetCurrentDirectoryW(toWide(startedIn_).c_str()); }

  std::string startedIn_ = currentDirectory();
  std::unique_ptr<Environment> environment_ = makeEnvironment();
};

TEST_F(WindowsEnvironmentTest, TheCommandLineIsTheEndOfTheProcesssOwnWithoutItsProgram) {
  const auto whole = fromWide(GetCommandLineW());
  const auto arguments = environment_->commandLine();
  ASSERT_LT(arguments.size(), whole.size());
  EXPECT_EQ(whole.substr(whole.size() - arguments.size()), arguments);
  EXPECT_EQ(arguments.find("platform_windows_test"), std::string::npos);
}

TEST_F(WindowsEnvironmentTest, TheProgramsFolderHoldsTheProgram) {
  EXPECT_TRUE(makeFiles()->exists(environment_->programFolder() + R"(\platform_windows_test.exe)"));
}

TEST_F(WindowsEnvironmentTest, ADriveAloneIsItsRoot) {
  const auto drive = startedIn_.substr(0, 2);
  ASSERT_NE(startedIn_, drive + '\\') << "started in the root itself";
  ASSERT_TRUE(environment_->setCurrentDirectory(drive));
  EXPECT_EQ(currentDirectory(), drive + '\\');
}

TEST_F(WindowsEnvironmentTest, GoesToAFolderOfAnyName) {
  const TemporaryFolder folder;
  const auto named = folder / "Größe €";
  CreateDirectoryW(toWide(named).c_str(), nullptr);
  EXPECT_TRUE(environment_->setCurrentDirectory(named));
  EXPECT_EQ(currentDirectory(), named);
  SetCurrentDirectoryW(toWide(startedIn_).c_str());
}

TEST_F(WindowsEnvironmentTest, TheNameFillsABufferOf256Characters) {
  const auto filled = environment_->getComputerName();
  ASSERT_TRUE(filled.has_value());
  EXPECT_EQ(filled->size(), 256u);
  EXPECT_EQ(filled->back(), '\0');
}

TEST_F(WindowsEnvironmentTest, TellsTheLineAndVersionOfWindows) {
  const auto version = environment_->getVersionEx();
  EXPECT_EQ(version.platformId, DWORD{VER_PLATFORM_WIN32_NT});
  EXPECT_GE(version.majorVersion, 5u);
}

}  // namespace
}  // namespace varnhold::platform::windows
