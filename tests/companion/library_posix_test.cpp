// What only a Unix host has of the library, through its plain C interface.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#include <thread>

#include "companion/include/qrvhost.h"
#include "companion/ini_text.h"
#include "platform/formats/registry_file.h"
#include "tests/companion/library_home.h"

namespace varnhold::companion::test {
namespace {

/// The library beside this program, with its functions by name.
class Functions {
 public:
  Functions()
      : library_(::dlopen(
            (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "libqrvUtil.so").c_str(),
            RTLD_NOW | RTLD_LOCAL)) {
    if (library_ == nullptr) throw std::runtime_error(::dlerror());
  }

  template <class Function>
  [[nodiscard]] Function* get(const char* name) const {
    return reinterpret_cast<Function*>(::dlsym(library_, name));
  }

 private:
  void* library_;
};

#define CALL(function) functions_.get<decltype(::function)>(#function)

class PlainLibrary : public testing::Test {
 protected:
  Functions functions_;
  LibraryHome home_;
};

/// A job's record in buffers of its own.
struct Record {
  explicit Record(std::string name) : systemName(std::move(name)) {
    char** const strings[] = {&job.Spare0,      &job.Spare2,          &job.Spare3,    &job.Spare4,
                              &job.Spare6,      &job.Spare7,          &job.Spare9,    &job.KeepSnapshots,
                              &job.ServiceUser, &job.ServicePassword, &job.ConfigFile};
    for (char** string : strings) *string = empty.data();
    job.SystemName = systemName.data();
    job.InstallDirectory = directory.data();
    job.AgentMode = 1;
  }

