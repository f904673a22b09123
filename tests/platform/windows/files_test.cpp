#include <aclapi.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/text.h"
#include "platform/windows/adapters.h"
#include "platform/windows/owned_handle.h"
#include "platform/windows/text.h"
#include "tests/platform/windows/temporary_folder.h"

namespace varnhold::platform::windows {
namespace {

class WindowsFilesTest : public ::testing::Test {
 protected:
  TemporaryFolder folder_;
  std::unique_ptr<Files> files_ = makeFiles();
};

/// The accounts that the file's access list lets in, without the system's own, which Wine adds to every list.
std::vector<std::vector<BYTE>> admittedBy(const std::string& path) {
  ACL* list = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  GetNamedSecurityInfoW(toWide(path).data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                        &list, nullptr, &descriptor);
  std::vector<std::vector<BYTE>> accounts;
  for (DWORD i = 0; list != nullptr && i < list->AceCount; ++i) {
    void* entry = nullptr;
    if (!GetAce(list, i, &entry)) break;
    const auto* allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
    if (allowed->Header.AceType != ACCESS_ALLOWED_ACE_TYPE || allowed->Mask == 0) continue;
    auto* sid = reinterpret_cast<BYTE*>(const_cast<DWORD*>(&allowed->SidStart));
    if (!IsWellKnownSid(sid, WinLocalSystemSid)) accounts.emplace_back(sid, sid + GetLengthSid(sid));
  }
  LocalFree(descriptor);
  return accounts;
}

std::vector<BYTE> ownAccount() {
  HANDLE opened = nullptr;
  OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened);
  const OwnedHandle token(opened);
  alignas(TOKEN_USER) BYTE user[256] = {};
  DWORD used = 0;
  GetTokenInformation(token.get(), TokenUser, user, sizeof user, &used);
  auto* const sid = static_cast<BYTE*>(reinterpret_cast<TOKEN_USER*>(user)->User.Sid);
  return {sid, sid + GetLengthSid(sid)};
}

/// Makes a file read-only for as long as this object lives.
class ReadOnly {
 public:
  explicit ReadOnly(const std::string& path) : path_(toWide(path)) {
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY);
  }
  ~ReadOnly() { SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL); }
  ReadOnly(const ReadOnly&) = delete;
  ReadOnly& operator=(const ReadOnly&) = delete;

 private:
  std::wstring path_;
};

TEST_F(WindowsFilesTest, AFileForItsOwnerLetsNobodyElseIn) {
  const auto path = folder_ / "RmTempLog.bat";
  ASSERT_EQ(files_->createNew(path, "secret", FileAccess::OwnerOnly), FileOutcome::Done);
  EXPECT_EQ(admittedBy(path), std::vector<std::vector<BYTE>>{ownAccount()});

  const auto open = folder_ / "AILog.txt";
  ASSERT_EQ(files_->createNew(open, "", FileAccess::Everyone), FileOutcome::Done);
  EXPECT_NE(admittedBy(open), std::vector<std::vector<BYTE>>{ownAccount()});
}

TEST_F(WindowsFilesTest, APathTooLongForTheHostHasACleanEnd) {
  const auto component = folder_ / std::string(1000, 'x');
  EXPECT_FALSE(files_->exists(component));
  EXPECT_EQ(files_->read(component), std::nullopt);
  EXPECT_NE(files_->append(component, "x"), FileOutcome::Done);
  EXPECT_NE(files_->createNew(component, "x", FileAccess::Everyone), FileOutcome::Done);
  EXPECT_FALSE(files_->createProbe(component));
  EXPECT_NE(files_->remove(component), FileOutcome::Done);

  std::string deep = folder_.path();
  for (int i = 0; i < 40; ++i) deep += "\\a folder that is not there";
  EXPECT_FALSE(files_->exists(deep));
  EXPECT_EQ(files_->append(deep, "x"), FileOutcome::NotFound);
}

TEST_F(WindowsFilesTest, APathWithANulIsNoPathToAnotherFile) {
  const auto path = folder_ / "AILog.txt";
  ASSERT_EQ(files_->createNew(path, "kept", FileAccess::Everyone), FileOutcome::Done);
  const auto withNul = path + std::string("\0.bak", 5);
  EXPECT_FALSE(files_->exists(withNul));
  EXPECT_EQ(files_->read(withNul), std::nullopt);
  EXPECT_NE(files_->append(withNul, "x"), FileOutcome::Done);
  EXPECT_FALSE(files_->createProbe(withNul));
  EXPECT_NE(files_->remove(withNul), FileOutcome::Done);
  EXPECT_EQ(files_->read(path), "kept");
}

TEST_F(WindowsFilesTest, ADeviceIsNotRead) {
  EXPECT_EQ(files_->read(folder_ / "NUL"), std::nullopt);
  EXPECT_EQ(files_->read("CON"), std::nullopt);
}

TEST_F(WindowsFilesTest, AReadOnlyFileIsRefused) {
  const auto path = folder_ / "AILog.txt";
  ASSERT_EQ(files_->createNew(path, "kept", FileAccess::Everyone), FileOutcome::Done);
  const ReadOnly readOnly(path);
  if (OwnedHandle(CreateFileW(toWide(path).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr))) {
    GTEST_SKIP() << "this account is refused nothing, as root is under Wine";
  }
  EXPECT_EQ(files_->append(path, "x"), FileOutcome::Refused);
  EXPECT_FALSE(files_->createProbe(path));
  EXPECT_EQ(files_->read(path), "kept");
}

TEST_F(WindowsFilesTest, AFileThatSomebodyKeepsForHimselfIsRefused) {
  const auto path = folder_ / "AILog.txt";
  const OwnedHandle keeper(
      CreateFileW(toWide(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  EXPECT_EQ(files_->append(path, "x"), FileOutcome::Refused);
  EXPECT_EQ(files_->read(path), std::nullopt);
  EXPECT_EQ(files_->remove(path), FileOutcome::Refused);
}

TEST_F(WindowsFilesTest, TwoWritersAtOneEndLoseNoLine) {
  const auto path = folder_ / "AILog.txt";
  std::atomic<int> written{0};
  const auto write = [&](const std::string& line) {
    const auto own = makeFiles();
    for (int i = 0; i < 200; ++i) written += own->append(path, line) == FileOutcome::Done ? 1 : 0;
  };
  const std::string one(50, '1'), two(50, '2');
  std::thread other(write, two + "\n");
  write(one + "\n");
  other.join();
  EXPECT_EQ(written, 400);
  const auto lines = split(files_->read(path).value_or(""), '\n');
  EXPECT_EQ(std::count(lines.begin(), lines.end(), one), 200);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), two), 200);
}

TEST_F(WindowsFilesTest, AFullDiskIsTold) {
  // Wine shows the Unix device that is always full; Windows has none.
  const std::string full = R"(Z:\dev\full)";
  const auto outcome = files_->append(full, "x");
  if (outcome == FileOutcome::NotFound) GTEST_SKIP() << "no " << full;
  EXPECT_EQ(outcome, FileOutcome::Full);
}

}  // namespace
}  // namespace varnhold::platform::windows
