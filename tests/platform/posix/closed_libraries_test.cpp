#include "platform/closed_libraries.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "platform/posix/adapters.h"
#include "tests/platform/posix/standin.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform::posix {
namespace {

class PosixClosedLibraries : public ::testing::Test {
 protected:
  std::unique_ptr<CompanionLibrary> standin_ = makeStandin();
  std::unique_ptr<ClosedLibraries> libraries_ = makeClosedLibraries(*standin_, *standin_);
  std::unique_ptr<Threads> threads_ = makeThreads(*standin_);
};

DeploymentJob fullJob() {
  DeploymentJob job;
  job.Spare0 = "s0", job.SystemName = "host1", job.Spare2 = "s2", job.Spare3 = "s3", job.Spare4 = "s4";
  job.InstallDirectory = R"(C:\A)", job.Spare6 = "s6", job.Spare7 = "s7", job.KeepSnapshots = "1",
  job.Spare9 = "s9";
  job.ServiceUser = R"(CORP\svc)", job.ServicePassword = "pä ss", job.ConfigFile = "c.ini";
  job.OSFlag = 6, job.AgentKind = 255, job.AgentMode = -5, job.RemedialFlag = 1, job.UseDefaultConfig = 2;
  return job;
}

constexpr auto kFullJobAsSeen =
    R"(|s0|host1|s2|s3|s4|C:\A|s6|s7|1|s9|CORP\svc|pä ss|c.ini|6|255|-5|1|2|C:\I\remins)";

TEST_F(PosixClosedLibraries, PassesEveryFieldOfAJobInItsPlace) {
  auto job = fullJob();
  threads_->closeHandle(libraries_->qrvCInstall(job, R"(C:\I\remins)"));
  job = fullJob();
  threads_->closeHandle(libraries_->qrvCUninstall(job, R"(C:\I\remins)"));
  job = fullJob();
  threads_->closeHandle(libraries_->qrvCUpgradeAgent(job, R"(C:\I\remins)"));
  const std::string seen = kFullJobAsSeen;
  EXPECT_EQ(standinCalls(*standin_), "install" + seen + "\nuninstall" + seen + "\nupgrade" + seen + "\n");
}

TEST_F(PosixClosedLibraries, PassesTheUpgradeOverIpItsFieldsOfTheJob) {
  auto job = fullJob();
  threads_->closeHandle(libraries_->qrvCUpgradeAgentOverIP(R"(C:\I\vhagent)", job));
  EXPECT_EQ(standinCalls(*standin_), "upgrade over IP|C:\\I\\vhagent|host1|-5|6|c.ini|1|2\n");
  EXPECT_EQ(job.ConfigFile, "X.ini");
}

TEST_F(PosixClosedLibraries, BringsNamesBackThatGrew) {
  std::string name = "HOST1", folder = R"(C:\A)";
  EXPECT_EQ(libraries_->qrvCCreateConfigurationFile(R"(C:\I)", name, folder, 5), 801);
  EXPECT_EQ(name, "A name that is much longer than the one that was given");
  EXPECT_EQ(folder, R"(C:\A)");
  EXPECT_EQ(standinCalls(*standin_), "configuration|C:\\I|HOST1|C:\\A|5\n");

  name = "ALIAS";
  std::string address;
  EXPECT_TRUE(libraries_->qrvGetSystemIPAddress(name, address));
  EXPECT_EQ(name, std::string(255, 'N'));
}

TEST_F(PosixClosedLibraries, PassesTheCallsAroundAnUpgradeTheirArguments) {
  std::string name = "HOST1";
  threads_->closeHandle(libraries_->qrvCVHCheckVersion(R"(C:\I\vhagent)", name));
  libraries_->qrvNetOpGetSystem("HOST2");
  EXPECT_EQ(libraries_->qrvRestartService("HOST1", "Varnhold Agent"), -1);
  EXPECT_EQ(standinCalls(*standin_),
            "version|C:\\I\\vhagent|HOST1\nrefresh|HOST2\nrestart|HOST1|Varnhold Agent\n");
}

TEST_F(PosixClosedLibraries, TellsAnEditedIniFileByAnyResultButZero) {
  EXPECT_TRUE(libraries_->qrvCReadNWriteVhaConfigINI4Turbo("L", "F", "I", 5));
  EXPECT_FALSE(libraries_->qrvCReadNWriteVhaConfigINI4Turbo("L", "F", "I", 1));
  EXPECT_EQ(standinCalls(*standin_), "turbo|L|F|I|5\nturbo|L|F|I|1\n");
}

TEST_F(PosixClosedLibraries, StoresDetailsAsTheyStand) {
  SystemDetails details{"HOST1", 1, 2, "resolved", 5, 3, 7, "t1", "t2"};
  EXPECT_TRUE(libraries_->qrvUpdateSystemDetailsInDB(details));
  EXPECT_EQ(standinCalls(*standin_), "update|HOST1|1|2|resolved|5|3|7|t1|t2\n");
  details.SystemName = "NOSUCH";
  EXPECT_FALSE(libraries_->qrvUpdateSystemDetailsInDB(details));
}

TEST_F(PosixClosedLibraries, TakesBuffersThatAreFullToTheirLastByte) {
  SystemDetails details;
  details.SystemName = "FULL";
  ASSERT_TRUE(libraries_->qrvFindSystemAndReturnDetails(details));
  EXPECT_EQ(details.SystemName, std::string(256, 'S'));
  EXPECT_EQ(details.ResolvedName, std::string(512, 'R'));
  EXPECT_EQ(details.DetailsText1, std::string(256, '1'));
  EXPECT_EQ(details.DetailsText2, std::string(64, '2'));
}

TEST_F(PosixClosedLibraries, TakesNamesOfAThousandCharacters) {
  const std::string longName(1000, 'x');
  SystemDetails details;
  details.SystemName = longName;
  EXPECT_FALSE(libraries_->qrvFindSystemAndReturnDetails(details));
  std::string name = longName, address;
  EXPECT_FALSE(libraries_->qrvGetSystemIPAddress(name, address));
  EXPECT_EQ(name, longName);
  DeploymentJob job;
  job.SystemName = longName;
  EXPECT_EQ(libraries_->qrvCInstall(job, longName), 0u);
  EXPECT_EQ(job.SystemName, std::string(1000, 'X'));
}

TEST_F(PosixClosedLibraries, PassesTheSystemsNameInWideLettersAndTheSidItself) {
  std::vector<std::uint8_t> sid{1, 1, 0, 0, 0, 0, 0, 5, 18, 0, 0, 0};
  EXPECT_EQ(libraries_->fnLogRight(u"HOST1", sid), 0);
  EXPECT_EQ(sid[0], 9);
  EXPECT_EQ(libraries_->fnLogRight(u"", sid), 5);
  EXPECT_EQ(standinCalls(*standin_), "right|HOST1|1|18\nright||9|18\n");
}

TEST_F(PosixClosedLibraries, SaysWhichLibraryLacksForTheRight) {
  CompanionLibrary logonControl({"/nonexistent/home"}, kLogonControlFile);
  std::vector<std::uint8_t> sid{1};
  try {
    static_cast<void>(makeClosedLibraries(*standin_, logonControl)->fnLogRight(u"", sid));
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), kFileNotFound);
    EXPECT_EQ(error.description(),
              "The library libVhwLogonCtrl.so was not found in /nonexistent/home. Put it into one of these "
              "folders.");
  }
}

