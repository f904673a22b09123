#include "deployment/agent_configuration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/deployment/agent_key.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kInstallerDir = R"(C:\V\RemoteInstaller)";

TEST(AgentIniMode, IsNotTheSameOnAllPaths) {
  EXPECT_EQ(agentIniMode(DeploymentPath::Install, false), 1);
  EXPECT_EQ(agentIniMode(DeploymentPath::Install, true), 5);
  EXPECT_EQ(agentIniMode(DeploymentPath::UpgradeOverDomain, false), 0);
  EXPECT_EQ(agentIniMode(DeploymentPath::UpgradeOverDomain, true), 5);
}

TEST(AgentIniMode, IsNoneWhereTheFileIsNotTouched) {
  for (const auto path :
       {DeploymentPath::UpgradeOverIP, DeploymentPath::Agentless, DeploymentPath::Tessmark}) {
    EXPECT_EQ(agentIniMode(path, false), std::nullopt);
    EXPECT_EQ(agentIniMode(path, true), std::nullopt);
  }
}

class AgentConfiguration : public ::testing::Test {
 protected:
  AgentConfiguration() { fake.libraries.computers["HOST1"] = {}; }

  Preparation prepareInstall(bool highPerformance = false) {
    return prepareAgentInstall(fake.libraries, kInstallerDir, systemName, directory, 1, highPerformance);
  }

  fakes::FakeHost fake;
  std::string systemName = "HOST1";
  std::string directory = R"(C:\A)";
};

TEST_F(AgentConfiguration, EditsTheManagersCopyOfTheSettings) {
  EXPECT_TRUE(prepareAgentIni(fake.libraries, kInstallerDir, 0));
  EXPECT_THAT(fake.journal,
              LinesAre({R"(qrvCReadNWriteVhaConfigINI4Turbo C:\V\RemoteInstaller\Agent\vhagent )"
                        R"(C:\V\RemoteInstaller\Agent C:\V\RemoteInstaller\Agent\vhaconfig.ini 0 -> 1)"}));
}

TEST_F(AgentConfiguration, ReportsSettingsThatWereNotEdited) {
  fake.libraries.iniEdits = false;
  EXPECT_FALSE(prepareAgentIni(fake.libraries, kInstallerDir, 5));
}

TEST_F(AgentConfiguration, InstallWritesTheSetUpFileAfterTheSettings) {
  const auto preparation = prepareInstall();
  EXPECT_TRUE(preparation.ready);
  EXPECT_EQ(preparation.code, 0);
  EXPECT_THAT(fake.journal,
              LinesAre({R"(qrvCReadNWriteVhaConfigINI4Turbo C:\V\RemoteInstaller\Agent\vhagent )"
                        R"(C:\V\RemoteInstaller\Agent C:\V\RemoteInstaller\Agent\vhaconfig.ini 1 -> 1)",
                        R"(qrvCCreateConfigurationFile C:\V\RemoteInstaller\remins HOST1 C:\A 1 -> 1)"}));
}

TEST_F(AgentConfiguration, HighPerformanceInstallChangesTheModeOfTheSettings) {
  EXPECT_TRUE(prepareInstall(true).ready);
  EXPECT_TRUE(fake.journal.front().ends_with("vhaconfig.ini 5 -> 1"));
}

TEST_F(AgentConfiguration, InstallSkipsTheSetUpFileAndSetsNoCodeWhenTheSettingsFail) {
  fake.libraries.iniEdits = false;
  const auto preparation = prepareInstall();
  EXPECT_FALSE(preparation.ready);
  EXPECT_EQ(preparation.code, 0);
  EXPECT_EQ(fake.journal.size(), 1u);
}

TEST_F(AgentConfiguration, InstallGives801ForEveryAnswerBut1) {
  for (const int answer : {0, 2, -1}) {
    fake.libraries.computers["HOST1"].configurationResult = answer;
    const auto preparation = prepareInstall();
    EXPECT_FALSE(preparation.ready) << answer;
    EXPECT_EQ(preparation.code, 801) << answer;
  }
}

TEST_F(AgentConfiguration, TessmarkInstallWritesOnlyTheSetUpFileOfItsProduct) {
  EXPECT_TRUE(prepareTessmarkInstall(fake.libraries, R"(C:\TK)", systemName, directory).ready);
  EXPECT_THAT(fake.journal, LinesAre({R"(qrvCCreateConfigurationFile C:\TK\remins HOST1 C:\A 0 -> 1)"}));
}

TEST_F(AgentConfiguration, TessmarkInstallGives801WhenTheSetUpFileFails) {
  fake.libraries.computers["HOST1"].configurationResult = 0;
  EXPECT_EQ(prepareTessmarkInstall(fake.libraries, R"(C:\TK)", systemName, directory).code, 801);
}

