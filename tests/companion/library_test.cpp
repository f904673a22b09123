// The library as the program has it: loaded at run time, called through the host's adapters.
#include <gmock/gmock.h>

#include "base/text.h"
#include "tests/companion/library_home.h"

namespace varnhold::companion::test {
namespace {

using platform::DeploymentJob;
using platform::kStillActive;
using platform::SystemDetails;
using platform::ThreadHandle;

class Library : public testing::Test {
 protected:
  ThreadHandle install(const std::string& name) {
    DeploymentJob job = record(name);
    return libraries().qrvCInstall(job, home_.libraryPath());
  }
  ThreadHandle uninstall(const std::string& name) {
    DeploymentJob job = record(R"(\\)" + name);
    return libraries().qrvCUninstall(job, home_.libraryPath());
  }
  ThreadHandle checkVersion(const std::string& agentLibrary) {
    std::string name = "WKS01";
    return libraries().qrvCVHCheckVersion(agentLibrary, name);
  }
  static DeploymentJob record(const std::string& name) {
    DeploymentJob job;
    job.SystemName = name;
    job.InstallDirectory = R"(%Program Files%\Kelmont Works\Varnhold)";
    job.AgentMode = 1;
    return job;
  }
  platform::ClosedLibraries& libraries() { return home_.host().libraries(); }
  std::filesystem::path addHost(const std::string& name,
                                const std::string& ini = "[host]\naddress=10.1.1.11\n") {
    return home_.lab().addHost(name, ini);
  }

