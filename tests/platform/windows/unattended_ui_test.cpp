#include <gtest/gtest.h>
#include <windows.h>

#include <optional>

#include "platform/windows/adapters.h"
#include "platform/windows/owned_handle.h"
#include "platform/windows/text.h"
#include "tests/platform/windows/temporary_folder.h"

namespace varnhold::platform::windows {
namespace {

/// Standard error of this process in a file, for as long as this object lives.
class CaughtStandardError {
 public:
  explicit CaughtStandardError(const std::string& path)
      : file_(CreateFileW(toWide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0,
                          nullptr)) {
    SetStdHandle(STD_ERROR_HANDLE, file_.get());
  }
  ~CaughtStandardError() { SetStdHandle(STD_ERROR_HANDLE, before_); }
  CaughtStandardError(const CaughtStandardError&) = delete;
  CaughtStandardError& operator=(const CaughtStandardError&) = delete;

 private:
  HANDLE before_ = GetStdHandle(STD_ERROR_HANDLE);
  OwnedHandle file_;
};

TEST(WindowsUnattendedUi, WritesEachMessageAsALineOfUtf8ToStandardError) {
  const TemporaryFolder folder;
  const auto path = folder / "errors.txt";
  {
    const CaughtStandardError caught(path);
    const auto ui = makeUnattendedUi();
    ui->messageBox("Could not set the working directory. Aborting...", MessageIcon::Critical);
    ui->messageBox("Größe €", MessageIcon::Information);
  }
  EXPECT_EQ(makeFiles()->read(path), "Could not set the working directory. Aborting...\r\nGröße €\r\n");
}

}  // namespace
}  // namespace varnhold::platform::windows
