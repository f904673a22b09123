#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <string>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/closed_libraries.h"

/// What every `ClosedLibraries` does, the fake included. A host's test file gives one type per adapter, over
/// a library made for the tests, which knows one computer, HOST1:
///
/// - its address is 10.1.1.11, its program files are in `C:\Program Files`;
/// - its details are the name `HOST1.corp.example`, major version 6 and type 7, with empty texts;
/// - a job for it starts a thread, and brings its `SystemName` back in capitals, in place;
/// - its agent gives its version, and its service `Varnhold Agent` restarts.
///
/// No other computer resolves, answers or takes a job, has an agent or a service. It keeps every discovery
/// mode but 255, its enumeration of the network is a thread that ends with 1000, and of all
/// addresses 10.1.1.11 alone belongs to 10.1.1.0.
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ClosedLibrariesContract, PosixLibrariesHost);
namespace varnhold::contract {

template <class Host>
concept ClosedLibrariesHost = std::default_initializable<Host> && requires(Host host) {
  { host.libraries() } -> std::convertible_to<platform::ClosedLibraries&>;
  /// One whose library lacks qrvCInstall, and one whose library is not there.
  { host.lackingLibraries() } -> std::convertible_to<platform::ClosedLibraries&>;
  { host.missingLibraries() } -> std::convertible_to<platform::ClosedLibraries&>;
  /// From now on no discovery mode was ever saved.
  host.forgetMode();
  /// From now on at least the mode 255 is not stored.
  host.refuseMode();
  /// The threads of the library.
  { host.threads() } -> std::convertible_to<platform::Threads&>;
  /// Gives the handle of a job's thread back.
  host.close(platform::ThreadHandle{});
};

template <ClosedLibrariesHost Host>
class ClosedLibrariesContract : public ::testing::Test {
 protected:
  platform::ClosedLibraries& libraries() { return host_.libraries(); }

  static platform::DeploymentJob jobFor(const std::string& name) {
    platform::DeploymentJob job;
    job.SystemName = name;
    job.InstallDirectory = R"(C:\Program Files\Varnhold Größe)";
    job.ServicePassword = " ";
    job.AgentKind = 2;
    job.AgentMode = 5;
    return job;
  }
  static void expectInstallRaises(platform::ClosedLibraries& libraries, std::int32_t number,
                                  const std::string& part) {
    auto job = jobFor("host1");
    try {
      static_cast<void>(libraries.qrvCInstall(job, R"(C:\remins)"));
      FAIL() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), number);
      EXPECT_NE(error.description().find(part), std::string::npos) << error.description();
    }
  }

  Host host_;
};

TYPED_TEST_SUITE_P(ClosedLibrariesContract);

TYPED_TEST_P(ClosedLibrariesContract, GivesTheAddressInItsBufferUncut) {
  std::string name = "host1", address = "before";
  ASSERT_TRUE(this->libraries().qrvGetSystemIPAddress(name, address));
  EXPECT_EQ(address.size(), 256u);
  EXPECT_EQ(TrimAtNull(address), "10.1.1.11");
  EXPECT_EQ(TrimAtNull(name), "host1");
}

TYPED_TEST_P(ClosedLibrariesContract, SaysThatANameDoesNotResolve) {
  std::string name = "NOSUCH", address;
  EXPECT_FALSE(this->libraries().qrvGetSystemIPAddress(name, address));
}

TYPED_TEST_P(ClosedLibrariesContract, BringsDetailsBackCutAtTheirFirstNul) {
  platform::SystemDetails details;
  details.SystemName = "HOST1";
  ASSERT_TRUE(this->libraries().qrvFindSystemAndReturnDetails(details));
  EXPECT_EQ(details.SystemName, "HOST1");
  EXPECT_EQ(details.ResolvedName, "HOST1.corp.example");
  EXPECT_EQ(details.OSMajorVersion, 6);
  EXPECT_EQ(details.SystemType, 7);
  EXPECT_EQ(details.DetailLevel, 1);
  EXPECT_EQ(details.DetailsText1, "");
  EXPECT_EQ(details.DetailsText2, "");
}

TYPED_TEST_P(ClosedLibrariesContract, SaysThatAComputerDoesNotAnswer) {
  platform::SystemDetails details;
  details.SystemName = "NOSUCH";
  EXPECT_FALSE(this->libraries().qrvFindSystemAndReturnDetails(details));
}

TYPED_TEST_P(ClosedLibrariesContract, GivesTheProgramFilesFolderInItsBufferUncut) {
  std::string path = "before";
  ASSERT_TRUE(this->libraries().qrvChkRmtRegNGetPrgFilePath("HOST1", path));
  EXPECT_EQ(path.size(), 1024u);
  EXPECT_EQ(TrimAtNull(path), R"(C:\Program Files)");
  EXPECT_FALSE(this->libraries().qrvChkRmtRegNGetPrgFilePath("NOSUCH", path));
}

TYPED_TEST_P(ClosedLibrariesContract, StartsAJobAndBringsItsStringsBack) {
  auto job = this->jobFor("host1");
  const auto thread = this->libraries().qrvCInstall(job, R"(C:\remins)");
  EXPECT_NE(thread, 0u);
  EXPECT_EQ(job.SystemName, "HOST1");
  EXPECT_EQ(job.InstallDirectory, R"(C:\Program Files\Varnhold Größe)");
  EXPECT_EQ(job.ServicePassword, " ");
  EXPECT_EQ(job.AgentKind, 2);
  EXPECT_EQ(job.AgentMode, 5);
  this->host_.close(thread);
}

