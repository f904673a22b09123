#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/posix/adapters.h"
#include "tests/platform/posix/child_process.h"
#include "tests/platform/posix/standin.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform::posix {
namespace {

namespace fs = std::filesystem;

class PosixFiles : public ::testing::Test {
 protected:
  std::string path(const std::string& name) { return folder_.path() + "\\" + name; }
  mode_t modeOf(const std::string& name) {
    struct stat status {};
    EXPECT_EQ(::stat((folder_ / name).c_str(), &status), 0);
    return status.st_mode & 07777;
  }

  TemporaryFolder folder_;
  std::unique_ptr<CompanionLibrary> standin_ = makeStandin();
  PathResolver paths_{*standin_};
  std::unique_ptr<Files> files_ = makeFiles(paths_);
};

TEST_F(PosixFiles, PreferTheNameThatIsThereExactly) {
  for (const char* name : {"LOG.txt", "log.txt", "Log.txt"}) writeFile(folder_ / name, name);
  EXPECT_EQ(files_->read(path("log.txt")), "log.txt");
  EXPECT_EQ(files_->read(path("Log.txt")), "Log.txt");
  EXPECT_EQ(files_->read(path("lOG.TXT")), "LOG.txt");  // the first in the order of bytes
}

TEST_F(PosixFiles, PreferAFolderThatIsThereExactly) {
  fs::create_directories(folder_ / "Sub");
  fs::create_directories(folder_ / "SUB");
  writeFile(folder_ / "Sub/a.txt", "Sub");
  writeFile(folder_ / "SUB/a.txt", "SUB");
  EXPECT_EQ(files_->read(path("Sub\\A.TXT")), "Sub");
  EXPECT_EQ(files_->read(path("SUB\\A.TXT")), "SUB");
}

TEST_F(PosixFiles, FindLettersOfOtherScriptsWithoutCase) {
  writeFile(folder_ / "Größe Ж.txt", "x");
  EXPECT_EQ(files_->read(path("gRÖßE ж.TXT")), "x");
}

TEST_F(PosixFiles, TakeSlashesInTheHomesPartOfAPath) {
  fs::create_directories(folder_ / "RemoteInstaller/remins");
  writeFile(folder_ / "RemoteInstaller/remins/a.dll", "x");
  EXPECT_TRUE(files_->exists(folder_.path() + "/RemoteInstaller\\remins\\A.DLL"));
}

TEST_F(PosixFiles, MakeAFileForTheOwnerThatNoOtherUserCanRead) {
  ASSERT_EQ(files_->createNew(path("RmTempLog.bat"), "secret", FileAccess::OwnerOnly), FileOutcome::Done);
  EXPECT_EQ(modeOf("RmTempLog.bat"), 0600u);
}

TEST_F(PosixFiles, MakeAFileForEveryoneAsTheUsersMaskHasIt) {
  const mode_t mask = ::umask(022);
  ASSERT_EQ(files_->createNew(path("a.txt"), "", FileAccess::Everyone), FileOutcome::Done);
  ::umask(mask);
  EXPECT_EQ(modeOf("a.txt"), 0644u);
}

TEST_F(PosixFiles, FollowNoLinkWhenTheyMakeANewFile) {
  fs::create_symlink(folder_ / "target", folder_ / "RmTempLog.bat");
  EXPECT_EQ(files_->createNew(path("RmTempLog.bat"), "secret", FileAccess::OwnerOnly), FileOutcome::Exists);
  EXPECT_FALSE(fs::exists(folder_ / "target"));
}

TEST_F(PosixFiles, ReadNothingThatIsNoPlainFile) {
  ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
  fs::create_symlink(folder_ / "nowhere", folder_ / "dangling");
  EXPECT_EQ(files_->read(path("pipe")), std::nullopt);
  EXPECT_EQ(files_->read(path("dangling")), std::nullopt);
  EXPECT_EQ(files_->read("/dev/zero"), std::nullopt);
  EXPECT_NE(files_->append(path("pipe"), "x"), FileOutcome::Done);
}

TEST_F(PosixFiles, SayThatADeviceIsFull) {
  fs::create_symlink("/dev/full", folder_ / "AILog.txt");
  EXPECT_EQ(files_->append(path("AILog.txt"), "line"), FileOutcome::Full);
}

TEST_F(PosixFiles, LeaveNothingHalfWrittenOnAFullDisk) {
  writeFile(folder_ / "AILog.txt", std::string(500, 'a'));
  const auto body = [&] {
    limitFileSize(1000);
    if (files_->append(path("AILog.txt"), std::string(2000, 'b')) != FileOutcome::Full) return 1;
    if (files_->append(path("new.txt"), std::string(2000, 'b')) != FileOutcome::Full) return 2;
    if (files_->createNew(path("new.bat"), std::string(2000, 'b'), FileAccess::OwnerOnly) !=
        FileOutcome::Full)
      return 3;
    return files_->append(path("AILog.txt"), std::string(500, 'c')) == FileOutcome::Done ? 0 : 4;
  };
  EXPECT_EQ(inChild(body), 0);
  EXPECT_EQ(contentOf(folder_ / "AILog.txt"), std::string(500, 'a') + std::string(500, 'c'));
  EXPECT_EQ(contentOf(folder_ / "new.txt"), "");
  EXPECT_FALSE(fs::exists(folder_ / "new.bat"));
}

TEST_F(PosixFiles, SayThatAReadOnlyFolderRefuses) {
  writeFile(folder_ / "AILog.txt", "line");
  ::chmod((folder_ / "AILog.txt").c_str(), 0444);
  ::chmod(folder_.path().c_str(), 0555);
  const auto body = [&] {
    if (!becomeOrdinaryUser()) return 1;
    if (files_->append(path("AILog.txt"), "more") != FileOutcome::Refused) return 2;
    if (files_->append(path("new.txt"), "x") != FileOutcome::Refused) return 3;
    if (files_->createNew(path("new.bat"), "x", FileAccess::OwnerOnly) != FileOutcome::Refused) return 4;
    if (files_->createProbe(path("probe.tmp"))) return 5;
    if (files_->remove(path("AILog.txt")) != FileOutcome::Refused) return 6;
    return files_->read(path("ailog.TXT")) == "line" ? 0 : 7;
  };
  EXPECT_EQ(inChild(body), 0);
  ::chmod(folder_.path().c_str(), 0755);
}

TEST_F(PosixFiles, ReadNothingThatTheUserMayNotRead) {
  writeFile(folder_ / "list.txt", "HOST1");
  ::chmod((folder_ / "list.txt").c_str(), 0);
  ::chmod(folder_.path().c_str(), 0755);
  EXPECT_EQ(inChild([&] { return becomeOrdinaryUser() && !files_->read(path("list.txt")) ? 0 : 1; }), 0);
}

TEST_F(PosixFiles, KeepLinesOfTwoWritersWhole) {
  const auto writer = [&](char letter) {
    return startChild([this, letter] {
      for (int i = 0; i < 300; ++i) {
        if (files_->append(path("AILog.txt"), std::string(99, letter) + "\n") != FileOutcome::Done) return 1;
      }
      return 0;
    });
  };
  const auto first = writer('a'), second = writer('b');
  EXPECT_EQ(waitForChild(first), 0);
  EXPECT_EQ(waitForChild(second), 0);
  const auto log = contentOf(folder_ / "AILog.txt");
  ASSERT_EQ(log.size(), 60'000u);
  for (std::size_t at = 0; at < log.size(); at += 100) {
    EXPECT_EQ(log.substr(at, 100), std::string(99, log[at]) + "\n");
  }
}

TEST_F(PosixFiles, FindNothingOnAShareThatCannotBeReached) {
  EXPECT_FALSE(files_->exists(R"(\\GONE\C$\a.txt)"));
  EXPECT_EQ(files_->append(R"(\\GONE\C$\a.txt)", "x"), FileOutcome::NotFound);
  EXPECT_FALSE(files_->createProbe(R"(\\GONE\C$\a.tmp)"));
  EXPECT_EQ(files_->remove(R"(\\GONE\C$\a.tmp)"), FileOutcome::NotFound);
}

TEST_F(PosixFiles, TakeNamesThatAreTooLongForTheHost) {
  const std::string longName(5000, 'x');
  EXPECT_FALSE(files_->exists(path(longName)));
  EXPECT_EQ(files_->append(path(longName), "x"), FileOutcome::Refused);
  EXPECT_EQ(files_->read(""), std::nullopt);
}

}  // namespace
}  // namespace varnhold::platform::posix