class OverIPConfiguration : public ::testing::Test {
 protected:
  OverIPConfiguration() {
    program.gInstallerDir = kInstallerDir;
    program.gLocalName = "MANAGER";
    fake.libraries.computers["MANAGER"] = {};
  }

  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle};
};

TEST_F(OverIPConfiguration, NamesTheManagerAndTheMode) {
  EXPECT_TRUE(prepareOverIPUpgrade(program, true, 0));
  EXPECT_TRUE(prepareOverIPUpgrade(program, true, 1));
  EXPECT_TRUE(prepareOverIPUpgrade(program, true, 2));
  EXPECT_TRUE(prepareOverIPUpgrade(program, false, 1));
  const std::string call =
      R"(qrvCCreateConfigurationFile C:\V\RemoteInstaller\remins MANAGER C:\V\RemoteInstaller )";
  EXPECT_THAT(fake.journal, LinesAre({call + "1 -> 1", call + "5 -> 1", call + "5 -> 1", call + "0 -> 1"}));
}

TEST_F(OverIPConfiguration, IsNotReadyForEveryAnswerBut1) {
  fake.libraries.computers["MANAGER"].configurationResult = 0;
  EXPECT_FALSE(prepareOverIPUpgrade(program, true, 0));
  fake.libraries.computers["MANAGER"].configurationResult = 2;
  EXPECT_FALSE(prepareOverIPUpgrade(program, true, 0));
}

class ConfigIPAddr : public ::testing::Test {
 protected:
  ConfigIPAddr() {
    fake.registry.makeKey(kAgentKey);
    fake.libraries.computers["MANAGER"].address = "10.1.0.1";
  }

  void write() {
    auto host = fake.host();
    writeConfigIPAddr(host);
  }

  fakes::FakeHost fake;
};

TEST_F(ConfigIPAddr, StoresTheAddressWithoutItsNulAndThenTheProtection) {
  write();
  EXPECT_THAT(
      fake.journal,
      LinesAre(
          {"GetComputerName -> MANAGER", "qrvGetSystemIPAddress MANAGER -> 1",
           R"(RegSetValueEx SOFTWARE\Kelmont Works\Varnhold\Agent\ConfigIPAddr type 1 10.1.0.1 -> Done)",
           R"(RegSetValueEx SOFTWARE\Kelmont Works\Varnhold\Agent\enableprotection type 4 01000000 -> Done)"}));
  EXPECT_EQ(fake.registry.stored(kAgentKey, "ConfigIPAddr")->bytes.size(), 8u);
}

TEST_F(ConfigIPAddr, CutsTheComputersNameAtItsFirstNul) {
  fake.environment.computerName = std::string("MANAGER\0\0\0", 10);
  write();
  EXPECT_EQ(fake.journal[1], "qrvGetSystemIPAddress MANAGER -> 1");
}

TEST_F(ConfigIPAddr, IsSkippedWithoutAComputerName) {
  fake.environment.computerName.reset();
  write();
  EXPECT_THAT(fake.journal, LinesAre({"GetComputerName -> nothing"}));
}

TEST_F(ConfigIPAddr, IsSkippedWhenTheNameDoesNotResolve) {
  fake.libraries.computers["MANAGER"].address.reset();
  write();
  EXPECT_THAT(fakes::linesOf(fake.journal, "RegSetValueEx"), IsEmpty());
}

TEST_F(ConfigIPAddr, IsNotWrittenWithoutTheKeyAndSaysNothing) {
  fakes::FakeHost bare;
  bare.libraries.computers["MANAGER"] = {};
  auto host = bare.host();
  writeConfigIPAddr(host);
  EXPECT_THAT(fakes::linesOf(bare.journal, "RegSetValueEx").size(), 1u);
  EXPECT_EQ(bare.registry.stored(kAgentKey, "ConfigIPAddr"), std::nullopt);
  EXPECT_THAT(fakes::linesOf(bare.journal, "MessageBox"), IsEmpty());
}

TEST_F(ConfigIPAddr, SetsNoProtectionWhenTheAddressIsRefused) {
  fake.registry.refusesWrites = true;
  write();
  EXPECT_THAT(
      fakes::linesOf(fake.journal, "RegSetValueEx"),
      LinesAre(
          {R"(RegSetValueEx SOFTWARE\Kelmont Works\Varnhold\Agent\ConfigIPAddr type 1 10.1.0.1 -> Refused)"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "MessageBox"), IsEmpty());
}

}  // namespace
}  // namespace varnhold::deployment
