#include "platform/registry.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "base/runtime_error.h"
#include "platform/posix/adapters.h"
#include "platform/posix/atomic_file.h"
#include "tests/platform/posix/child_process.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform::posix {
namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

constexpr auto kMachine = RegistryHive::LocalMachine;
constexpr auto kKey = R"(SOFTWARE\Kelmont Works\Varnhold\Manager)";
constexpr auto kVersion = "Windows Registry Editor Version 5.00\r\n";
const auto kHeader = kVersion + "\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Kelmont Works\\Varnhold\\Manager]\r\n"s;

class PosixRegistry : public ::testing::Test {
 protected:
  void put(const std::string& content) { writeFile(home_ / "registry.reg", content); }
  std::string stored() { return contentOf(home_ / "registry.reg"); }
  /// The value's bytes, "(none)" when there is none.
  std::string query(const std::string& name) {
    RegistryValue value;
    const auto outcome = registry_->query(kMachine, kKey, name, 1024, value);
    return outcome == RegistryOutcome::Done ? value.bytes : "(none)";
  }
  RegistryOutcome set(const std::string& name, const std::string& text) {
    return registry_->set(kMachine, kKey, name, {kRegText, text + '\0'});
  }
  /// The description of the error that reading and writing raise alike.
  std::string damage() {
    const auto raisedBy = [](const std::function<void()>& call) {
      try {
        call();
      } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), kPathFileAccess);
        return error.description();
      }
      return "no error"s;
    };
    const auto description = raisedBy([&] { query("A"); });
    EXPECT_EQ(raisedBy([&] { static_cast<void>(set("A", "1")); }), description);
    EXPECT_EQ(raisedBy([&] { static_cast<void>(registry_->createKey(kMachine, "K")); }), description);
    return description;
  }

  TemporaryFolder home_;
  std::unique_ptr<Registry> registry_ = makeRegistry(home_.path());
};

TEST_F(PosixRegistry, WritesAFileThatTheRegistryEditorImports) {
  ASSERT_EQ(registry_->createKey(kMachine, kKey), RegistryOutcome::Done);
  ASSERT_EQ(set("INSTALLPATH", R"(C:\Varnhold)"), RegistryOutcome::Done);
  ASSERT_EQ(registry_->set(kMachine, kKey, "MpDbResend", {kRegNumber, "\1\0\0\0"s}), RegistryOutcome::Done);
  EXPECT_EQ(stored(), kHeader + "\"INSTALLPATH\"=\"C:\\\\Varnhold\"\r\n\"MpDbResend\"=dword:00000001\r\n");
  EXPECT_FALSE(fs::exists(home_ / "registry.reg.tmp"));
}

TEST_F(PosixRegistry, KeepsWhatAPersonWroteAroundTheValue) {
  put(kVersion +
      "; ours\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Kelmont Works\\Varnhold\\Manager]\n\"A\"=\"1\" ; why\n"s);
  ASSERT_EQ(set("a", "2"), RegistryOutcome::Done);
  EXPECT_EQ(stored(), kVersion +
                          "; ours\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Kelmont Works\\Varnhold\\Manager]\r\n"
                          "\"a\"=\"2\" ; why\r\n"s);
}

TEST_F(PosixRegistry, SeesEveryChangeOfTheFile) {
  put(kHeader + "\"A\"=\"1\"\r\n");
  EXPECT_EQ(query("A"), "1\0"s);
  for (const char digit : {'2', '3', '4'}) {  // same size, same file, hardly later
    put(kHeader + "\"A\"=\"" + digit + "\"\r\n");
    EXPECT_EQ(query("A"), std::string{digit} + '\0');
  }
  fs::remove(home_ / "registry.reg");
  EXPECT_EQ(query("A"), "(none)");
  put(kHeader + "\"A\"=\"5\"\r\n");
  EXPECT_EQ(query("A"), "5\0"s);
}

TEST_F(PosixRegistry, SeesWhatAnotherOneWroteAndKeepsIt) {
  const auto other = makeRegistry(home_.path());
  ASSERT_EQ(registry_->createKey(kMachine, kKey), RegistryOutcome::Done);
  for (int i = 0; i < 20; ++i) {
    const auto text = std::to_string(i);
    ASSERT_EQ(other->set(kMachine, kKey, "theirs", {kRegText, text + '\0'}), RegistryOutcome::Done);
    ASSERT_EQ(set("ours", text), RegistryOutcome::Done);
    EXPECT_EQ(query("theirs"), text + '\0');
  }
}

