#include <gmock/gmock.h>

#include "tests/companion/lab_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::companion::test {
namespace {

using testing::Contains;
using testing::Key;
using testing::Not;
using testing::Pair;

class Uninstall : public testing::Test {
 protected:
  LabFixture lab_;
};

TEST_F(Uninstall, TakesAwayAllThatTheInstallPutThere) {
  const auto host = lab_.addHost("WKS01");
  const auto before = snapshot(host);
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  ASSERT_EQ(lab_.uninstall(jobFor(R"(\\WKS01)")), 152);
  auto after = snapshot(host);
  // The hive's root key and the drive may stay; no agent needs them gone.
  after.erase("registry.reg");
  after.erase("C/");
  EXPECT_EQ(after, before);
}

TEST_F(Uninstall, LeavesWhatIsNotTheAgents) {
  const auto host = lab_.addHost("WKS01");
  writeText(host / "services.ini", "; mine\n[Spooler]\npath=C:\\spool.exe\nstate=running\n");
  writeText(
      host / "registry.reg",
      "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Kelmont Works\\Other]\r\n"
      "\"A\"=\"b\"\r\n");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  writeText(agentFolderOn(host) / "own.log", "of somebody");
  ASSERT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  EXPECT_EQ(readText(host / "services.ini"), "; mine\n[Spooler]\npath=C:\\spool.exe\nstate=running\n");
  EXPECT_EQ(readText(agentFolderOn(host) / "own.log"), "of somebody");
  EXPECT_FALSE(std::filesystem::exists(agentFolderOn(host) / "vhagent.exe"));
  const auto registry = lab_.network().find("WKS01");
  EXPECT_TRUE(registry->registry().hasKey(R"(SOFTWARE\Kelmont Works\Other)"));
  EXPECT_FALSE(registry->registry().hasKey(R"(SOFTWARE\Kelmont Works\Varnhold)"));
}

TEST_F(Uninstall, TakesAwayTheWholeKeyOfTheAgent) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  const auto computer = lab_.network().find("WKS01");
  ASSERT_EQ(computer->registry().createKey(R"(SOFTWARE\Kelmont Works\Varnhold\Agent\State)"), kDone);
  ASSERT_EQ(computer->registry().set(R"(SOFTWARE\Kelmont Works\Varnhold\Agent\State)",
                                     {"Since", {platform::kRegNumber, std::string("\1\0\0\0", 4)}}),
            kDone);
  ASSERT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  EXPECT_FALSE(computer->registry().hasKey(R"(SOFTWARE\Kelmont Works)"));
}

TEST_F(Uninstall, FailsWith196WhereNoAgentIs) {
  const auto host = lab_.addHost("WKS01");
  const auto before = snapshot(host);
  EXPECT_EQ(lab_.uninstall(jobFor("WKS01")), 196);
  EXPECT_EQ(snapshot(host), before);
}

TEST_F(Uninstall, CannotConnectToAComputerThatIsNotThereOrDoesNotAnswer) {
  lab_.addHost("DEAD", "[host]\nanswers = no\n");
  EXPECT_EQ(lab_.uninstall(jobFor("NOBODY")), 154);
  EXPECT_EQ(lab_.uninstall(jobFor("DEAD")), 154);
}

TEST_F(Uninstall, TakesAwayAnAgentWhoseServiceIsGone) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  ASSERT_EQ(lab_.network().find("WKS01")->services().remove("Varnhold Agent"), kDone);
  EXPECT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  EXPECT_FALSE(std::filesystem::exists(agentFolderOn(host)));
}

TEST_F(Uninstall, WithoutTheListOfFilesTakesAwayWhatAnInstallWouldBring) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  std::filesystem::remove(agentFolderOn(host) / "vhfiles.lst");
  EXPECT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  EXPECT_FALSE(std::filesystem::exists(agentFolderOn(host) / "vhagent.exe"));
}

TEST_F(Uninstall, DoesNotFollowAListOutOfTheAgentsFolder) {
  const auto host = lab_.addHost("WKS01");
  ASSERT_EQ(lab_.install(jobFor("WKS01")), 150);
  writeText(host / "C" / "keep.txt", "keep");
  std::filesystem::create_directories(host / "C" / "keep");
  writeText(agentFolderOn(host) / "vhfiles.lst",
            "file ..\\..\\..\\keep.txt\r\nfile \r\nfolder C:\\keep\r\nfolder nonsense\r\nnonsense\r\nfile "
            "vhagent.exe\r\n");
  EXPECT_EQ(lab_.uninstall(jobFor("WKS01")), 152);
  EXPECT_EQ(readText(host / "C" / "keep.txt"), "keep");
  EXPECT_TRUE(std::filesystem::exists(host / "C" / "keep"));
  EXPECT_FALSE(std::filesystem::exists(agentFolderOn(host) / "vhagent.exe"));
}

class RefusedUninstall : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedUninstall, EndsWithTheCodeOfTheStepAndPutsEverythingBack) {
  LabFixture lab;
  lab.addHost("WKS01");
  ASSERT_EQ(lab.install(jobFor("WKS01")), 150);
  const auto host = lab.addHost("WKS01", std::string("[refuse]\n") + GetParam().line + "\n");
  const auto before = snapshot(host);
  EXPECT_EQ(lab.uninstall(jobFor("WKS01")), GetParam().code);
  EXPECT_EQ(snapshot(host), before);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, RefusedUninstall,
    testing::Values(Refusal{"connect=yes", 154}, Refusal{"connect=121", 153}, Refusal{"share=yes", 154},
                    Refusal{"remote_registry=yes", 159}, Refusal{"service_manager=yes", 190},
                    Refusal{"service_manager=1065", 191}, Refusal{"service_manager=87", 192},
                    Refusal{"service_manager=1722", 194}, Refusal{"find=yes", 200}, Refusal{"find=6", 193},
                    Refusal{"find=123", 195}, Refusal{"find=1060", 196}, Refusal{"stop=yes", 210},
                    Refusal{"stop=6", 201}, Refusal{"stop=1051", 202}, Refusal{"stop=87", 203},
                    Refusal{"stop=1052", 204}, Refusal{"stop=1061", 205}, Refusal{"stop=1062", 206},
                    Refusal{"stop=1053", 207}, Refusal{"stop=1115", 208}, Refusal{"stop=1450", 223},
                    Refusal{"delete=yes", 220}, Refusal{"delete=6", 221}, Refusal{"delete=1072", 212},
                    Refusal{"delete=1450", 223}, Refusal{"remove_registry=yes", 158},
                    Refusal{"remove_files=yes", 149}));

TEST_F(Uninstall, HasItsStepsInTheirOrder) {
  std::vector<std::string> names;
  for (const Step& step : uninstallSteps()) names.emplace_back(step.name);
  EXPECT_THAT(names, LinesAre({"connect", "remote_registry", "service_manager", "find", "stop", "delete",
                               "remove_files", "remove_registry"}));
}

}  // namespace
}  // namespace varnhold::companion::test
