#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <optional>
#include <string>

#include "platform/files.h"

/// What every `Files` does, the fake included. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, FilesContract, PosixFilesHost);
namespace varnhold::contract {

template <class Host>
concept FilesHost = std::default_initializable<Host> && requires(Host host, std::string name) {
  { host.files() } -> std::convertible_to<platform::Files&>;
  /// An empty folder of this host's own, as a path in the product's form without closing backslash, the same
  /// at each call; the host clears it away.
  { host.folder() } -> std::convertible_to<std::string>;
  /// Makes a folder of this name in `folder()`.
  host.makeFolder(name);
};

template <FilesHost Host>
class FilesContract : public ::testing::Test {
 protected:
  platform::Files& files() { return host_.files(); }
  std::string path(const std::string& name) { return host_.folder() + "\\" + name; }
  void make(const std::string& name, const std::string& bytes) {
    ASSERT_EQ(files().createNew(path(name), bytes, platform::FileAccess::Everyone),
              platform::FileOutcome::Done);
  }
  std::optional<std::string> read(const std::string& name) { return files().read(path(name)); }

  Host host_;
};

TYPED_TEST_SUITE_P(FilesContract);

TYPED_TEST_P(FilesContract, FindsAFileAndNoFolder) {
  this->make("AILog.txt", "");
  this->host_.makeFolder("remins");
  EXPECT_TRUE(this->files().exists(this->path("AILog.txt")));
  EXPECT_FALSE(this->files().exists(this->path("other.txt")));
  EXPECT_FALSE(this->files().exists(this->path("remins")));
  EXPECT_FALSE(this->files().exists(this->path("missing\\AILog.txt")));
}

TYPED_TEST_P(FilesContract, TellsWhatIsThereFileOrFolder) {
  this->make("AILog.txt", "");
  this->host_.makeFolder("remins");
  EXPECT_TRUE(this->files().isThere(this->path("ailog.TXT")));
  EXPECT_TRUE(this->files().isThere(this->path("remins")));
  EXPECT_FALSE(this->files().isThere(this->path("other.txt")));
  EXPECT_FALSE(this->files().isThere(this->path("missing\\AILog.txt")));
  EXPECT_FALSE(this->files().isThere(""));
}

TYPED_TEST_P(FilesContract, FindsFoldersAndFilesWithoutCase) {
  this->host_.makeFolder("RemoteInstaller");
  this->make("RemoteInstaller\\AILog.txt", "line");
  EXPECT_TRUE(this->files().exists(this->path("remoteinstaller\\AILOG.TXT")));
  EXPECT_EQ(this->read("REMOTEINSTALLER\\ailog.txt"), "line");
}

TYPED_TEST_P(FilesContract, ReadsEveryByte) {
  const std::string bytes("\xEF\xBB\xBFone\r\ntwo\n\0\x1A\xFF end", 19);
  this->make("list.txt", bytes);
  EXPECT_EQ(this->read("list.txt"), bytes);
  this->make("empty.txt", "");
  EXPECT_EQ(this->read("empty.txt"), "");
}

TYPED_TEST_P(FilesContract, ReadsAndWritesTenMegabytes) {
  std::string bytes(10'000'000, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 31 >> 3);
  this->make("big.txt", bytes);
  EXPECT_TRUE(this->read("big.txt") == bytes);
}

TYPED_TEST_P(FilesContract, ReadsNothingWhereThereIsNoFile) {
  this->host_.makeFolder("folder");
  EXPECT_EQ(this->read("missing.txt"), std::nullopt);
  EXPECT_EQ(this->read("missing\\missing.txt"), std::nullopt);
  EXPECT_EQ(this->read("folder"), std::nullopt);
}

TYPED_TEST_P(FilesContract, AppendMakesTheFileAndAddsAtItsEnd) {
  EXPECT_EQ(this->files().append(this->path("AILog.txt"), "\"one\"\r\n"), platform::FileOutcome::Done);
  EXPECT_EQ(this->files().append(this->path("AILog.txt"), ""), platform::FileOutcome::Done);
  EXPECT_EQ(this->files().append(this->path("ailog.TXT"), "two\r\n"), platform::FileOutcome::Done);
  EXPECT_EQ(this->read("AILog.txt"), "\"one\"\r\ntwo\r\n");
}

TYPED_TEST_P(FilesContract, AppendTellsWhatIsInItsWay) {
  this->host_.makeFolder("folder");
  EXPECT_EQ(this->files().append(this->path("missing\\AILog.txt"), "x"), platform::FileOutcome::NotFound);
  EXPECT_EQ(this->files().append(this->path("folder"), "x"), platform::FileOutcome::Refused);
}

TYPED_TEST_P(FilesContract, CreateNewLeavesAnExistingFileAlone) {
  this->make("RmTempLog.bat", "before");
  const auto createNew = [&](const char* name, platform::FileAccess access) {
    return this->files().createNew(this->path(name), "after", access);
  };
  EXPECT_EQ(createNew("RmTempLog.bat", platform::FileAccess::Everyone), platform::FileOutcome::Exists);
  EXPECT_EQ(createNew("RMTEMPLOG.BAT", platform::FileAccess::OwnerOnly), platform::FileOutcome::Exists);
  EXPECT_EQ(createNew("missing\\new.bat", platform::FileAccess::Everyone), platform::FileOutcome::NotFound);
  EXPECT_EQ(this->read("RmTempLog.bat"), "before");
}

TYPED_TEST_P(FilesContract, CreateNewForTheOwnerCanBeReadByTheOwner) {
  EXPECT_EQ(this->files().createNew(this->path("RmTempLog.bat"), "secret", platform::FileAccess::OwnerOnly),
            platform::FileOutcome::Done);
  EXPECT_EQ(this->read("RmTempLog.bat"), "secret");
}

TYPED_TEST_P(FilesContract, TheProbeIsAnEmptyFile) {
  EXPECT_TRUE(this->files().createProbe(this->path("2026-1-31_16-5-9.tmp")));
  EXPECT_EQ(this->read("2026-1-31_16-5-9.tmp"), "");
}

TYPED_TEST_P(FilesContract, TheProbeAlwaysCreates) {
  this->make("old.tmp", "content");
  EXPECT_TRUE(this->files().createProbe(this->path("old.tmp")));
  EXPECT_EQ(this->read("old.tmp"), "");
}

TYPED_TEST_P(FilesContract, TheProbeFailsWhereNoFileCanBe) {
  this->host_.makeFolder("folder");
  EXPECT_FALSE(this->files().createProbe(this->path("missing\\x.tmp")));
  EXPECT_FALSE(this->files().createProbe(this->path("folder")));
}

TYPED_TEST_P(FilesContract, RemovesAFileAndNoFolder) {
  this->make("AILog.txt", "x");
  this->host_.makeFolder("folder");
  EXPECT_EQ(this->files().remove(this->path("ailog.txt")), platform::FileOutcome::Done);
  EXPECT_FALSE(this->files().exists(this->path("AILog.txt")));
  EXPECT_EQ(this->files().remove(this->path("AILog.txt")), platform::FileOutcome::NotFound);
  EXPECT_EQ(this->files().remove(this->path("missing\\AILog.txt")), platform::FileOutcome::NotFound);
  EXPECT_EQ(this->files().remove(this->path("folder")), platform::FileOutcome::Refused);
}

TYPED_TEST_P(FilesContract, TakesNamesWithBlanksApostrophesAndLettersOfOtherScripts) {
  for (const char* name : {"a name with blanks.txt", "O'Neill.txt", "Größe €.txt"}) {
    this->make(name, name);
    EXPECT_EQ(this->read(name), name);
  }
}

REGISTER_TYPED_TEST_SUITE_P(FilesContract, FindsAFileAndNoFolder, TellsWhatIsThereFileOrFolder,
                            FindsFoldersAndFilesWithoutCase, ReadsEveryByte, ReadsAndWritesTenMegabytes,
                            ReadsNothingWhereThereIsNoFile, AppendMakesTheFileAndAddsAtItsEnd,
                            AppendTellsWhatIsInItsWay, CreateNewLeavesAnExistingFileAlone,
                            CreateNewForTheOwnerCanBeReadByTheOwner, TheProbeIsAnEmptyFile,
                            TheProbeAlwaysCreates, TheProbeFailsWhereNoFileCanBe, RemovesAFileAndNoFolder,
                            TakesNamesWithBlanksApostrophesAndLettersOfOtherScripts);

}  // namespace varnhold::contract
