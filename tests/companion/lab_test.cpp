#include <gmock/gmock.h>

#include "companion/systems.h"
#include "tests/companion/lab_fixture.h"

namespace varnhold::companion::test {
namespace {

using testing::HasSubstr;

class Lab : public testing::Test {
 protected:
  LabFixture lab_;
};

TEST_F(Lab, FindsAComputerByItsNameWithoutCaseOrByItsAddress) {
  lab_.addHost("Wks01");
  for (const std::string name : {"Wks01", "WKS01", "wks01", "10.1.1.11", R"(\\WKS01)", " WKS01 "}) {
    const auto computer = lab_.network().find(name);
    ASSERT_NE(computer, nullptr) << name;
    EXPECT_EQ(computer->facts().name, "Wks01");
  }
}

TEST_F(Lab, FindsNamesBeyondAscii) {
  lab_.addHost("B\xC3\xBCro");  // "Büro"
  EXPECT_NE(lab_.network().find("B\xC3\x9CRO"), nullptr);
}

TEST_F(Lab, DoesNotFindWhatIsNoName) {
  lab_.addHost("WKS01");
  for (const std::string& name : {std::string(), std::string(" "), std::string("."), std::string(".."),
                                  std::string("../lab/WKS01"), std::string("WKS01/"), std::string("WKS0*"),
                                  std::string("10.1.1.12"), std::string(1000, 'A'), std::string("WKS01\n")})
    EXPECT_EQ(lab_.network().find(name), nullptr) << name;
}

TEST_F(Lab, DoesNotTakeAFolderWithoutHostIniForAComputer) {
  std::filesystem::create_directories(lab_.labFolder() / "EMPTY");
  EXPECT_EQ(lab_.network().find("EMPTY"), nullptr);
}

TEST_F(Lab, NamesItsComputersInOrder) {
  lab_.addHost("WKS02");
  lab_.addHost("Wks01", "[host]\nanswers=no\n");
  std::filesystem::create_directories(lab_.labFolder() / "EMPTY");
  writeText(lab_.labFolder() / "notes.txt", "no computer");
  EXPECT_EQ(lab_.network().names(), (std::vector<std::string>{"WKS02", "Wks01"}));
}

TEST_F(Lab, ThatIsNotThereHasNoComputers) {
  EXPECT_TRUE(LabNetwork(lab_.installPath() / "no lab").names().empty());
  EXPECT_EQ(LabNetwork(lab_.installPath() / "no lab").find("WKS01"), nullptr);
  lab_.addHost("WKS01");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(lab_.labFolder());
  EXPECT_EQ(LabNetwork({}).find("WKS01"), nullptr);
  EXPECT_EQ(LabNetwork({}).find("10.1.1.11"), nullptr);
  EXPECT_TRUE(LabNetwork({}).names().empty());
  std::filesystem::current_path(before);
}

TEST_F(Lab, SaysInAFileWhatOfAHostIniCannotBeUsed) {
  const auto host = lab_.addHost("WKS01", "[host]\ntype = x\n");
  ASSERT_NE(lab_.network().find("WKS01"), nullptr);
  EXPECT_EQ(readText(host / "host.ini.problems"), "[host] type: is no whole number; taken as 10\n");
  lab_.addHost("WKS01", "[host]\ntype = 7\n");
  ASSERT_NE(lab_.network().find("WKS01"), nullptr);
  EXPECT_FALSE(std::filesystem::exists(host / "host.ini.problems"));
}

TEST_F(Lab, TakesAHugeHostIniForAComputerThatDoesNotAnswer) {
  const auto host = lab_.addHost("WKS01", "[host]\n" + std::string(2U << 20, 'x'));
  const auto computer = lab_.network().find("WKS01");
  ASSERT_NE(computer, nullptr);
  EXPECT_FALSE(computer->answers());
  EXPECT_THAT(readText(host / "host.ini.problems"), HasSubstr("larger than 1 MB"));
}

TEST_F(Lab, KeepsTheLinesOfAServicesFileThatItDoesNotKnow) {
  const auto host = lab_.addHost("WKS01");
  const std::string text =
      "garbage\n; note\n[Spooler]\nPATH = C:\\spool.exe\nstate = Running ; now\ncolour = red\n[half\n";
  writeText(host / "services.ini", text);
  const auto computer = lab_.network().find("WKS01");
  ServiceEntry entry;
  ASSERT_EQ(computer->services().query("spooler", entry), kDone);
  EXPECT_TRUE(entry.running);
  EXPECT_EQ(entry.path, "C:\\spool.exe");
  EXPECT_EQ(entry.account, "LocalSystem");
  ASSERT_EQ(computer->services().stop("SPOOLER"), kDone);
  EXPECT_EQ(readText(host / "services.ini"),
            "garbage\n; note\n[Spooler]\nPATH = C:\\spool.exe\nstate = stopped ; now\ncolour = red\n[half\n");
}

TEST_F(Lab, AnswersForServicesAsAServiceManagerDoes) {
  lab_.addHost("WKS01");
  const auto computer = lab_.network().find("WKS01");
  RemoteServices& services = computer->services();
  ServiceEntry entry;
  entry.name = "Probe";
  EXPECT_EQ(services.query("Probe", entry), kServiceMissing);
  EXPECT_EQ(services.start("Probe"), kServiceMissing);
  EXPECT_EQ(services.stop("Probe"), kServiceMissing);
  EXPECT_EQ(services.remove("Probe"), kServiceMissing);
  EXPECT_EQ(services.change(entry, ""), kServiceMissing);
  EXPECT_EQ(services.secure("Probe"), kServiceMissing);
  EXPECT_EQ(services.create(entry), kDone);
  EXPECT_EQ(services.create(entry), kServiceExists);
  EXPECT_EQ(services.stop("Probe"), kServiceNotActive);
  EXPECT_EQ(services.start("Probe"), kDone);
  EXPECT_EQ(services.start("Probe"), kServiceRunning);
  EXPECT_EQ(services.stop("Probe"), kDone);
  entry.start = ServiceStart::Disabled;
  EXPECT_EQ(services.change(entry, ""), kDone);
  EXPECT_EQ(services.start("Probe"), kServiceDisabled);
  EXPECT_EQ(services.remove("Probe"), kDone);
}

TEST_F(Lab, NamesWhatLiesInAFolder) {
  const auto host = lab_.addHost("WKS01");
  writeText(host / "C" / "A" / "two.txt", "2");
  writeText(host / "C" / "A" / "One" / "x.txt", "1");
  const auto computer = lab_.network().find("WKS01");
  EXPECT_EQ(computer->files().names(R"(c:\a)"), (std::vector<std::string>{"One", "two.txt"}));
  EXPECT_TRUE(computer->files().names(R"(C:\B)").empty());
  EXPECT_TRUE(computer->files().names(R"(C:\..)").empty());
}

TEST_F(Lab, HasAnAgentToSpeakToWhileItsServiceRuns) {
  const auto host = lab_.addHost("WKS01");
  EXPECT_EQ(lab_.network().find("WKS01")->connectAgent(), kConnectionRefused);
  writeText(host / "services.ini", "[Varnhold Agent]\nstate=running\n");
  EXPECT_EQ(lab_.network().find("WKS01")->connectAgent(), kDone);
  lab_.addHost("WKS01", "[host]\nanswers=no\n");
  EXPECT_EQ(lab_.network().find("WKS01")->connectAgent(), kConnectionTimeout);
}

TEST_F(Lab, RefusesPathsThatLeaveTheDrive) {
  const auto host = lab_.addHost("WKS01");
  const auto computer = lab_.network().find("WKS01");
  RemoteFiles& files = computer->files();
  EXPECT_EQ(files.write(R"(C:\..\host.ini)", "x"), kBadPathName);
  EXPECT_EQ(files.remove("host.ini"), kBadPathName);
  EXPECT_EQ(files.createFolder(R"(\\X\C$\y)"), kBadPathName);
  EXPECT_EQ(files.removeFolder("C:relative"), kBadPathName);
  EXPECT_EQ(files.read(R"(C:\..\host.ini)"), std::nullopt);
  EXPECT_EQ(readText(host / "host.ini"), "[host]\naddress = 10.1.1.11\n");
}

TEST_F(Lab, ResolvesOnlyAComputerThatHasAnAddress) {
  lab_.addHost("WKS01");
  lab_.addHost("NOADDR", "[host]\n");
  EXPECT_EQ(resolveAddress(lab_.network(), "wks01")->address, "10.1.1.11");
  EXPECT_EQ(resolveAddress(lab_.network(), "NOADDR"), std::nullopt);
  EXPECT_EQ(resolveAddress(lab_.network(), "NOBODY"), std::nullopt);
}

TEST_F(Lab, GivesTheNameThatBelongsToAnAddressAndLeavesAGivenNameAsItIs) {
  lab_.addHost("Wks01");
  EXPECT_EQ(resolveAddress(lab_.network(), "10.1.1.11")->name, "Wks01");
  EXPECT_EQ(resolveAddress(lab_.network(), "WKS01")->name, "WKS01");
  EXPECT_EQ(resolveAddress(lab_.network(), "WKS01 ")->name, "WKS01");
}

TEST_F(Lab, DescribesAComputerThatAnswers) {
  lab_.addHost("WKS01", "[host]\naddress=10.1.1.11\ntype=16\nos_major=6\ndescription=File server\n");
  lab_.addHost("DEAD", "[host]\nanswers=no\n");
  const auto facts = findSystem(lab_.network(), "wks01");
  ASSERT_TRUE(facts.has_value());
  EXPECT_EQ(facts->resolvedName, "WKS01");
  EXPECT_EQ(facts->systemType, 16);
  EXPECT_EQ(facts->osMajor, 6);
  EXPECT_EQ(facts->description, "File server");
  EXPECT_EQ(facts->address, "10.1.1.11");
  EXPECT_EQ(findSystem(lab_.network(), "DEAD"), std::nullopt);
  EXPECT_EQ(findSystem(lab_.network(), "NOBODY"), std::nullopt);
}

TEST_F(Lab, TellsTheProgramFilesFolderThroughTheRegistry) {
  lab_.addHost("WKS01", "[host]\nprogram_files=D:\\Programme\n");
  lab_.addHost("DEAD", "[host]\nanswers=no\n");
  lab_.addHost("SHUT", "[refuse]\nremote_registry=yes\n");
  EXPECT_EQ(programFilesFolder(lab_.network(), "WKS01"), "D:\\Programme");
  EXPECT_EQ(programFilesFolder(lab_.network(), "DEAD"), std::nullopt);
  EXPECT_EQ(programFilesFolder(lab_.network(), "SHUT"), std::nullopt);
  EXPECT_EQ(programFilesFolder(lab_.network(), "NOBODY"), std::nullopt);
}

}  // namespace
}  // namespace varnhold::companion::test