  LibraryHome home_;
};

TEST_F(Library, EndsAJobsThreadWith1000AndTheResultCode) {
  const auto host = addHost("WKS01");
  EXPECT_EQ(home_.finish(install("WKS01")), 1150U);
  EXPECT_EQ(readText(agentFolderOn(host) / "vhagent.exe"), "agent program");
  EXPECT_EQ(home_.finish(uninstall("WKS01")), 1152U);
  EXPECT_FALSE(std::filesystem::exists(agentFolderOn(host)));
  EXPECT_EQ(home_.finish(uninstall("WKS01")), 1196U);
  EXPECT_EQ(home_.finish(install("NOBODY")), 1154U);
}

TEST_F(Library, GivesTheCodeOfTheStepThatFailed) {
  addHost("WKS01", "[refuse]\nservice=yes\n");
  EXPECT_EQ(home_.finish(install("WKS01")), 1180U);
}

TEST_F(Library, GivesScriptedResults) {
  addHost("WKS01", "[result]\ninstall=225\nuninstall=703\n");
  EXPECT_EQ(home_.finish(install("WKS01")), 1225U);
  EXPECT_EQ(home_.finish(uninstall("WKS01")), 1703U);
  addHost("WKS01", "[result]\ninstall=-1000\n");
  EXPECT_EQ(home_.finish(install("WKS01")), 0U);
}

TEST_F(Library, StartsNoThreadWhereNoneIsScripted) {
  addHost("WKS01", "[no_thread]\ninstall=yes\nuninstall=yes\n");
  EXPECT_EQ(install("WKS01"), 0U);
  EXPECT_EQ(uninstall("WKS01"), 0U);
}

TEST_F(Library, ShowsAThreadAsRunningWhileItsJobIsDelayed) {
  addHost("WKS01", "[delay_ms]\ninstall=300\n");
  const ThreadHandle thread = install("WKS01");
  std::uint32_t code = 0;
  EXPECT_TRUE(home_.host().threads().getExitCodeThread(thread, code));
  EXPECT_EQ(code, kStillActive);
  EXPECT_EQ(home_.finish(thread), 1150U);
}

TEST_F(Library, LetsAJobThatNeverEndsBeForgotten) {
  const auto host = addHost("WKS01", "[delay_ms]\ninstall=never\n");
  const ThreadHandle thread = install("WKS01");
  std::uint32_t code = 0;
  EXPECT_TRUE(home_.host().threads().getExitCodeThread(thread, code));
  EXPECT_EQ(code, kStillActive);
  home_.host().threads().closeHandle(thread);
  EXPECT_FALSE(std::filesystem::exists(host / "services.ini"));
}

TEST_F(Library, RunsEightJobsAtOnce) {
  std::vector<ThreadHandle> threads;
  for (int at = 0; at < 8; ++at) {
    const std::string name = "WKS" + std::to_string(at);
    addHost(name, "[delay_ms]\ninstall=20\n");
    threads.push_back(install(name));
  }
  for (const ThreadHandle thread : threads) EXPECT_EQ(home_.finish(thread), 1150U);
}

TEST_F(Library, TakesItsOwnCopyOfTheRecordAndOfTheSetupInformation) {
  const auto host = addHost("WKS01", "[delay_ms]\ninstall=100\n");
  ThreadHandle thread = 0;
  {
    DeploymentJob job = record("WKS01");
    thread = libraries().qrvCInstall(job, home_.libraryPath());
    job.SystemName.assign(job.SystemName.size(), '?');
    job.InstallDirectory.assign(job.InstallDirectory.size(), '?');
  }
  writeText(home_.lab().libraryFolder() / "vhsetup.ins", "of the next computer");
  EXPECT_EQ(home_.finish(thread), 1150U);
  EXPECT_EQ(readText(agentFolderOn(host) / "remins" / "vhsetup.ins"), "[Setup]\r\nSystem=HOST\r\n");
}

TEST_F(Library, LeavesTheRecordAsItWas) {
  addHost("WKS01");
  DeploymentJob job = record("WKS01");
  job.ServiceUser = R"(CORP\agent)";
  job.ServicePassword = " ";
  EXPECT_EQ(home_.finish(libraries().qrvCInstall(job, home_.libraryPath())), 1150U);
  EXPECT_EQ(job.SystemName, "WKS01");
  EXPECT_EQ(job.ServiceUser, R"(CORP\agent)");
}

TEST_F(Library, StartsNoThreadForAnOverlongName) {
  EXPECT_EQ(install(std::string(1000, 'A')), 0U);
}

TEST_F(Library, ResolvesNamesAndAddressesOfTheLab) {
  addHost("Wks01");
  std::string name = "WKS01", address;
  EXPECT_TRUE(libraries().qrvGetSystemIPAddress(name, address));
  EXPECT_EQ(TrimAtNull(name), "WKS01");
  EXPECT_EQ(TrimAtNull(address), "10.1.1.11");
  name = "10.1.1.11";
  EXPECT_TRUE(libraries().qrvGetSystemIPAddress(name, address));
  EXPECT_EQ(TrimAtNull(name), "Wks01");
  name = "NOBODY";
  EXPECT_FALSE(libraries().qrvGetSystemIPAddress(name, address));
  name = std::string(1000, 'A');
  EXPECT_FALSE(libraries().qrvGetSystemIPAddress(name, address));
}

TEST_F(Library, DescribesASystem) {
  addHost("Wks01", "[host]\ntype=16\nos_major=6\n");
  SystemDetails details;
  details.SystemName = "WKS01";
  EXPECT_TRUE(libraries().qrvFindSystemAndReturnDetails(details));
  EXPECT_EQ(details.ResolvedName, "Wks01");
  EXPECT_EQ(details.SystemType, 16);
  EXPECT_EQ(details.OSMajorVersion, 6);
  details.SystemName = "NOBODY";
  EXPECT_FALSE(libraries().qrvFindSystemAndReturnDetails(details));
}

TEST_F(Library, CutsADescriptionThatIsTooLongForItsBuffer) {
  addHost("WKS01", "[host]\ndescription=" + std::string(1000, 'x') + "\n");
  SystemDetails details;
  details.SystemName = "WKS01";
  EXPECT_TRUE(libraries().qrvFindSystemAndReturnDetails(details));
  EXPECT_EQ(details.DetailsText1, std::string(255, 'x'));
}

TEST_F(Library, TellsTheProgramFilesFolder) {
  addHost("WKS01", "[host]\nprogram_files=D:\\Programme\n");
  std::string path;
  EXPECT_TRUE(libraries().qrvChkRmtRegNGetPrgFilePath("WKS01", path));
  EXPECT_EQ(TrimAtNull(path), "D:\\Programme");
  EXPECT_FALSE(libraries().qrvChkRmtRegNGetPrgFilePath("NOBODY", path));
}

TEST_F(Library, WritesTheSetupInformation) {
  addHost("WKS01");
  addHost("WKS02", "[result]\nconfiguration_file=0\n");
  std::string name = "WKS01", directory = R"(C:\X)";
  EXPECT_EQ(libraries().qrvCCreateConfigurationFile(home_.libraryPath(), name, directory, 5), 1);
  EXPECT_THAT(readText(home_.lab().libraryFolder() / "vhsetup.ins"),
              testing::HasSubstr("System=WKS01\r\nInstallDirectory=C:\\X\r\nMode=5\r\n"));
  name = "WKS02";
  EXPECT_EQ(libraries().qrvCCreateConfigurationFile(home_.libraryPath(), name, directory, 5), 0);
  EXPECT_NE(libraries().qrvCCreateConfigurationFile("/nowhere", name, directory, 5), 1);
}

TEST_F(Library, EditsTheAgentsConfiguration) {
  const std::string folder = home_.libraryPath() + R"(\..\Agent)";
  const std::string agent = replaceAll(folder, R"(remins\..\)", "");
  EXPECT_TRUE(libraries().qrvCReadNWriteVhaConfigINI4Turbo(agent + R"(\vhagent)", agent,
                                                           agent + R"(\vhaconfig.ini)", 5));
  EXPECT_EQ(readText(home_.lab().agentFolder() / "vhaconfig.ini"), "[Performance]\r\nHighPerformance=1\r\n");
  EXPECT_FALSE(
      libraries().qrvCReadNWriteVhaConfigINI4Turbo(agent + R"(\vhagent)", agent, agent + R"(\none.ini)", 5));
}

TEST_F(Library, TakesTheScriptedResultOfTheIniFromTheManagersOwnComputer) {
  const std::string manager = TrimAtNull(home_.host().environment().getComputerName().value());
  addHost(manager, "[result]\nini=0\n");
  const std::string agent = replaceAll(home_.libraryPath(), "remins", "Agent");
  EXPECT_FALSE(libraries().qrvCReadNWriteVhaConfigINI4Turbo(agent + R"(\vhagent)", agent,
                                                            agent + R"(\vhaconfig.ini)", 1));
}

TEST_F(Library, UpgradesOverTheDomainAndEndsWith1700) {
  home_.setVersion("6.0");
  const auto host = addHost("WKS01");
  ASSERT_EQ(home_.finish(install("WKS01")), 1150U);
  home_.setVersion("7.0");
  writeText(home_.lab().agentFolder() / "vhagent.exe", "newer program");
  DeploymentJob job = record(R"(\\WKS01)");
  EXPECT_EQ(home_.finish(libraries().qrvCUpgradeAgent(job, home_.libraryPath())), 1700U);
  EXPECT_EQ(readText(agentFolderOn(host) / "vhagent.exe"), "newer program");
  EXPECT_EQ(home_.finish(libraries().qrvCUpgradeAgent(job, home_.libraryPath())), 1711U);
  addHost("WKS01", "[no_thread]\nupgrade=yes\n");
  EXPECT_EQ(libraries().qrvCUpgradeAgent(job, home_.libraryPath()), 0U);
}

TEST_F(Library, TakesAConfigurationOnlyWhenTheDefaultIsNotAskedFor) {
  home_.setVersion("7.0");
  const auto host = addHost("WKS01");
  ASSERT_EQ(home_.finish(install("WKS01")), 1150U);
  writeText(home_.lab().installPath() / "custom.ini", "custom");
  DeploymentJob job = record(R"(\\WKS01)");
  job.ConfigFile = (home_.lab().installPath() / "custom.ini").string();
  job.UseDefaultConfig = 1;
  EXPECT_EQ(home_.finish(libraries().qrvCUpgradeAgent(job, home_.libraryPath())), 1711U);
  job.UseDefaultConfig = 0;
  EXPECT_EQ(home_.finish(libraries().qrvCUpgradeAgent(job, home_.libraryPath())), 1700U);
  EXPECT_EQ(readText(agentFolderOn(host) / "vhaconfig.ini"), "custom");
}

TEST_F(Library, UpgradesOverIpAndTheVersionCheckConfirmsItWith4000) {
  home_.setVersion("6.0");
  const auto host = addHost("WKS01");
  ASSERT_EQ(home_.finish(install("WKS01")), 1150U);
  home_.setVersion("7.0");
  const std::string agent = replaceAll(home_.libraryPath(), "remins", R"(Agent\vhagent)");
  EXPECT_EQ(home_.finish(checkVersion(agent)), 4027U);
  DeploymentJob job = record("WKS01");
  job.AgentMode = 5;
  EXPECT_EQ(home_.finish(libraries().qrvCUpgradeAgentOverIP(agent, job)), 4000U);
  EXPECT_THAT(readText(agentFolderOn(host) / "vhaconfig.ini"), testing::HasSubstr("HighPerformance=1"));
  EXPECT_EQ(home_.finish(checkVersion(agent)), 4000U);
  EXPECT_EQ(home_.finish(checkVersion("/nowhere/vhagent")), 4023U);
  addHost("WKS01", "[no_thread]\nversion_check=yes\n");
  EXPECT_EQ(checkVersion(agent), 0U);
}

TEST_F(Library, HasTheManagersAgentPollAnAgentlessComputer) {
  const std::string manager = TrimAtNull(home_.host().environment().getComputerName().value());
  writeText(addHost(manager) / "services.ini", "[Varnhold Agent]\nstate=running\n");
  addHost("WKS01", "[host]\naddress=10.1.1.12\n");
  DeploymentJob job = record("WKS01");
  job.AgentKind = 1;
  EXPECT_EQ(home_.finish(libraries().qrvCInstall(job, home_.libraryPath())), 1150U);
  const std::string key = R"(SOFTWARE\Kelmont Works\Varnhold\Agent\Polled)";
  EXPECT_EQ(registryText(home_.lab(), manager, key, "WKS01"), "10.1.1.12");
  job.SystemName = R"(\\WKS01)";
  EXPECT_EQ(home_.finish(libraries().qrvCUninstall(job, home_.libraryPath())), 1152U);
  EXPECT_EQ(registryText(home_.lab(), manager, key, "WKS01"), "none");
}

TEST_F(Library, RestartsAService) {
  const auto host = addHost("WKS01");
  writeText(host / "services.ini", "[Varnhold Agent]\nstate=stopped\n");
  EXPECT_NE(libraries().qrvRestartService("WKS01", "Varnhold Agent"), 0);
  EXPECT_TRUE(serviceOn(home_.lab(), "WKS01").running);
  EXPECT_EQ(libraries().qrvRestartService("WKS01", "Other"), 0);
  EXPECT_EQ(libraries().qrvRestartService("NOBODY", "Varnhold Agent"), 0);
}

TEST_F(Library, GrantsTheServiceLogonRight) {
  const auto host = addHost("WKS01");
  std::vector<std::uint8_t> sid = {1, 2, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 2, 0, 0};
  EXPECT_EQ(libraries().fnLogRight(u"\\\\WKS01", sid), 0);
  EXPECT_EQ(readText(host / "rights.ini"), "[SeServiceLogonRight]\r\nS-1-5-32-544=granted\r\n");
  EXPECT_EQ(libraries().fnLogRight(u"NOBODY", sid), 1722);
}

TEST_F(Library, StoresNoSystemWithoutAName) {
  SystemDetails details;
  details.SystemName = "";
  EXPECT_FALSE(libraries().qrvUpdateSystemDetailsInDB(details));
}

}  // namespace
}  // namespace varnhold::companion::test