TYPED_TEST_P(ClosedLibrariesContract, GivesNoThreadWhereNoneWasStarted) {
  auto job = this->jobFor("NOSUCH");
  EXPECT_EQ(this->libraries().qrvCUninstall(job, R"(C:\remins)"), 0u);
}

TYPED_TEST_P(ClosedLibrariesContract, StartsTheThreadThatAsksAnAgentForItsVersion) {
  std::string name = "HOST1";
  const auto thread = this->libraries().qrvCVHCheckVersion(R"(C:\Agent\vhagent)", name);
  EXPECT_NE(thread, 0u);
  EXPECT_EQ(name, "HOST1");
  this->host_.close(thread);
  name = "NOSUCH";
  EXPECT_EQ(this->libraries().qrvCVHCheckVersion(R"(C:\Agent\vhagent)", name), 0u);
}

TYPED_TEST_P(ClosedLibrariesContract, SaysWhetherAServiceWasRestarted) {
  EXPECT_NE(this->libraries().qrvRestartService("HOST1", "Varnhold Agent"), 0);
  EXPECT_EQ(this->libraries().qrvRestartService("NOSUCH", "Varnhold Agent"), 0);
}

TYPED_TEST_P(ClosedLibrariesContract, TellsNothingOfARefreshThatFailed) {
  EXPECT_NO_THROW(this->libraries().qrvNetOpGetSystem("HOST1"));
  EXPECT_NO_THROW(this->libraries().qrvNetOpGetSystem("NOSUCH"));
}

TYPED_TEST_P(ClosedLibrariesContract, KeepsTheDiscoveryMode) {
  std::uint8_t mode = 42;
  ASSERT_NE(this->libraries().qrvSetNetAccessMode(1), 0);
  EXPECT_NE(this->libraries().qrvGetNetAccessMode(mode), 0);
  EXPECT_EQ(mode, 1);
  ASSERT_NE(this->libraries().qrvSetNetAccessMode(0), 0);
  EXPECT_NE(this->libraries().qrvGetNetAccessMode(mode), 0);
  EXPECT_EQ(mode, 0);
}

TYPED_TEST_P(ClosedLibrariesContract, LeavesTheModeWhereNoneWasSaved) {
  this->host_.forgetMode();
  std::uint8_t mode = 42;
  EXPECT_EQ(this->libraries().qrvGetNetAccessMode(mode), 0);
  EXPECT_EQ(mode, 42);
}

TYPED_TEST_P(ClosedLibrariesContract, SaysThatAModeIsNotStored) {
  this->host_.refuseMode();
  EXPECT_EQ(this->libraries().qrvSetNetAccessMode(255), 0);
}

TYPED_TEST_P(ClosedLibrariesContract, GivesTheThreadThatWalksTheNetwork) {
  platform::ThreadHandle thread = 0;
  this->libraries().qrvNetworkEnum(thread);
  ASSERT_NE(thread, 0u);
  std::uint32_t code = 0;
  EXPECT_TRUE(this->host_.threads().getExitCodeThread(thread, code));
  this->host_.close(thread);
}

TYPED_TEST_P(ClosedLibrariesContract, AsksWhetherAnAddressBelongsToASubnet) {
  EXPECT_NE(this->libraries().qrvCheckIfBelongsToSubnet("10.1.1.11", "10.1.1.0"), 0);
  EXPECT_EQ(this->libraries().qrvCheckIfBelongsToSubnet("10.1.2.11", "10.1.1.0"), 0);
  EXPECT_EQ(this->libraries().qrvCheckIfBelongsToSubnet("", "10.1.1.0"), 0);
}

TYPED_TEST_P(ClosedLibrariesContract, OpensAndClosesTheLibrarysConnection) {
  EXPECT_NO_THROW(this->libraries().qrvInitDbConnection());
  EXPECT_NO_THROW(this->libraries().qrvCloseDbConnection());
}

TYPED_TEST_P(ClosedLibrariesContract, RaisesWhenTheLibraryLacksTheFunction) {
  this->expectInstallRaises(this->host_.lackingLibraries(), kLibraryFunctionMissing, "qrvCInstall");
}

TYPED_TEST_P(ClosedLibrariesContract, RaisesWhenTheLibraryIsMissing) {
  this->expectInstallRaises(this->host_.missingLibraries(), kFileNotFound, "qrvUtil");
}

REGISTER_TYPED_TEST_SUITE_P(ClosedLibrariesContract, GivesTheAddressInItsBufferUncut,
                            SaysThatANameDoesNotResolve, BringsDetailsBackCutAtTheirFirstNul,
                            SaysThatAComputerDoesNotAnswer, GivesTheProgramFilesFolderInItsBufferUncut,
                            StartsAJobAndBringsItsStringsBack, GivesNoThreadWhereNoneWasStarted,
                            StartsTheThreadThatAsksAnAgentForItsVersion, SaysWhetherAServiceWasRestarted,
                            TellsNothingOfARefreshThatFailed, KeepsTheDiscoveryMode,
                            LeavesTheModeWhereNoneWasSaved, SaysThatAModeIsNotStored,
                            GivesTheThreadThatWalksTheNetwork, AsksWhetherAnAddressBelongsToASubnet,
                            OpensAndClosesTheLibrarysConnection, RaisesWhenTheLibraryLacksTheFunction,
                            RaisesWhenTheLibraryIsMissing);

}  // namespace varnhold::contract
