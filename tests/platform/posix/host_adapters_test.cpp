#include "platform/host_adapters.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <array>
#include <filesystem>

#include "base/runtime_error.h"
#include "tests/platform/posix/child_process.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform {
namespace {

using posix::inChild;

std::string variable(const char* name) {
  const char* value = ::getenv(name);
  return value == nullptr ? "(unset)" : value;
}

/// Since the maker sets variables of the process, each test runs in one of its own.
void expectInOwnProcess(const std::function<bool()>& holds) {
  EXPECT_EQ(inChild([&] { return holds() ? 0 : 1; }), 0);
}

TEST(PosixHostAdapters, PointOdbcToTheHome) {
  expectInOwnProcess([] {
    ::unsetenv("ODBCINI");
    const auto host = makeHostAdapters({.home = "/some/home"});
    return variable("ODBCINI") == "/some/home/odbc.ini";
  });
}

TEST(PosixHostAdapters, LeaveAnOdbcFileThatIsChosenAlready) {
  expectInOwnProcess([] {
    ::setenv("ODBCINI", "/mine/odbc.ini", 1);
    const auto host = makeHostAdapters({.home = "/some/home"});
    return variable("ODBCINI") == "/mine/odbc.ini";
  });
}

TEST(PosixHostAdapters, TellTheCompanionAHomeThatWasGiven) {
  expectInOwnProcess([] {
    ::setenv("VARNHOLD_HOME", "/other", 1);
    const auto host = makeHostAdapters({.home = "/some/home/"});
    return variable("VARNHOLD_HOME") == "/some/home" && host->environment().programFolder() == "/some/home";
  });
}

TEST(PosixHostAdapters, PassTheArgumentsBehindTheProgramsName) {
  expectInOwnProcess([] {
    std::array<std::string, 3> words = {"AgentInstaller", "-I", "-N:HOST1"};
    std::array<char*, 4> argv = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    const auto host = makeHostAdapters({.argc = 3, .argv = argv.data(), .home = "/some/home"});
    return host->environment().commandLine() == "-I -N:HOST1";
  });
}

TEST(PosixHostAdapters, WorkWithoutAHomeAndFindNothing) {
  expectInOwnProcess([] {
    const posix::TemporaryFolder folder;
    const auto home = folder / "missing";
    const auto host = makeHostAdapters({.home = home});
    RegistryValue value;
    const auto key = R"(SOFTWARE\Kelmont Works\Varnhold\Manager)";
    const auto query = [&] {
      return host->registry().query(RegistryHive::LocalMachine, key, "INSTALLPATH", 1024, value);
    };
    return query() == RegistryOutcome::KeyMissing &&
           host->registry().set(RegistryHive::LocalMachine, key, "A", {kRegText, "x"}) ==
               RegistryOutcome::KeyMissing &&
           host->registry().createKey(RegistryHive::LocalMachine, key) == RegistryOutcome::Refused &&
           !host->files().exists(home + "\\AILog.txt") &&
           host->files().append(home + "\\AILog.txt", "x") == FileOutcome::NotFound &&
           !host->environment().setCurrentDirectory(home) && !std::filesystem::exists(home);
  });
}

TEST(PosixHostAdapters, LookForTheCompanionInTheHomeFirst) {
  expectInOwnProcess([] {
    const posix::TemporaryFolder home;
    std::filesystem::copy_file(VARNHOLD_LACKING_FOLDER "/libqrvUtil.so", home / "libqrvUtil.so");
    const auto host = makeHostAdapters({.home = home.path()});
    std::uint32_t code = 0;
    try {
      return host->threads().getExitCodeThread(1, code);
    } catch (const RuntimeError& error) {
      return error.number() == kLibraryFunctionMissing &&
             error.description().find(home / "libqrvUtil.so") != std::string::npos;
    }
  });
}

TEST(PosixHostAdapters, TellNtlmOfTheUserFileOfTheHome) {
  expectInOwnProcess([] {
    ::unsetenv("NTLM_USER_FILE");
    const auto host = makeHostAdapters({.home = "/some/home"});
    const char* file = ::getenv("NTLM_USER_FILE");
    return file != nullptr && std::string(file) == "/some/home/ntlm-users" &&
           &host->security() == &host->secur32();
  });
}

TEST(PosixHostAdapters, OfferEveryPort) {
  expectInOwnProcess([] {
    const auto host = makeHostAdapters({.home = "/some/home"});
    std::uint32_t error = 0;
    host->clock().sleep(0);
    return host->eventLog().formatMessage(5, error) == "Access is denied.\r\n" &&
           host->environment().getVersionEx().platformId == kPlatformWin32Nt &&
           host->processes().shellExecute("open", "/nonexistent/x.bat", ShowState::Hidden) == 2;
  });
}

}  // namespace
}  // namespace varnhold::platform