TEST_F(PosixRegistry, DoesNotReadAFileAgainThatIsAsItWas) {
  put(kHeader + "\"A\"=\"1\"\r\n");
  const struct timespec longAgo[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, (home_ / "registry.reg").c_str(), longAgo, 0), 0);
  EXPECT_EQ(query("A"), "1\0"s);
  struct stat before {};
  ASSERT_EQ(::stat((home_ / "registry.reg").c_str(), &before), 0);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(query("A"), "1\0"s);
  put(kHeader + "\"A\"=\"2\"\r\n");  // told apart by nothing but its time, which is put back
  ASSERT_EQ(::utimensat(AT_FDCWD, (home_ / "registry.reg").c_str(), longAgo, 0), 0);
  EXPECT_EQ(query("A"), "1\0"s);
}

TEST_F(PosixRegistry, FindsNothingWithoutFile) {
  EXPECT_EQ(query("A"), "(none)");
  EXPECT_EQ(set("A", "1"), RegistryOutcome::KeyMissing);
  EXPECT_FALSE(fs::exists(home_ / "registry.reg"));
}

TEST_F(PosixRegistry, ReadsUtf16AsTheRegistryEditorExportsIt) {
  std::string bytes = "\xFF\xFE";
  for (const char c : kHeader + "\"A\"=\"1\"\r\n") bytes += {c, '\0'};
  put(bytes);
  EXPECT_EQ(query("A"), "1\0"s);
}

TEST_F(PosixRegistry, SaysWhatIsDamagedAndWhereAndDoesNotTouchIt) {
  const auto content = kHeader + "\"A\"=\"C:\\Varnhold\"\r\n";
  put(content);
  EXPECT_EQ(damage(),
            "The registry file " + home_ / "registry.reg" +
                " is damaged in line 4: inside quotes write each backslash twice, and a quote as \\\". "
                "Correct that line or put a good copy in the file's place; nothing was written to it.");
  EXPECT_EQ(stored(), content);
}

TEST_F(PosixRegistry, DoesNotTouchAnyFileItDoesNotUnderstand) {
  for (const auto& content : {""s, "\0\0\0"s, "REGEDIT4\r\n"s, kHeader + "[-K]\r\n",
                              std::string(10'000'000, 'x'), kHeader + "\"A\"=dword:0000"}) {
    put(content);
    EXPECT_NE(damage(), "no error");
    EXPECT_TRUE(stored() == content);
  }
}

TEST_F(PosixRegistry, ReadsAgainOnceADamagedFileIsPutRight) {
  put("damaged");
  EXPECT_NE(damage(), "no error");
  put(kHeader + "\"A\"=\"1\"\r\n");
  EXPECT_EQ(query("A"), "1\0"s);
}

TEST_F(PosixRegistry, SaysThatAFolderIsInTheFilesPlace) {
  fs::create_directory(home_ / "registry.reg");
  EXPECT_NE(damage().find("registry.reg cannot be read: it is no file."), std::string::npos) << damage();
}

TEST_F(PosixRegistry, SaysThatALinkLeadsNowhere) {
  fs::create_symlink(home_ / "nowhere.reg", home_ / "registry.reg");
  EXPECT_NE(damage().find("registry.reg cannot be read: No such file or directory."), std::string::npos)
      << damage();
  EXPECT_FALSE(fs::exists(home_ / "nowhere.reg"));
}

TEST_F(PosixRegistry, DoesNotWaitForAPipeInTheFilesPlace) {
  ASSERT_EQ(::mkfifo((home_ / "registry.reg").c_str(), 0600), 0);
  EXPECT_NE(damage().find("it is no file"), std::string::npos) << damage();
}

TEST_F(PosixRegistry, SaysThatTheUserMayNotReadTheFile) {
  put(kHeader);
  ::chmod((home_ / "registry.reg").c_str(), 0);
  ::chmod(home_.path().c_str(), 0755);
  const auto body = [&] {
    try {
      if (becomeOrdinaryUser()) query("A");
    } catch (const RuntimeError& error) {
      return error.description().find("Permission denied") == std::string::npos ? 2 : 0;
    }
    return 1;
  };
  EXPECT_EQ(inChild(body), 0);
}

