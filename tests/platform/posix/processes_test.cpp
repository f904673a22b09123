#include "platform/processes.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <chrono>
#include <thread>

#include "platform/posix/adapters.h"
#include "tests/platform/posix/child_process.h"
#include "tests/platform/posix/standin.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform::posix {
namespace {

constexpr int kNoAssociation = 31;

class PosixProcesses : public ::testing::Test {
 protected:
  int open(const std::string& file) { return processes_->shellExecute("open", file, ShowState::Hidden); }
  int openBatch(const std::string& content) {
    writeFile(folder_ / "RmTempLog.bat", content);
    return open(folder_.path() + "\\rmtemplog.BAT");
  }

  TemporaryFolder folder_;
  std::unique_ptr<CompanionLibrary> standin_ = makeStandin();
  PathResolver paths_{*standin_};
  std::unique_ptr<Files> files_ = makeFiles(paths_);
  std::unique_ptr<Processes> processes_ = makeProcesses(*files_, paths_, *standin_);
};

TEST_F(PosixProcesses, HandTheCredentialsOfANetUseLineToTheCompanion) {
  EXPECT_GT(openBatch("net use \\\\HOST1\\c$ pass word /USER:CORP\\admin\r\n"), 32);
  EXPECT_EQ(standinCalls(*standin_), "connect|\\\\HOST1\\c$|CORP\\admin|pass word\n");
}

TEST_F(PosixProcesses, HandADisconnectionToTheCompanion) {
  EXPECT_GT(openBatch("net use \\\\HOST1\\d$  /DELETE\r\n"), 32);
  EXPECT_EQ(standinCalls(*standin_), "disconnect|\\\\HOST1\\d$\n");
}

TEST_F(PosixProcesses, RunNoOtherBatchFile) {
  EXPECT_EQ(openBatch("del C:\\x\r\n"), kNoAssociation);
  EXPECT_EQ(openBatch(""), kNoAssociation);
  EXPECT_EQ(openBatch(std::string(1'000'000, '\0')), kNoAssociation);
  EXPECT_EQ(standinCalls(*standin_), "");
}

TEST_F(PosixProcesses, SayThatAFileOrItsFolderIsMissing) {
  EXPECT_EQ(open(folder_.path() + "\\missing.bat"), 2);
  EXPECT_EQ(open(folder_.path() + "\\missing\\missing.txt"), 2);
  EXPECT_EQ(open(""), 2);
}

/// Where programs are found there is only an opener that writes down what it was given.
class PosixProcessesOnADesktop : public PosixProcesses {
 protected:
  void SetUp() override {
    writeFile(folder_ / "xdg-open", "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$1\" > '" + folder_ / "opened.part" +
                                        "'\n/bin/mv '" + folder_ / "opened.part" + "' '" +
                                        folder_ / "opened" + "'\n");
    ::chmod((folder_ / "xdg-open").c_str(), 0755);
  }
  /// What the opener wrote; it runs beside the program.
  std::string opened() {
    for (int tries = 0; tries < 5000 && !files_->exists(folder_ / "opened"); ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return contentOf(folder_ / "opened");
  }
  void makeProgram(const std::string& name) {
    writeFile(folder_ / name, contentOf(folder_ / "xdg-open"));
    ::chmod((folder_ / name).c_str(), 0755);
  }
  /// In a process whose programs are found in this folder alone.
  int openWithPath(const std::string& path, const std::string& file) {
    return inChild([&] {
      ::setenv("PATH", path.c_str(), 1);
      return open(file);
    });
  }
};

TEST_F(PosixProcessesOnADesktop, HandAFileToTheDesktopWithoutAShell) {
  writeFile(folder_ / "System Report $(x) 'q'.txt", "");
  EXPECT_EQ(openWithPath(folder_.path(), folder_.path() + "\\system report $(X) 'Q'.TXT"), 42);
  EXPECT_EQ(opened(), "1\n" + folder_ / "System Report $(x) 'q'.txt" + "\n");
}

TEST_F(PosixProcessesOnADesktop, HandAnAddressToTheDesktop) {
  EXPECT_EQ(openWithPath(folder_.path(), "https://www.example.com/a?b=c&d"), 42);
  EXPECT_EQ(opened(), "1\nhttps://www.example.com/a?b=c&d\n");
}

TEST_F(PosixProcessesOnADesktop, StartAProgramByItsNameWithItsParameters) {
  makeProgram("browser");
  EXPECT_EQ(inChild([&] {
              ::setenv("PATH", folder_.path().c_str(), 1);
              return processes_->shellExecute("open", "browser", "https://www.example.com/a b",
                                              ShowState::Normal);
            }),
            42);
  EXPECT_EQ(opened(), "1\nhttps://www.example.com/a b\n");
}

TEST_F(PosixProcessesOnADesktop, OpenTheFileOfANotepadAsTheDesktopDoes) {
  writeFile(folder_ / "the AILog.txt", "");
  EXPECT_EQ(inChild([&] {
              ::setenv("PATH", folder_.path().c_str(), 1);
              return processes_->shellExecute("open", "Notepad.exe", folder_.path() + "\\the ailog.TXT",
                                              ShowState::Normal);
            }),
            42);
  EXPECT_EQ(opened(), "1\n" + folder_ / "the AILog.txt" + "\n");
}

TEST_F(PosixProcessesOnADesktop, SayThatTheFileOfANotepadIsMissing) {
  EXPECT_EQ(
      processes_->shellExecute("open", "notepad.exe", folder_.path() + "\\missing.txt", ShowState::Normal),
      2);
}

TEST_F(PosixProcessesOnADesktop, SayThatAProgramIsMissing) {
  EXPECT_EQ(processes_->shellExecute("open", "nosuchbrowser", "https://www.example.com", ShowState::Normal),
            2);
}

TEST_F(PosixProcessesOnADesktop, SayWhenThereIsNoDesktop) {
  writeFile(folder_ / "a.txt", "");
  EXPECT_EQ(openWithPath("/nonexistent", folder_ / "a.txt"), kNoAssociation);
}

TEST_F(PosixProcesses, StartNothingAsSomebodyElse) {
  ProcessInformation started;
  TokenHandle token = 0;
  EXPECT_EQ(processes_->createProcessWithLogon("admin", "CORP", "secret", kLogonWithProfile, "tool",
                                               kCreateDefaultErrorMode, "/", started),
            120u);
  EXPECT_EQ(processes_->logonUser("admin", "CORP", "secret", kLogonInteractive, kLogonProviderDefault, token),
            120u);
  EXPECT_EQ(processes_->createProcessAsUser(token, "tool", kCreateDefaultErrorMode, "/", started), 120u);
  EXPECT_EQ(token, 0u);
  EXPECT_EQ(started.thread, 0u);
}

}  // namespace
}  // namespace varnhold::platform::posix
