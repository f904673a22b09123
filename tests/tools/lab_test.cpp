#include "tools/provision/lab.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace varnhold::provision {
namespace {

std::map<LabRole, int> rolesOf(const std::vector<LabComputer>& computers) {
  std::map<LabRole, int> counts;
  for (const auto& computer : computers) ++counts[computer.model.role];
  return counts;
}

const LabComputer& first(const std::vector<LabComputer>& computers, LabRole role) {
  for (const auto& computer : computers)
    if (computer.model.role == role) return computer;
  return computers.at(computers.size());
}

TEST(Lab, MostOfTwelveDeployAndEachOtherRoleIsThereOnce) {
  const auto counts = rolesOf(labComputers(12, "MANAGER"));
  const std::map<LabRole, int> expected = {{LabRole::Deploys, 7},       {LabRole::DoesNotResolve, 1},
                                           {LabRole::DoesNotAnswer, 1}, {LabRole::RefusesService, 1},
                                           {LabRole::Warns, 1},         {LabRole::IsSlow, 1}};
  EXPECT_EQ(counts, expected);
}

TEST(Lab, ThoseThatDeployDifferInTypeVersionDomainAndProgramFiles) {
  std::set<int> types, versions;
  std::set<std::string_view> domains, folders;
  for (const auto& computer : labComputers(12, "MANAGER")) {
    if (computer.model.role != LabRole::Deploys) continue;
    types.insert(computer.model.systemType);
    versions.insert(computer.model.osMajor);
    domains.insert(computer.model.domain);
    folders.insert(computer.model.programFiles);
  }
  EXPECT_GE(types.size(), 5u);
  EXPECT_GE(versions.size(), 3u);
  EXPECT_GE(domains.size(), 2u);
  EXPECT_GE(folders.size(), 3u);
}

TEST(Lab, ALargerLabRepeatsTheMixtureUnderNamesAndAddressesOfItsOwn) {
  const auto computers = labComputers(30, "MANAGER");
  ASSERT_EQ(computers.size(), 30u);
  EXPECT_EQ(computers[0].name, "ATLAS");
  EXPECT_EQ(computers[12].name, "ATLAS-2");
  EXPECT_EQ(computers[24].name, "ATLAS-3");
  EXPECT_EQ(computers[18].model.role, LabRole::DoesNotResolve);
  EXPECT_EQ(rolesOf(computers).at(LabRole::Warns), 2);
}

TEST(Lab, NamesAndAddressesAreUniqueAndNamesFitAComputer) {
  std::set<std::string> names, addresses;
  for (const auto& computer : labComputers(10'000, "MANAGER")) {
    EXPECT_LE(computer.name.size(), 15u);
    names.insert(computer.name);
    addresses.insert(computer.address);
  }
  EXPECT_EQ(names.size(), 10'000u);
  EXPECT_EQ(addresses.size(), 10'000u);
}

TEST(Lab, ASmallerLabTakesTheBeginningAndNoneIsEmpty) {
  EXPECT_EQ(systemList(labComputers(3, "MANAGER")), "ATLAS\nBIRCH\nCEDAR\n");
  EXPECT_EQ(systemList(labComputers(0, "MANAGER")), "");
}

TEST(Lab, TheManagersOwnNameIsNotTakenTwice) {
  EXPECT_EQ(systemList(labComputers(3, "Birch")), "ATLAS\nBIRCH-0\nCEDAR\n");
}

TEST(Lab, HostIniSaysWhatTheComputerIs) {
  EXPECT_EQ(hostIni(labComputers(1, "MANAGER")[0]),
            "; ATLAS: takes an agent\n"
            "[host]\n"
            "address = 10.1.1.11\n"
            "type = 7\n"
            "os_major = 5\n"
            "domain = CORP\n"
            "program_files = C:\\Program Files\n");
}

TEST(Lab, HostIniSaysWhatTheRoleIs) {
  const auto computers = labComputers(12, "MANAGER");
  const auto roleText = [&](LabRole role) {
    const auto text = hostIni(first(computers, role));
    const std::string folder = "program_files = C:\\Program Files\n";
    return text.substr(text.find(folder) + folder.size());
  };
  EXPECT_EQ(hostIni(first(computers, LabRole::DoesNotResolve)).find("\naddress"), std::string::npos);
  EXPECT_EQ(roleText(LabRole::DoesNotAnswer), "answers = no\n");
  EXPECT_EQ(roleText(LabRole::RefusesService), "\n[refuse]\nservice = yes\n");
  EXPECT_EQ(roleText(LabRole::Warns), "\n[result]\ninstall = 232\n");
  EXPECT_EQ(roleText(LabRole::IsSlow), "\n[delay_ms]\ninstall = 1500\nuninstall = 1500\n");
}

TEST(Lab, KnowsAnAdministratorForEachDomainAndOneAccountForServices) {
  EXPECT_EQ(accountList(),
            "CORP:admin:corp\n"
            "SALES:admin:sales\n"
            "PLANT:admin:plant\n"
            "CORP:agent:agent\n");
}

TEST(Lab, EveryAccountThatAComputerDemandsIsKnownWithItsPassword) {
  for (const auto& computer : labComputers(12, "MANAGER")) {
    const auto& model = computer.model;
    EXPECT_NE(accountList().find(std::string(model.domain) + ":"), std::string::npos) << computer.name;
    if (model.account.empty()) continue;
    auto line = std::string(model.account) + ":" + std::string(model.password) + "\n";
    line.replace(line.find('\\'), 1, ":");
    EXPECT_NE(("\n" + accountList()).find("\n" + line), std::string::npos) << computer.name;
  }
}

TEST(Lab, OneOfTwelveDemandsAnAccount) {
  int demanding = 0;
  for (const auto& computer : labComputers(12, "MANAGER"))
    demanding += hostIni(computer).find("[account]") != std::string::npos ? 1 : 0;
  EXPECT_EQ(demanding, 1);
  EXPECT_EQ(hostIni(labComputers(12, "MANAGER").back()),
            "; LINDEN: takes an agent from whoever brings its account\n"
            "[host]\n"
            "address = 10.1.1.22\n"
            "type = 5\n"
            "os_major = 4\n"
            "domain = PLANT\n"
            "program_files = C:\\Apps\n"
            "\n[account]\n"
            "user = PLANT\\admin\n"
            "password = plant\n");
}

}  // namespace
}  // namespace varnhold::provision