  std::string systemName;
  std::string directory = R"(%Program Files%\Kelmont Works\Varnhold)", empty;
  QrvDeploymentJob job{};
};

TEST_F(PlainLibrary, AnswersANullWithAFailure) {
  std::string text(1024, '\0');
  std::string path = home_.libraryPath();
  Record record("WKS01");
  EXPECT_EQ(CALL(qrvCInstall)(nullptr, path.data()), nullptr);
  EXPECT_EQ(CALL(qrvCInstall)(&record.job, nullptr), nullptr);
  EXPECT_EQ(CALL(qrvCUninstall)(nullptr, path.data()), nullptr);
  record.job.SystemName = nullptr;
  EXPECT_EQ(CALL(qrvCInstall)(&record.job, path.data()), nullptr);
  EXPECT_EQ(CALL(qrvCCreateConfigurationFile)(nullptr, text.data(), text.data(), 1), 0);
  EXPECT_EQ(CALL(qrvCCreateConfigurationFile)(path.data(), nullptr, text.data(), 1), 0);
  EXPECT_EQ(CALL(qrvCReadNWriteVhaConfigINI4Turbo)(nullptr, nullptr, nullptr, 1), 0);
  EXPECT_EQ(CALL(qrvGetSystemIPAddress)(nullptr, text.data()), 0);
  EXPECT_EQ(CALL(qrvGetSystemIPAddress)(text.data(), nullptr), 0);
  EXPECT_EQ(CALL(qrvFindSystemAndReturnDetails)(nullptr), 0);
  EXPECT_EQ(CALL(qrvUpdateSystemDetailsInDB)(nullptr), 0);
  EXPECT_EQ(CALL(qrvChkRmtRegNGetPrgFilePath)(nullptr, text.data()), 0);
  EXPECT_EQ(CALL(qrvCUpgradeAgent)(nullptr, path.data()), nullptr);
  EXPECT_EQ(CALL(qrvCUpgradeAgentOverIP)(nullptr, text.data(), 1, 0, text.data(), 0, 1), nullptr);
  EXPECT_EQ(CALL(qrvCUpgradeAgentOverIP)(path.data(), nullptr, 1, 0, text.data(), 0, 1), nullptr);
  EXPECT_EQ(CALL(qrvCUpgradeAgentOverIP)(path.data(), text.data(), 1, 0, nullptr, 0, 1), nullptr);
  EXPECT_EQ(CALL(qrvCVHCheckVersion)(nullptr, text.data()), nullptr);
  EXPECT_EQ(CALL(qrvCVHCheckVersion)(path.data(), nullptr), nullptr);
  CALL(qrvNetOpGetSystem)(nullptr);
  EXPECT_EQ(CALL(qrvRestartService)(nullptr, text.data()), 0);
  EXPECT_EQ(CALL(qrvRestartService)(text.data(), nullptr), 0);
  EXPECT_EQ(CALL(qrvNetworkEnum)(nullptr), 0);
  EXPECT_EQ(CALL(qrvGetNetAccessMode)(nullptr), 0);
  EXPECT_EQ(CALL(qrvCheckIfBelongsToSubnet)(nullptr, text.data()), 0);
  EXPECT_EQ(CALL(qrvCheckIfBelongsToSubnet)(text.data(), nullptr), 0);
  EXPECT_EQ(CALL(qrvHostTerminateThread)(nullptr, 0), 0);
  QrvSystemDetails details{};
  EXPECT_EQ(CALL(qrvFindSystemAndReturnDetails)(&details), 0);
  EXPECT_EQ(CALL(qrvUpdateSystemDetailsInDB)(&details), 0);
  EXPECT_NE(CALL(qrvHostOpenServiceManager)(nullptr), 0U);
  EXPECT_NE(CALL(qrvHostOpenService)(R"(\\X)", nullptr), 0U);
  EXPECT_NE(CALL(qrvHostControlService)(nullptr, nullptr, 1), 0U);
  EXPECT_NE(CALL(qrvHostStartService)(nullptr, "x"), 0U);
  EXPECT_NE(CALL(qrvHostOpenEventLog)(nullptr, nullptr), 0U);
  EXPECT_NE(CALL(qrvHostConnectShare)(nullptr, nullptr, nullptr), 0U);
  EXPECT_NE(CALL(qrvHostDisconnectShare)(nullptr), 0U);
  EXPECT_NE(CALL(qrvHostSharePath)(nullptr, text.data()), 0U);
  EXPECT_NE(CALL(qrvHostSharePath)(R"(\\X\C$)", nullptr), 0U);
}

TEST_F(PlainLibrary, AnswersAnOverlongArgumentWithAFailure) {
  home_.lab().addHost("WKS01");
  std::string path = home_.libraryPath(), text(5000, 'A'), buffer(1024, '\0');
  Record longName(text);
  EXPECT_EQ(CALL(qrvCInstall)(&longName.job, path.data()), nullptr);
  Record longDirectory("WKS01");
  longDirectory.job.InstallDirectory = text.data();
  EXPECT_EQ(CALL(qrvCInstall)(&longDirectory.job, path.data()), nullptr);
  EXPECT_EQ(CALL(qrvGetSystemIPAddress)(text.data(), buffer.data()), 0);
  EXPECT_EQ(CALL(qrvChkRmtRegNGetPrgFilePath)(text.data(), buffer.data()), 0);
  EXPECT_NE(CALL(qrvHostOpenServiceManager)(text.c_str()), 0U);
}

TEST_F(PlainLibrary, DoesNotWriteBehindItsBuffers) {
  home_.lab().addHost("WKS01", "[host]\naddress=10.1.1.11\ndescription=" + std::string(3000, 'x') + "\n");
  constexpr char kGuard = '#';
  std::string name("WKS01"), resolved(kQrvResolvedNameSize + 8, kGuard), text1(kQrvText1Size + 8, kGuard),
      text2(kQrvText2Size + 8, kGuard);
  QrvSystemDetails details{};
  details.SystemName = name.data();
  details.ResolvedName = resolved.data();
  details.DetailsText1 = text1.data();
  details.DetailsText2 = text2.data();
  ASSERT_NE(CALL(qrvFindSystemAndReturnDetails)(&details), 0);
  EXPECT_STREQ(details.ResolvedName, "WKS01");
  EXPECT_EQ(std::string(details.DetailsText1), std::string(255, 'x'));
  EXPECT_EQ(text1.substr(kQrvText1Size), std::string(8, kGuard));
  EXPECT_STREQ(details.DetailsText2, "10.1.1.11");
}

TEST_F(PlainLibrary, HasExitCodesOnlyForOpenHandles) {
  home_.lab().addHost("WKS01");
  Record record("WKS01");
  std::string path = home_.libraryPath();
  void* const thread = CALL(qrvCInstall)(&record.job, path.data());
  ASSERT_NE(thread, nullptr);
  std::uint32_t code = 7;
  EXPECT_EQ(CALL(qrvHostGetExitCodeThread)(thread, nullptr), 0);
  EXPECT_NE(CALL(qrvHostGetExitCodeThread)(thread, &code), 0);
  EXPECT_EQ(home_.finish(reinterpret_cast<platform::ThreadHandle>(thread)), 1150U);
  code = 7;
  EXPECT_EQ(CALL(qrvHostGetExitCodeThread)(thread, &code), 0);
  EXPECT_EQ(CALL(qrvHostGetExitCodeThread)(nullptr, &code), 0);
  EXPECT_EQ(CALL(qrvHostGetExitCodeThread)(&code, &code), 0);
  EXPECT_EQ(code, 7U);
  CALL(qrvHostCloseHandle)(thread);
  CALL(qrvHostCloseHandle)(nullptr);
}

TEST_F(PlainLibrary, GivesAnEndedThreadItsCodeAtOnceAndOnce) {
  home_.lab().addHost("WKS01", "[delay_ms]\ninstall=never\n");
  Record record("WKS01");
  std::string path = home_.libraryPath();
  void* const thread = CALL(qrvCInstall)(&record.job, path.data());
  ASSERT_NE(thread, nullptr);
  std::uint32_t code = 7;
  EXPECT_NE(CALL(qrvHostTerminateThread)(thread, 3), 0);
  EXPECT_NE(CALL(qrvHostGetExitCodeThread)(thread, &code), 0);
  EXPECT_EQ(code, 3U);
  EXPECT_NE(CALL(qrvHostTerminateThread)(thread, 4), 0);
  EXPECT_NE(CALL(qrvHostGetExitCodeThread)(thread, &code), 0);
  EXPECT_EQ(code, 3U);
  CALL(qrvHostCloseHandle)(thread);
  EXPECT_EQ(CALL(qrvHostTerminateThread)(thread, 5), 0);
}

TEST_F(PlainLibrary, ShowsAComputersServicesLogsAndShares) {
  const auto host =
      home_.lab().addHost("WKS01", "[host]\nsecurity_log=no\n[account]\nuser=CORP\\admin\npassword=x\n");
  writeText(host / "services.ini", "[Varnhold Agent]\nstate=running\n");
  EXPECT_EQ(CALL(qrvHostOpenServiceManager)(R"(\\WKS01)"), 0U);
  EXPECT_EQ(CALL(qrvHostOpenServiceManager)(R"(\\NOBODY)"), 1722U);
  EXPECT_EQ(CALL(qrvHostOpenService)(R"(\\WKS01)", "Varnhold Agent"), 0U);
  EXPECT_EQ(CALL(qrvHostOpenService)(R"(\\WKS01)", "Other"), 1060U);
  EXPECT_EQ(CALL(qrvHostStartService)(R"(\\WKS01)", "Varnhold Agent"), 1056U);
  EXPECT_EQ(CALL(qrvHostControlService)(R"(\\WKS01)", "Varnhold Agent", 1), 0U);
  EXPECT_EQ(CALL(qrvHostStartService)(R"(\\WKS01)", "Varnhold Agent"), 0U);
  EXPECT_EQ(CALL(qrvHostOpenEventLog)(R"(\\WKS01)", "Security"), 5U);
  EXPECT_EQ(CALL(qrvHostConnectShare)(R"(\\WKS01\c$)", R"(CORP\admin)", "y"), 1326U);
  EXPECT_EQ(CALL(qrvHostConnectShare)(R"(\\WKS01\c$)", R"(CORP\admin)", "x"), 0U);
  EXPECT_EQ(CALL(qrvHostDisconnectShare)(R"(\\WKS01\c$)"), 0U);
  EXPECT_EQ(CALL(qrvHostDisconnectShare)(R"(\\WKS01\c$)"), 2250U);
  std::string path(kQrvFolderSize, '\0');
  EXPECT_EQ(CALL(qrvHostSharePath)(R"(\\wks01\C$\x.tmp)", path.data()), 0U);
  EXPECT_STREQ(path.c_str(), (host / "C" / "x.tmp").c_str());
  EXPECT_EQ(CALL(qrvHostSharePath)(R"(\\NOBODY\C$\x.tmp)", path.data()), 53U);
}

TEST_F(PlainLibrary, TellsTheTessmarkAgentByTheFolderOfItsMaterial) {
  const std::string changes = home_.lab().changesFolder().string();
  const std::string key = R"(SOFTWARE\Kelmont Works\TKWFileTracker)";
  platform::Registry& registry = home_.host().registry();
  ASSERT_EQ(registry.createKey(platform::RegistryHive::LocalMachine, key), platform::RegistryOutcome::Done);
  ASSERT_EQ(registry.set(platform::RegistryHive::LocalMachine, key, "LocalRootDir",
                         {platform::kRegText, changes + '\0'}),
            platform::RegistryOutcome::Done);
  home_.lab().addHost("WKS01");
  Record record("WKS01");
  std::string library = changes + R"(\remins)", keeps = "1", drops = "0";
  const auto result = [&](const char* function) {
    void* const thread = functions_.get<decltype(::qrvCInstall)>(function)(&record.job, library.data());
    return home_.finish(reinterpret_cast<platform::ThreadHandle>(thread));
  };
  EXPECT_EQ(result("qrvCInstall"), 1150U);
  EXPECT_TRUE(serviceOn(home_.lab(), "WKS01", "TkwService").running);
  record.job.KeepSnapshots = keeps.data();
  EXPECT_EQ(result("qrvCUninstall"), 1152U);
  EXPECT_EQ(result("qrvCInstall"), 1290U);
  record.job.KeepSnapshots = drops.data();
  EXPECT_EQ(result("qrvCUninstall"), 1152U);
  EXPECT_EQ(result("qrvCInstall"), 1150U);
}

TEST_F(PlainLibrary, DoesAJobOnAComputerThatDemandsAnAccountOnlyWhileItsShareIsConnected) {
  home_.lab().addHost("WKS01", "[account]\nuser=CORP\\admin\npassword=x\n");
  Record record("WKS01");
  std::string library = home_.libraryPath();
  const auto result = [&](const char* function) {
    void* const thread = functions_.get<decltype(::qrvCInstall)>(function)(&record.job, library.data());
    return home_.finish(reinterpret_cast<platform::ThreadHandle>(thread));
  };
  EXPECT_EQ(result("qrvCInstall"), 1154U);
  EXPECT_EQ(CALL(qrvHostConnectShare)(R"(\\WKS01\c$)", R"(CORP\admin)", "x"), 0U);
  EXPECT_EQ(result("qrvCInstall"), 1150U);
  EXPECT_EQ(CALL(qrvHostDisconnectShare)(R"(\\WKS01\c$)"), 0U);
  EXPECT_EQ(result("qrvCUninstall"), 1154U);
  EXPECT_EQ(CALL(qrvHostConnectShare)(R"(\\WKS01\c$)", R"(CORP\admin)", "x"), 0U);
  EXPECT_EQ(result("qrvCUninstall"), 1152U);
  EXPECT_EQ(CALL(qrvHostDisconnectShare)(R"(\\WKS01\c$)"), 0U);
}

TEST_F(PlainLibrary, TellsAndChangesTheAccountOfAService) {
  const auto host = home_.lab().addHost("WKS01");
  writeText(host / "services.ini", "[Varnhold Agent]\nstate=running\n");
  const char *const machine = R"(\\WKS01)", *const service = "Varnhold Agent";
  std::string account(64, '#');
  std::uint32_t needed = 0;
  EXPECT_EQ(CALL(qrvHostQueryServiceAccount)(machine, service, nullptr, 0, &needed), 122U);
  EXPECT_EQ(needed, 12U);
  EXPECT_EQ(CALL(qrvHostQueryServiceAccount)(machine, service, account.data(), 11, &needed), 122U);
  EXPECT_EQ(account, std::string(64, '#'));
  EXPECT_EQ(CALL(qrvHostQueryServiceAccount)(machine, service, account.data(), 12, &needed), 0U);
  EXPECT_STREQ(account.c_str(), "LocalSystem");
  EXPECT_EQ(CALL(qrvHostChangeServiceAccount)(machine, service, "agent", "x"), 1057U);
  EXPECT_EQ(CALL(qrvHostChangeServiceAccount)(machine, service, R"(CORP\agent)", "x"), 0U);
  EXPECT_EQ(CALL(qrvHostQueryServiceAccount)(machine, service, account.data(), 64, &needed), 0U);
  EXPECT_STREQ(account.c_str(), R"(CORP\agent)");
  EXPECT_EQ(CALL(qrvHostQueryServiceAccount)(machine, "Other", account.data(), 64, &needed), 1060U);
  EXPECT_NE(CALL(qrvHostQueryServiceAccount)(machine, service, account.data(), 64, nullptr), 0U);
  EXPECT_NE(CALL(qrvHostQueryServiceAccount)(nullptr, service, account.data(), 64, &needed), 0U);
  EXPECT_NE(CALL(qrvHostChangeServiceAccount)(machine, service, R"(CORP\agent)", nullptr), 0U);
}

TEST_F(PlainLibrary, LooksAccountsUp) {
  home_.lab().addHost("WKS01");
  auto* const look = CALL(qrvHostLookupAccountName);
  std::uint8_t sid[28] = {};
  std::string domain(8, '#');
  std::uint32_t sidSize = 1, domainSize = 0;
  EXPECT_EQ(look("WKS01", "agent", sid, &sidSize, domain.data(), &domainSize), 122U);
  EXPECT_EQ(sidSize, 28U);
  EXPECT_EQ(domainSize, 6U);
  EXPECT_EQ(sid[0], 0);
  EXPECT_EQ(look("WKS01", "agent", sid, &sidSize, domain.data(), &domainSize), 0U);
  EXPECT_EQ(sid[0], 1);
  EXPECT_STREQ(domain.c_str(), "WKS01");
  EXPECT_EQ(look("WKS01", "", sid, &sidSize, domain.data(), &domainSize), 1332U);
  EXPECT_EQ(look("NOBODY", "agent", sid, &sidSize, domain.data(), &domainSize), 1722U);
  EXPECT_NE(look("WKS01", "agent", nullptr, &sidSize, domain.data(), &domainSize), 0U);
  EXPECT_NE(look("WKS01", "agent", sid, &sidSize, nullptr, &domainSize), 0U);
  EXPECT_NE(look("WKS01", "agent", sid, nullptr, domain.data(), &domainSize), 0U);
  EXPECT_NE(look(nullptr, "agent", sid, &sidSize, domain.data(), &domainSize), 0U);
}

TEST_F(PlainLibrary, LeavesALabThatCanBeReadWhenItIsKilledAtAnyMoment) {
  constexpr int kKills = 50;
  const auto host = home_.lab().addHost("WKS01");
  std::minstd_rand random(20260131);
  for (int kill = 0; kill < kKills; ++kill) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (;;) {
        static_cast<void>(home_.lab().install(jobFor("WKS01"), "6.0"));
        static_cast<void>(home_.lab().upgrade(jobFor("WKS01"), "7.0"));
        static_cast<void>(home_.lab().uninstall(jobFor("WKS01")));
      }
    }
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 30'000));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);

