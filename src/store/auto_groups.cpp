#include "store/auto_groups.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/runtime_error.h"
#include "store/bulk_insert.h"
#include "store/command.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

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
  const Value value = rows.Fields(column).value();
  return value.isNull() ? std::string() : value.asText();
}

std::int64_t numberOf(Recordset& rows, std::string_view column) {
  const Value value = rows.Fields(column).value();
  return value.isNull() ? 0 : value.asInteger();
}

/// The whole run. Every statement is a step of its own: a failing one is passed over.
class Refresh {
 public:
  Refresh(Connection& connection, const BelongsToSubnet& belongsToSubnet)
      : connection_(connection), belongsToSubnet_(belongsToSubnet) {
    command_.ActiveConnection = &connection;
  }

  void run() {
    open(members_, std::string(mdDataBase::kSystemGroup));
    forEachRow(std::string(statements::kRefreshedGroups),
               [&](Recordset& groups) { fillGroup(textOf(groups, "Group_Name")); });
  }

 private:
  void open(Recordset& rows, const std::string& source) {
    resumeNext_.step([&] { rows.Open(source, connection_, CursorType::Static, LockType::ReadOnly); });
  }

  /// A row whose reading fails is passed over; so is a set that can't be opened.
  template <class Action>
  void forEachRow(const std::string& source, Action action) {
    Recordset rows;
    open(rows, source);
    bool more = false;
    const auto look = [&] { more = !rows.Bof() && !rows.Eof(); };
    for (resumeNext_.step(look); more;) {
      resumeNext_.step([&] { action(rows); });
      more = false;
      if (resumeNext_.step([&] { rows.MoveNext(); })) resumeNext_.step(look);
    }
  }

  void fillGroup(const std::string& group) {
    bool found = false;
    std::int64_t osType = 0;
    std::string subnet;
    Recordset rule;
    open(rule, statements::fill(statements::kGroupRule, {{"group", group}}));
    resumeNext_.step([&] { found = !rule.Bof() && !rule.Eof(); });
    if (!found) return;
    resumeNext_.step([&] { osType = numberOf(rule, "OS_Type"); });
    resumeNext_.step([&] { subnet = textOf(rule, "IP_Subnet"); });
    known_.reset();
    if (osType != 0) fillByClass(group, osType);
    if (!subnet.empty()) fillBySubnet(group, subnet);
  }

  void fillByClass(const std::string& group, std::int64_t osType) {
    Names missing;
    forEachRow(std::string(classStatement(osType)),
               [&](Recordset& systems) { noteIfMissing(group, textOf(systems, "System_Name"), missing); });
    add(group, missing);
  }

  void fillBySubnet(const std::string& group, const std::string& subnet) {
    Names missing;
    forEachRow(std::string(statements::kSubnetCandidates), [&](Recordset& systems) {
      if (belongsToSubnet_(textOf(systems, "IP_Address"), subnet))
        noteIfMissing(group, textOf(systems, "System_Name"), missing);
    });
    add(group, missing);
  }

  void noteIfMissing(const std::string& group, std::string name, Names& missing) {
    if (!known_) known_ = readMembers(group);
    if (!known_->contains(name)) missing.push_back(std::move(name));
  }

  /// One look at the members of the group, in place of a filter for each computer. A computer that both rules
  /// of a group take is noted twice: the database's key refuses the second row.
  std::unordered_set<std::string> readMembers(const std::string& group) {
    std::unordered_set<std::string> names;
    resumeNext_.step([&] {
      members_.setFilter(statements::fill(statements::kGroupNameFilter, {{"group", group}}));
      for (; !members_.Eof(); members_.MoveNext()) names.insert(textOf(members_, "System_Name"));
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
  Recordset members_;
  std::optional<std::unordered_set<std::string>> known_;  ///< the members of the group that is being filled
};

}  // namespace

bool RefreshAutoGroups(Connection& connection, const BelongsToSubnet& belongsToSubnet) {
  Refresh(connection, belongsToSubnet).run();
  return true;
}

}  // namespace varnhold::store
