#include "store/auto_groups.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "store/bulk_insert.h"
#include "store/command.h"
#include "store/recordset.h"
#include "store/statements.h"

namespace varnhold::store {
namespace {

using Names = std::vector<std::string>;

/// Which computers a rule by class takes; any other number but 0 means servers.
struct ClassRule {
  std::int64_t osType;
  std::string_view statement;
};
constexpr std::array<ClassRule, 2> kClassRules{{
    {2, statements::kOldWindowsComputers},
    {4, statements::kWorkstations},
}};

std::string_view classStatement(std::int64_t osType) {
  for (const ClassRule& rule : kClassRules)
    if (rule.osType == osType) return rule.statement;
  return statements::kServers;
}

std::string textOf(Recordset& rows, std::string_view column) {
  const Value& value = rows.Fields(column).value();
  return value.isNull() ? std::string() : value.asText();
}

std::int64_t numberOf(Recordset& rows, std::string_view column) {
  const Value& value = rows.Fields(column).value();
  return value.isNull() ? 0 : value.asInteger();
}

struct System {
  std::string name, address;
};
using Systems = std::vector<System>;

/// The whole run. Every statement is a step of its own: a failing one is passed over.
class Refresh {
 public:
  Refresh(Connection& connection, const BelongsToSubnet& belongsToSubnet)
      : connection_(connection), belongsToSubnet_(belongsToSubnet) {
    command_.ActiveConnection = &connection;
  }

  void run() {
    forEachRow(std::string(statements::kRefreshedGroups),
               [&](Recordset& groups) { fillGroup(textOf(groups, "Group_Name")); });
  }

 private:
  /// A row whose reading fails is passed over. False for a set that can't be opened.
  template <class Action>
  bool forEachRow(const std::string& source, Action action) {
    Recordset rows;
    bool more = false;
    const auto look = [&] { more = !rows.Bof() && !rows.Eof(); };
    const bool opened = resumeNext_.step([&] {
      rows.Open(source, connection_, CursorType::Static, LockType::ReadOnly);
      look();
    });
    while (more) {
      resumeNext_.step([&] { action(rows); });
      more = false;
      if (resumeNext_.step([&] { rows.MoveNext(); })) resumeNext_.step(look);
    }
    return opened;
  }

  void fillGroup(const std::string& group) {
    bool found = false;
    std::int64_t osType = 0;
    std::string subnet;
    forEachRow(statements::fill(statements::kGroupRule, {{"group", group}}), [&](Recordset& rule) {
      // Each group has one rule.
      if (std::exchange(found, true)) return;
      resumeNext_.step([&] { osType = numberOf(rule, "OS_Type"); });
      subnet = textOf(rule, "IP_Subnet");
    });
    known_.reset();
    if (osType != 0) fillByClass(group, osType);
    if (!subnet.empty()) fillBySubnet(group, subnet);
  }

  void fillByClass(const std::string& group, std::int64_t osType) {
    Names missing;
    for (const System& system : systemsOf(classStatement(osType))) noteIfMissing(group, system.name, missing);
    add(group, missing);
  }

  void fillBySubnet(const std::string& group, const std::string& subnet) {
    Names missing;
    for (const System& system : systemsOf(statements::kSubnetCandidates)) {
      bool belongs = false;
      resumeNext_.step([&] { belongs = belongsToSubnet_(system.address, subnet); });
      if (belongs) noteIfMissing(group, system.name, missing);
    }
    add(group, missing);
  }

  /// The computers that a rule chooses from, asked for once in a run: the groups share a few such sets.
  const Systems& systemsOf(std::string_view statement) {
    const auto [place, isNew] = systems_.try_emplace(statement);
    if (!isNew) return place->second;
    const bool opened = forEachRow(std::string(statement), [&, &systems = place->second](Recordset& rows) {
      systems.push_back({textOf(rows, "System_Name"), textOf(rows, "IP_Address")});
    });
    if (opened) return place->second;
    systems_.erase(place);
    return kNoSystems;
  }

  void noteIfMissing(const std::string& group, const std::string& name, Names& missing) {
    if (!known_) known_ = readMembers(group);
    if (!known_->contains(name)) missing.push_back(name);
  }

  /// One look at the members of the group, in place of a filter for each computer. A computer that both rules
  /// of a group take is noted twice: the database's key refuses the second row.
  std::unordered_set<std::string> readMembers(const std::string& group) {
    std::unordered_set<std::string> names;
    resumeNext_.step([&] {
      Recordset members;
      members.Open(statements::fill(statements::kNamesInGroup, {{"group", group}}), connection_,
                   CursorType::Static, LockType::ReadOnly);
      for (; !members.Eof(); members.MoveNext()) names.insert(textOf(members, "System_Name"));
    });
    return names;
  }

  void insert(const std::string& group, const std::string& name) {
    command_.CommandText = statements::fill(statements::kAddGroupMember, {{"name", name}, {"group", group}});
    command_.Execute();
  }

  /// Many rows go in together, since a database may take long over each commit.
  void add(const std::string& group, const Names& names) {
    constexpr std::size_t kTogether = 1'000;
    for (std::size_t begin = 0; begin < names.size(); begin += kTogether) {
      const std::span some(names.data() + begin, std::min(kTogether, names.size() - begin));
      if (some.size() == 1 || !addTogether(group, some)) addOneByOne(group, some);
    }
  }

  /// All or none: engines differ in what is left of a transaction once a statement of it has failed.
  bool addTogether(const std::string& group, std::span<const std::string> names) {
    return resumeNext_.step([&] {
      Transaction together(connection_);
      for (const std::string& name : names) insert(group, name);
      together.commit();
    });
  }

  void addOneByOne(const std::string& group, std::span<const std::string> names) {
    for (const std::string& name : names) resumeNext_.step([&] { insert(group, name); });
  }

  Connection& connection_;
  const BelongsToSubnet& belongsToSubnet_;
  const ResumeNext resumeNext_;
  Command command_;
  static inline const Systems kNoSystems;
  std::map<std::string_view, Systems> systems_;           ///< by the statement that asked for them
  std::optional<std::unordered_set<std::string>> known_;  ///< the members of the group that is being filled
};

}  // namespace

bool RefreshAutoGroups(Connection& connection, const BelongsToSubnet& belongsToSubnet) {
  Refresh(connection, belongsToSubnet).run();
  return true;
}

}  // namespace varnhold::store
