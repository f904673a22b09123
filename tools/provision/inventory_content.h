#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Made-up computers, agents and groups for work at scale: the same number gives the same content, on every
/// engine.
namespace varnhold::provision {

struct SystemRow {
  std::string name;  ///< PC000001, PC000002, ...
  int type = 0;      ///< System_Type
  std::string address, description;
};

struct AgentRow {
  std::string system;
  int moduleId = 1;
  std::string directory;
  std::optional<int> agentless, port;
  std::optional<int> systemType;  ///< agent mode: 0 standard, 1 high performance
};

struct GroupRow {
  std::string name, description;
  int osType = 0;  ///< class of the rule: 2, 4, 5, or 0 for none
  std::string subnet, domain;
};

inline constexpr int kComputersPerGroup = 100;
inline constexpr int kMostGroups = 1000;

/// The computer of a number, from 1.
[[nodiscard]] SystemRow systemRow(int number);
/// The agents on it: none, one or two.
[[nodiscard]] std::vector<AgentRow> agentRows(int number);

/// How many groups go with that many computers: one for each hundred begun, at most kMostGroups.
[[nodiscard]] int groupCount(int computers);
/// The group of a number, from 1: in turn one by subnet, by domain, by class of system, and one picked by
/// hand.
[[nodiscard]] GroupRow groupRow(int number);
/// The group whose rule or hand takes the computer, or nothing.
[[nodiscard]] std::optional<std::string> groupOf(int number, int groups);

}  // namespace varnhold::provision