TEST_F(PosixRegistry, SaysThatTheHomeIsAFile) {
  writeFile(home_ / "file", "");
  registry_ = makeRegistry(home_ / "file");
  EXPECT_NE(damage().find("Not a directory"), std::string::npos) << damage();
}

TEST_F(PosixRegistry, ReadsInAReadOnlyHomeAndRefusesToWrite) {
  put(kHeader + "\"A\"=\"1\"\r\n");
  ::chmod(home_.path().c_str(), 0555);
  const auto body = [&] {
    if (!becomeOrdinaryUser()) return 1;
    if (query("A") != "1\0"s) return 2;
    if (set("A", "2") != RegistryOutcome::Refused) return 3;
    if (registry_->createKey(kMachine, "NEW") != RegistryOutcome::Refused) return 4;
    return registry_->set(kMachine, "NEW", "A", {}) == RegistryOutcome::KeyMissing ? 0 : 5;
  };
  EXPECT_EQ(inChild(body), 0);
  ::chmod(home_.path().c_str(), 0755);
  EXPECT_EQ(stored(), kHeader + "\"A\"=\"1\"\r\n");
}

TEST_F(PosixRegistry, RefusesOnAFullDiskAndLeavesTheFile) {
  const auto content = kHeader + "\"A\"=\"1\"\r\n";
  put(content);
  const auto body = [&] {
    limitFileSize(content.size() + 20);
    if (set("B", std::string(1000, 'x')) != RegistryOutcome::Refused) return 1;
    return query("A") == "1\0"s && query("B") == "(none)" ? 0 : 2;
  };
  EXPECT_EQ(inChild(body), 0);
  EXPECT_EQ(stored(), content);
  EXPECT_FALSE(fs::exists(home_ / "registry.reg.tmp"));
}

TEST_F(PosixRegistry, WritesThroughALinkToTheFile) {
  const TemporaryFolder elsewhere;
  writeFile(elsewhere / "real.reg", kHeader);
  fs::create_symlink(elsewhere / "real.reg", home_ / "registry.reg");
  ASSERT_EQ(set("A", "1"), RegistryOutcome::Done);
  EXPECT_TRUE(fs::is_symlink(home_ / "registry.reg"));
  EXPECT_EQ(contentOf(elsewhere / "real.reg"), kHeader + "\"A\"=\"1\"\r\n");
}

TEST_F(PosixRegistry, KeepsTheModeOfTheFile) {
  put(kHeader);
  ::chmod((home_ / "registry.reg").c_str(), 0640);
  ASSERT_EQ(set("A", "1"), RegistryOutcome::Done);
  EXPECT_EQ(fs::status(home_ / "registry.reg").permissions(), static_cast<fs::perms>(0640));
}

TEST_F(PosixRegistry, TakesTheTemporaryFileOfAWriterThatWasKilled) {
  put(kHeader);
  writeFile(home_ / "registry.reg.tmp", "half of a");
  ASSERT_EQ(set("A", "1"), RegistryOutcome::Done);
  EXPECT_EQ(stored(), kHeader + "\"A\"=\"1\"\r\n");
}

TEST_F(PosixRegistry, GivesUpOnALockThatIsNeverReleased) {
  put(kHeader);
  registry_ = makeRegistry(home_.path(), std::chrono::milliseconds(20));
  const auto held = lockFile(home_ / "registry.reg.lock", std::chrono::milliseconds(0));
  ASSERT_TRUE(held);
  EXPECT_EQ(set("A", "1"), RegistryOutcome::Refused);
  EXPECT_EQ(registry_->createKey(kMachine, "NEW"), RegistryOutcome::Refused);
  EXPECT_EQ(query("A"), "(none)");
}

TEST_F(PosixRegistry, RefusesNamesThatTheFileCannotHold) {
  put(kHeader);
  EXPECT_EQ(set("a\0b"s, "1"), RegistryOutcome::Refused);
  EXPECT_EQ(registry_->createKey(kMachine, "a\r\nb"), RegistryOutcome::Refused);
  EXPECT_EQ(stored(), kHeader);
}

TEST_F(PosixRegistry, KnowsNoOtherHives) {
  RegistryValue value;
  put(kHeader);
  EXPECT_EQ(registry_->query(static_cast<RegistryHive>(7), kKey, "A", 10, value),
            RegistryOutcome::KeyMissing);
  EXPECT_EQ(registry_->createKey(static_cast<RegistryHive>(7), kKey), RegistryOutcome::Refused);
}

}  // namespace
}  // namespace varnhold::platform::posix
