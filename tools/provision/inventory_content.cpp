#include "tools/provision/inventory_content.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace varnhold::provision {
namespace {

/// The types of computers, in turn; 301 is no Windows system, 12 has no name.
constexpr std::array<int, 16> kTypes{6, 7, 10, 14, 15, 16, 5, 4, 8, 10, 14, 2, 101, 301, 9, 12};

constexpr std::string_view kAgentFolder = R"(C:\Program Files\Kelmont Works\Varnhold)";
constexpr std::string_view kChangesFolder = R"(C:\Program Files\Kelmont Works\TKWindows)";

struct AgentModel {
  int moduleId;
  std::optional<int> agentless, port, systemType;
};

/// The agents of computers, in turn: what `Agentless`, `Port` and `SystemType` can be, NULL included.
struct AgentMixture {
  int agents;
  std::array<AgentModel, 2> models;
};
constexpr std::array<AgentMixture, 10> kAgents{{
    {1, {{{1, 0, 14505, 0}, {}}}},
    {1, {{{1, 0, std::nullopt, 0}, {}}}},
    {1, {{{1, 1, std::nullopt, 0}, {}}}},
    {1, {{{1, 0, 14506, 1}, {}}}},
    {1, {{{2, std::nullopt, std::nullopt, std::nullopt}, {}}}},
    {2, {{{1, 0, 14505, 0}, {2, std::nullopt, std::nullopt, std::nullopt}}}},
    {1, {{{5, 0, 14506, 1}, {}}}},
    {0, {}},
    {1, {{{1, std::nullopt, 14505, std::nullopt}, {}}}},
    {1, {{{1, 0, 14505, 0}, {}}}},
}};

/// Classes of a rule by system, in turn, and the types that each takes.
struct SystemClass {
  int osType;
  std::string_view name;
  std::array<int, 6> types;
};
constexpr std::array<SystemClass, 3> kClasses{{
    {5, "Servers", {5, 7, 8, 9, 14, 16}},
    {4, "Workstations", {4, 6, 10, 11, 15, 15}},
    {2, "Windows 9x", {2, 3, 13, 13, 13, 13}},
}};

enum class GroupKind { Subnet, Domain, SystemClass, ByHand };

GroupKind kindOf(int group) {
  return static_cast<GroupKind>((group - 1) % 4);
}
const SystemClass& classOf(int group) {
  return kClasses[static_cast<std::size_t>((group - 1) / 4) % kClasses.size()];
}

std::string padded(int number, std::size_t digits) {
  auto text = std::to_string(number);
  return std::string(digits > text.size() ? digits - text.size() : 0, '0') + text;
}

/// A hundred computers share a subnet: 10.100.0.x, 10.100.1.x, and so on.
std::string subnetOf(int block) {
  return "10." + std::to_string(100 + block / 250) + "." + std::to_string(block % 250);
}

template <typename Container>
auto& inTurn(const Container& all, int number) {
  return all[static_cast<std::size_t>(number - 1) % all.size()];
}

}  // namespace

SystemRow systemRow(int number) {
  const int block = (number - 1) / kComputersPerGroup;
  const int host = (number - 1) % kComputersPerGroup + 1;
  SystemRow row{"PC" + padded(number, 6), inTurn(kTypes, number), {}, {}};
  if (number % 50 != 0) row.address = subnetOf(block) + "." + std::to_string(host);
  if (number % 3 != 0) row.description = "Room " + std::to_string(100 + number % 400);
  return row;
}

std::vector<AgentRow> agentRows(int number) {
  std::vector<AgentRow> rows;
  const auto& mixture = inTurn(kAgents, number);
  for (int i = 0; i < mixture.agents; ++i) {
    const auto& model = mixture.models[static_cast<std::size_t>(i)];
    const auto folder = model.moduleId == 2 ? kChangesFolder : kAgentFolder;
    rows.push_back({"PC" + padded(number, 6), model.moduleId, std::string(folder), model.agentless,
                    model.port, model.systemType});
  }
  return rows;
}

int groupCount(int computers) {
  return std::min((computers + kComputersPerGroup - 1) / kComputersPerGroup, kMostGroups);
}

GroupRow groupRow(int number) {
  const auto digits = padded(number, 4);
  switch (kindOf(number)) {
    case GroupKind::Subnet:
      return {"Subnet " + digits, "Computers of one subnet", 0, subnetOf(number - 1) + ".0", {}};
    case GroupKind::Domain:
      return {"DOMAIN" + digits, "Computers of one domain", 0, {}, "DOMAIN" + digits};
    case GroupKind::SystemClass: {
      const auto& systems = classOf(number);
      return {std::string(systems.name) + " " + digits,
              "Computers of one class of systems",
              systems.osType,
              {},
              {}};
    }
    case GroupKind::ByHand:
      return {"Picked " + digits, "Computers picked by hand", 0, {}, {}};
  }
  return {};
}

std::optional<std::string> groupOf(int number, int groups) {
  const int group = (number - 1) / kComputersPerGroup + 1;
  if (group > groups) return std::nullopt;
  const auto system = systemRow(number);
  if (kindOf(group) == GroupKind::Subnet && system.address.empty()) return std::nullopt;
  if (kindOf(group) == GroupKind::ByHand && number % 3 == 0) return std::nullopt;
  if (kindOf(group) == GroupKind::SystemClass) {
    const auto& types = classOf(group).types;
    if (std::find(types.begin(), types.end(), system.type) == types.end()) return std::nullopt;
  }
  return groupRow(group).name;
}

}  // namespace varnhold::provision