    EXPECT_TRUE(IniText(readText(host / "services.ini")).problems().empty());
    platform::RegistryFileError error;
    const std::string registry = readText(host / "registry.reg");
    EXPECT_TRUE(registry.empty() || platform::RegistryFile::parse(registry, error)) << error.what;
  }
  EXPECT_EQ(home_.lab().install(jobFor("WKS01")), 150);
  EXPECT_EQ(home_.lab().uninstall(jobFor("WKS01")), 152);
}

void endWhileAJobRuns() {
  const Functions functions;
  LibraryHome home;
  home.lab().addHost("WKS01", "[delay_ms]\ninstall=never\n");
  Record record("WKS01");
  std::string path = home.libraryPath();
  void* const thread = functions.get<decltype(::qrvCInstall)>("qrvCInstall")(&record.job, path.data());
  std::exit(thread != nullptr ? 0 : 1);
}

void storeWithoutADataSource() {
  const Functions functions;
  LibraryHome home;
  ::setenv("ODBCINI", (home.lab().installPath() / "missing.ini").c_str(), 1);
  std::string name = "WKS01", empty;
  QrvSystemDetails details{};
  details.SystemName = name.data();
  details.DetailsText1 = details.DetailsText2 = empty.data();
  std::exit(functions.get<decltype(::qrvUpdateSystemDetailsInDB)>("qrvUpdateSystemDetailsInDB")(&details));
}

void setModeWhereTheRegistryRefuses() {
  const Functions functions;
  LibraryHome home;
  std::filesystem::remove(home.lab().installPath() / "registry.reg");
  std::filesystem::create_directory(home.lab().installPath() / "registry.reg");
  std::exit(functions.get<decltype(::qrvSetNetAccessMode)>("qrvSetNetAccessMode")(1));
}

TEST(LibraryDeathTest, StoresNoModeWhereTheRegistryRefuses) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(setModeWhereTheRegistryRefuses(), testing::ExitedWithCode(0), "");
}

// In a process of its own: the driver manager remembers for a while what it read of the data sources.
TEST(LibraryDeathTest, StoresNothingWhereThereIsNoDataSource) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(storeWithoutADataSource(), testing::ExitedWithCode(0), "");
}

TEST(LibraryDeathTest, LetsTheProcessEndWhileAJobRuns) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(endWhileAJobRuns(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace varnhold::companion::test
