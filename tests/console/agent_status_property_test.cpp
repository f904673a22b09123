// The status of random inventories against the rules written down a second time, naively: every agent row
// against every list row.
#include <gmock/gmock.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/console/status_fixture.h"

namespace varnhold::console {
namespace {

/// A name in several spellings of which none differs but by case.
const std::vector<std::vector<std::string>> kNames = {{"ATLAS", "atlas", "Atlas"},
                                                      {"ATLAS1", "atlas1"},
                                                      {"B\xC3\x9CRO", "b\xC3\xBCro"},
                                                      {"ZEUS"},
                                                      {"LOG-7", "log-7"}};
const std::vector<std::string> kTypes = {"Windows XP",    "Windows 2000 - Server", "Windows 98",
                                         "SysLog System", "SysLog System",         "..."};

struct Computer {
  std::size_t name;
  std::string spelling, type, status, port;
};
struct Agent {
  std::size_t name;
  std::string spelling;
  int module;
  std::optional<int> agentless, port, systemType;
};

void applyNaively(const Agent& agent, Computer& computer, bool hasSystemType) {
  const bool isAgentless = agent.agentless == 1, isEmpty = computer.status.empty(),
             isSysLog = computer.type == "SysLog System";
  const auto showPort = [&] {
    if (agent.port) computer.port = std::to_string(*agent.port);
  };
  if (agent.module == 2) {
    computer.status = isEmpty ? "Tracking Changes" : "Tracking Changes & Events";
    return;
  }
  if (!hasSystemType) {
    if (agent.module == 1 && !isAgentless) {
      computer.status = isEmpty ? "Managed - Standard Mode" : "Tracking Changes & Events";
    }
    return;
  }
  if (agent.module == 1 && agent.systemType == 0 && !isSysLog && !isAgentless) {
    computer.status = isEmpty ? "Managed - Standard Mode" : "Tracking Changes & Events";
    showPort();
    return;
  }
  std::string status;
  if (agent.module == 1 && isAgentless) {
    status = "Managed - Agentless Mode";
  } else if (agent.module == 1 && agent.systemType == 1 && !isSysLog && !isAgentless) {
    status = "Managed - High Performance Mode";
  } else if (isSysLog && !isAgentless) {
    status = "Managed";
  }
  if (status.empty() || !isEmpty) return;
  computer.status = status;
  showPort();
}

class RandomInventory : public StatusTest {
 protected:
  std::size_t below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  }
  template <class T>
  const T& oneOf(const std::vector<T>& all) {
    return all[below(all.size())];
  }
  std::optional<int> number(const std::vector<std::optional<int>>& all) { return oneOf(all); }

  void invent(bool hasSystemType) {
    computers.clear();
    agents.clear();
    for (auto left = below(7); left > 0; --left) {
      const auto name = below(kNames.size());
      computers.push_back({name, oneOf(kNames[name]), oneOf(kTypes), "", ""});
    }
    for (auto left = below(9); left > 0; --left) {
      const auto name = below(kNames.size());
      agents.push_back({name, oneOf(kNames[name]), oneOf(std::vector<int>{1, 1, 1, 2, 2, 5, 7}),
                        number({0, 0, 1, 2, std::nullopt}), number({514, 32001, std::nullopt}),
                        hasSystemType ? number({0, 0, 1, 2, std::nullopt}) : std::nullopt});
    }
  }

  void store(bool hasSystemType) {
    begin();
    for (const auto& computer : computers) add(computer.spelling, computer.type);
    const auto text = [](std::optional<int> value) { return value ? std::to_string(*value) : "NULL"; };
    for (const auto& row : agents) {
      const auto values = std::to_string(row.module) + "," + text(row.agentless) + "," + text(row.port);
      if (hasSystemType) {
        agent(row.spelling, values + "," + text(row.systemType));
      } else {
        agentWithoutType(row.spelling, values);
      }
    }
  }

  std::vector<std::string> expected(bool hasSystemType) {
    for (const auto& row : agents) {
      for (auto& computer : computers) {
        if (computer.name == row.name) applyNaively(row, computer, hasSystemType);
      }
    }
    std::vector<std::string> lines;
    for (auto& computer : computers) {
      if (computer.type == "Windows 98") computer.status = "Not Applicable";
      if (computer.status.empty()) computer.status = "Unmanaged";
      lines.push_back(computer.spelling + "|" + computer.status + "|" + computer.port);
    }
    return lines;
  }

  void compareMany(bool hasSystemType) {
    for (int round = 0; round < 400; ++round) {
      invent(hasSystemType);
      store(hasSystemType);
      ASSERT_TRUE(load());
      ASSERT_EQ(rows(), expected(hasSystemType)) << "round " << round << ", " << agents.size() << " agents";
    }
  }

  std::mt19937 random{20260131};
  std::vector<Computer> computers;
  std::vector<Agent> agents;
};

TEST_F(RandomInventory, HasTheStatusOfTheRulesInAnyRowOrder) {
  compareMany(true);
}

TEST_F(RandomInventory, HasTheStatusOfTheRulesWithoutTheColumnSystemType) {
  withoutColumn("SystemType");
  compareMany(false);
}

}  // namespace
}  // namespace varnhold::console
