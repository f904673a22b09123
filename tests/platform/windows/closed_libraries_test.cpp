#include <gtest/gtest.h>
#include <windows.h>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/windows/adapters.h"
#include "platform/windows/text.h"
#include "tests/platform/windows/temporary_folder.h"

namespace varnhold::platform::windows {
namespace {

/// The closed library of the tests.
class WindowsClosedLibrariesTest : public ::testing::Test {
 protected:
  std::uint32_t exitCodeOf(ThreadHandle thread) {
    const auto threads = makeThreads();
    std::uint32_t code = kStillActive;
    WaitForSingleObject(reinterpret_cast<HANDLE>(thread), 10'000);
    EXPECT_TRUE(threads->getExitCodeThread(thread, code));
    threads->closeHandle(thread);
    return code;
  }

  std::string programFolder_ = makeEnvironment()->programFolder();
  std::unique_ptr<ClosedLibraries> libraries_ = makeClosedLibraries(programFolder_ + R"(\test_vendor)");
};

/// The run-time error that a call ends with; number 0 when it ends without one.
template <typename Call>
RuntimeError errorOf(Call call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error;
  }
  return {0, "no error"};
}

TEST_F(WindowsClosedLibrariesTest, AJobCrossesWithAllItsFieldsInOrder) {
  DeploymentJob job;
  job.Spare0 = "s0";
  job.SystemName = R"(\\HOST1)";
  job.Spare2 = "s2";
  job.Spare3 = "s3";
  job.Spare4 = "s4";
  job.InstallDirectory = R"(D:\APPS)";
  job.Spare6 = "s6";
  job.Spare7 = "s7";
  job.KeepSnapshots = "1";
  job.Spare9 = "s9";
  job.ServiceUser = R"(CORP\svc)";
  job.ServicePassword = " ";
  job.ConfigFile = "own.ini";
  job.OSFlag = 6;
  job.AgentKind = 255;
  job.AgentMode = -5;
  job.RemedialFlag = 1;
  job.UseDefaultConfig = 2;
  const auto* const shown = R"(s0|\\HOST1|s2|s3|s4|D:\APPS|s6|s7|1|s9|CORP\svc| |own.ini|6|255|-5|1|2)";
  EXPECT_EQ(exitCodeOf(libraries_->qrvCInstall(job, shown)), 1150u);
  EXPECT_EQ(job.SystemName, R"(\\HOST1)");
}

TEST_F(WindowsClosedLibrariesTest, AJobComesBackChangedEachTextInItsOwnLength) {
  DeploymentJob job;
  job.SystemName = R"(\\HOST1)";
  job.InstallDirectory = R"(D:\APPS)";
  EXPECT_EQ(libraries_->qrvCUninstall(job, "remins"), 0u);
  EXPECT_EQ(job.SystemName, std::string("\\\\H\0ST1", 7));
  EXPECT_EQ(job.InstallDirectory, R"(X:\APPS)");
  EXPECT_EQ(job.OSFlag, 6);
  EXPECT_EQ(job.AgentKind, 2);
  EXPECT_EQ(job.AgentMode, 5);
  EXPECT_EQ(job.RemedialFlag, 1);
  EXPECT_EQ(job.UseDefaultConfig, 1);
  EXPECT_EQ(job.ConfigFile, "");
}

TEST_F(WindowsClosedLibrariesTest, UpgradesReachAVendorsLibrary) {
  DeploymentJob job;
  EXPECT_EQ(exitCodeOf(libraries_->qrvCUpgradeAgent(job, "remins")), 6u);
  job.SystemName = "HOST1";
  job.ConfigFile = "own.ini";
  job.AgentMode = 5;
  job.OSFlag = 6;
  job.RemedialFlag = 1;
  EXPECT_EQ(exitCodeOf(libraries_->qrvCUpgradeAgentOverIP(R"(C:\Agent\vhagent)", job)), 1150u);
  std::string name = "HOST1";
  EXPECT_EQ(exitCodeOf(libraries_->qrvCVHCheckVersion(R"(C:\Agent\vhagent)", name)), 4000u);
}

TEST_F(WindowsClosedLibrariesTest, ANameMayComeBackLonger) {
  std::string name = "HOST1", directory = R"(D:\APPS)";
  EXPECT_EQ(libraries_->qrvCCreateConfigurationFile("remins", name, directory, 5), 5);
  EXPECT_EQ(name, R"(HOST1.remins.D:\APPS)");
  EXPECT_EQ(directory, R"(D:\APPS)");
}

TEST_F(WindowsClosedLibrariesTest, TextCrossesInTheAnsiCodePage) {
  if (GetACP() != 1252) GTEST_SKIP() << "the code page here is " << GetACP();
  const std::string folder = R"(C:\Größe €)";
  const auto edit = [&](std::int32_t mode) {
    return libraries_->qrvCReadNWriteVhaConfigINI4Turbo(folder + "\\vhagent", folder, folder + "\\x.ini",
                                                        mode);
  };
  EXPECT_TRUE(edit(10));
  EXPECT_FALSE(edit(14));
}

TEST_F(WindowsClosedLibrariesTest, TheAddressComesBackUncutAndTheNameCut) {
  std::string name = "ALIAS", address = "before";
  EXPECT_TRUE(libraries_->qrvGetSystemIPAddress(name, address));
  EXPECT_EQ(name, std::string(255, 'N'));
  EXPECT_EQ(address.size(), 256u);
  EXPECT_EQ(TrimAtNull(address), "10.1.1.11");
}

TEST_F(WindowsClosedLibrariesTest, ANameThatTheLibraryLeavesAloneKeepsLettersTheCodePageLacks) {
  DeploymentJob job;
  job.SystemName = "日本";
  job.InstallDirectory = R"(D:\APPS)";
  exitCodeOf(libraries_->qrvCInstall(job, "remins"));
  EXPECT_EQ(job.SystemName, "日本");

  std::string name = "日本", address;
  EXPECT_FALSE(libraries_->qrvGetSystemIPAddress(name, address));
  EXPECT_EQ(name, "日本");
  EXPECT_EQ(address, std::string(256, '\0'));
}

TEST_F(WindowsClosedLibrariesTest, ANameLongerThanItsBufferCrossesWhole) {
  DeploymentJob job;
  job.SystemName = std::string(1000, 'n');
  const auto shown = '|' + job.SystemName + "||||||||||||0|0|0|0|0";
  EXPECT_EQ(exitCodeOf(libraries_->qrvCInstall(job, shown)), 1150u);
  EXPECT_EQ(job.SystemName, std::string(1000, 'n'));
}

TEST_F(WindowsClosedLibrariesTest, DetailsComeBackFromBuffersOfTheirSizes) {
  if (GetACP() != 1252) GTEST_SKIP() << "the code page here is " << GetACP();
  SystemDetails details;
  details.SystemName = "FULL";
  ASSERT_TRUE(libraries_->qrvFindSystemAndReturnDetails(details));
  EXPECT_EQ(details.SystemName, "FULL");
  EXPECT_EQ(details.ResolvedName, std::string(512, 'R'));
  EXPECT_EQ(details.DetailsText1, std::string(255, '1'));
  EXPECT_EQ(details.DetailsText2, "Größe");
  EXPECT_EQ(details.DetailsReserved1, 11);
  EXPECT_EQ(details.OSMajorVersion, 5);
  EXPECT_EQ(details.DetailsReserved2, 22);
  EXPECT_EQ(details.SystemType, 16);
}

TEST_F(WindowsClosedLibrariesTest, DetailsCrossToBeStored) {
  SystemDetails details;
  details.SystemName = "HOST1";
  details.ResolvedName = "host1.corp";
  details.OSMajorVersion = 5;
  details.SystemType = 7;
  EXPECT_TRUE(libraries_->qrvUpdateSystemDetailsInDB(details));
  details.SystemType = 8;
  EXPECT_FALSE(libraries_->qrvUpdateSystemDetailsInDB(details));
}

TEST_F(WindowsClosedLibrariesTest, AFunctionThatTheLibraryLacksRaises453) {
  const auto lacking = makeClosedLibraries(programFolder_ + R"(\test_lacking)");
  std::string path = "before", name = "HOST1", address;
  EXPECT_FALSE(lacking->qrvGetSystemIPAddress(name, address));
  const auto error = errorOf([&] { (void)lacking->qrvChkRmtRegNGetPrgFilePath("HOST1", path); });
  EXPECT_EQ(error.number(), 453);
  EXPECT_EQ(
      error.description(),
      "The library \"" + programFolder_ + R"(\test_lacking\qrvUtil.dll" has no function )" +
          "qrvChkRmtRegNGetPrgFilePath: it belongs to another version of the product. Install the product "
          "again.");
  EXPECT_EQ(path, "before");
}

TEST_F(WindowsClosedLibrariesTest, AMissingLibraryRaises53AtTheCall) {
  const TemporaryFolder folder;
  const auto libraries = makeClosedLibraries(folder.path());
  std::string name = "HOST1", address;
  const auto error = errorOf([&] { (void)libraries->qrvGetSystemIPAddress(name, address); });
  EXPECT_EQ(error.number(), 53);
  EXPECT_EQ(error.description(),
            "The library \"" + (folder / "qrvUtil.dll") +
                "\" is not there, and it is looked for nowhere else. Install the product "
                "again, or copy the library into that folder.");
}

TEST_F(WindowsClosedLibrariesTest, ADamagedLibraryRaises53WithTheHostsNumber) {
  const TemporaryFolder folder;
  ASSERT_EQ(makeFiles()->createNew(folder / "qrvUtil.dll", "MZ no library", FileAccess::Everyone),
            FileOutcome::Done);
  const auto libraries = makeClosedLibraries(folder.path());
  SystemDetails details;
  const auto error = errorOf([&] { (void)libraries->qrvFindSystemAndReturnDetails(details); });
  EXPECT_EQ(error.number(), 53);
  EXPECT_NE(error.description().find("qrvUtil.dll\" cannot be loaded (Windows error 193)"), std::string::npos)
      << error.description();
}

TEST_F(WindowsClosedLibrariesTest, ALibraryThatIsPutThereLaterIsFoundThen) {
  const TemporaryFolder folder;
  const auto libraries = makeClosedLibraries(folder.path());
  std::string name = "HOST1", address;
  EXPECT_EQ(errorOf([&] { (void)libraries->qrvGetSystemIPAddress(name, address); }).number(), 53);
  const auto library = makeFiles()->read(programFolder_ + R"(\test_vendor\qrvUtil.dll)");
  ASSERT_TRUE(library.has_value());
  ASSERT_EQ(makeFiles()->createNew(folder / "qrvUtil.dll", *library, FileAccess::Everyone),
            FileOutcome::Done);
  EXPECT_TRUE(libraries->qrvGetSystemIPAddress(name, address));
  // The adapter never lets go of a library, and a loaded file cannot be deleted.
  FreeLibrary(GetModuleHandleW(toWide(folder / "qrvUtil.dll").c_str()));
}

TEST_F(WindowsClosedLibrariesTest, TheBuildsOwnLibraryTakesTheAdaptersCalls) {
  const auto own = makeClosedLibraries(programFolder_);
  std::string name = "no-such-computer", address;
  EXPECT_FALSE(own->qrvGetSystemIPAddress(name, address));
  EXPECT_EQ(name, "no-such-computer");
  EXPECT_EQ(address, std::string(256, '\0'));
}

TEST_F(WindowsClosedLibrariesTest, TheBuildsOwnLogonLibraryTakesTheAdaptersCall) {
  const auto own = makeClosedLibraries(programFolder_);
  std::vector<std::uint8_t> sid{1, 1, 0, 0, 0, 0, 0, 5, 18, 0, 0, 0};
  EXPECT_NE(own->fnLogRight(u"no-such-computer", sid), 0);
}

TEST_F(WindowsClosedLibrariesTest, AMissingLogonLibraryRaises53AtTheCall) {
  const TemporaryFolder folder;
  std::vector<std::uint8_t> sid{1};
  const auto libraries = makeClosedLibraries(folder.path());
  const auto error = errorOf([&] { (void)libraries->fnLogRight(u"", sid); });
  EXPECT_EQ(error.number(), 53);
  EXPECT_NE(error.description().find(folder / "VhwLogonCtrl.dll"), std::string::npos) << error.description();
}

}  // namespace
}  // namespace varnhold::platform::windows