RuntimeError errorOfInstall(CompanionLibrary& companion) {
  DeploymentJob job;
  job.ServicePassword = "secret";
  try {
    static_cast<void>(makeClosedLibraries(companion, companion)->qrvCInstall(job, "remins"));
  } catch (const RuntimeError& error) {
    return error;
  }
  return {0, "no error"};
}

TEST_F(PosixClosedLibraries, SaysWhereALibraryWasLookedForAndWhatToDo) {
  const auto error = errorOfInstall(*makeMissingStandin());
  EXPECT_EQ(error.number(), kFileNotFound);
  EXPECT_EQ(error.description(),
            "The library libqrvUtil.so was not found in /nonexistent/home, /nonexistent/lib. Put it into one "
            "of these "
            "folders.");
}

TEST_F(PosixClosedLibraries, SaysWhichFunctionALibraryLacks) {
  const auto error = errorOfInstall(*makeLackingStandin());
  EXPECT_EQ(error.number(), kLibraryFunctionMissing);
  EXPECT_EQ(error.description(),
            "The library " VARNHOLD_LACKING_FOLDER
            "/libqrvUtil.so has no function qrvCInstall. Put the library of this release in its "
            "place.");
}

TEST_F(PosixClosedLibraries, SaysThatALibraryIsDamaged) {
  const TemporaryFolder folder;
  writeFile(folder / "libqrvUtil.so", "no library");
  CompanionLibrary companion({folder.path(), VARNHOLD_STANDIN_FOLDER});
  const auto error = errorOfInstall(companion);
  EXPECT_EQ(error.number(), kFileNotFound);
  EXPECT_NE(error.description().find(folder / "libqrvUtil.so cannot be loaded"), std::string::npos)
      << error.description();
}

TEST_F(PosixClosedLibraries, FindsALibraryThatCameAfterTheFirstCall) {
  const TemporaryFolder folder;
  CompanionLibrary companion({folder.path()});
  EXPECT_EQ(errorOfInstall(companion).number(), kFileNotFound);
  writeFile(folder / "libqrvUtil.so", contentOf(VARNHOLD_STANDIN_FOLDER "/libqrvUtil.so"));
  EXPECT_EQ(errorOfInstall(companion).description(), "no error");
}

TEST_F(PosixClosedLibraries, TakesTheFirstFolderThatHasTheLibrary) {
  CompanionLibrary companion({"/nonexistent", VARNHOLD_LACKING_FOLDER, VARNHOLD_STANDIN_FOLDER});
  EXPECT_EQ(errorOfInstall(companion).number(), kLibraryFunctionMissing);
}

}  // namespace
}  // namespace varnhold::platform::posix
