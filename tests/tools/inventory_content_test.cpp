#include "tools/provision/inventory_content.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <tuple>

namespace varnhold::provision {
namespace {

TEST(InventoryContent, NamesCountUpWithSixDigits) {
  EXPECT_EQ(systemRow(1).name, "PC000001");
  EXPECT_EQ(systemRow(999'999).name, "PC999999");
  EXPECT_EQ(agentRows(123'456).at(0).system, "PC123456");
}

TEST(InventoryContent, AHundredComputersShareASubnetAndSomeHaveNoAddress) {
  EXPECT_EQ(systemRow(1).address, "10.100.0.1");
  EXPECT_EQ(systemRow(99).address, "10.100.0.99");
  EXPECT_EQ(systemRow(101).address, "10.100.1.1");
  EXPECT_EQ(systemRow(50).address, "");
  EXPECT_EQ(systemRow(999'999).address, "10.139.249.99");
}

TEST(InventoryContent, SystemTypesAreMixed) {
  std::map<int, int> types;
  for (int number = 1; number <= 1000; ++number) ++types[systemRow(number).type];
  for (const int type : {2, 4, 5, 6, 7, 8, 9, 10, 12, 14, 15, 16, 101, 301})
    EXPECT_GE(types[type], 62) << type;
}

TEST(InventoryContent, AgentsAreOfEveryKindAndModeAndSomeColumnsAreNull) {
  std::set<int> modules;
  std::set<std::optional<int>> agentless, modes, ports;
  std::set<std::size_t> agentsPerComputer;
  for (int number = 1; number <= 100; ++number) {
    const auto rows = agentRows(number);
    agentsPerComputer.insert(rows.size());
    for (const auto& row : rows) {
      modules.insert(row.moduleId);
      agentless.insert(row.agentless);
      modes.insert(row.systemType);
      ports.insert(row.port);
    }
  }
  EXPECT_EQ(modules, (std::set<int>{1, 2, 5}));
  EXPECT_EQ(agentless, (std::set<std::optional<int>>{std::nullopt, 0, 1}));
  EXPECT_EQ(modes, (std::set<std::optional<int>>{std::nullopt, 0, 1}));
  EXPECT_TRUE(ports.count(std::nullopt) == 1 && ports.size() > 2);
  EXPECT_EQ(agentsPerComputer, (std::set<std::size_t>{0, 1, 2}));
}

TEST(InventoryContent, AComputerHasOneRowPerAgentAtMost) {
  for (int number = 1; number <= 100; ++number) {
    std::set<int> modules;
    for (const auto& row : agentRows(number)) EXPECT_TRUE(modules.insert(row.moduleId).second) << number;
  }
}

TEST(InventoryContent, EachHundredBegunHasAGroupUpToAThousand) {
  EXPECT_EQ(groupCount(0), 0);
  EXPECT_EQ(groupCount(1), 1);
  EXPECT_EQ(groupCount(100), 1);
  EXPECT_EQ(groupCount(101), 2);
  EXPECT_EQ(groupCount(100'000), 1000);
  EXPECT_EQ(groupCount(999'999), 1000);
}

TEST(InventoryContent, GroupsAreInTurnBySubnetByDomainByClassAndByHand) {
  const auto rule = [](int number) {
    const auto group = groupRow(number);
    return std::tuple(group.name, group.osType, group.subnet, group.domain);
  };
  using Rule = std::tuple<std::string, int, std::string, std::string>;
  EXPECT_EQ(rule(1), Rule("Subnet 0001", 0, "10.100.0.0", ""));
  EXPECT_EQ(rule(2), Rule("DOMAIN0002", 0, "", "DOMAIN0002"));
  EXPECT_EQ(rule(3), Rule("Servers 0003", 5, "", ""));
  EXPECT_EQ(rule(4), Rule("Picked 0004", 0, "", ""));
  EXPECT_EQ(rule(7), Rule("Workstations 0007", 4, "", ""));
  EXPECT_EQ(rule(11), Rule("Windows 9x 0011", 2, "", ""));
}

TEST(InventoryContent, MembersFitTheRuleOfTheirGroup) {
  EXPECT_EQ(groupOf(1, 10), "Subnet 0001");
  EXPECT_EQ(groupOf(50, 10), std::nullopt) << "has no address";
  EXPECT_EQ(groupOf(150, 10), "DOMAIN0002");
  EXPECT_EQ(groupOf(301, 10), "Picked 0004");
  EXPECT_EQ(groupOf(1001, 10), std::nullopt) << "behind the last group";
  const std::set<int> servers = {5, 7, 8, 9, 14, 16};
  for (int number = 201; number <= 300; ++number)
    EXPECT_EQ(groupOf(number, 10).has_value(), servers.count(systemRow(number).type) == 1) << number;
}

}  // namespace
}  // namespace varnhold::provision
