#include "console/agent_status.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "base/runtime_error.h"
#include "console/name_index.h"
#include "store/recordset.h"
#include "store/table_names.h"

namespace varnhold::console {
namespace {

constexpr int kNoError = 0;
constexpr std::string_view kSysLog = "SysLog System";

/// What a condition comes to. One over a column that isn't there fails.
enum class Truth { No, Yes, Fails };

Truth truthOf(bool condition) {
  return condition ? Truth::Yes : Truth::No;
}

/// Every part is looked at, whatever the others say: one that fails makes the whole fail.
Truth all(std::initializer_list<Truth> parts) {
  auto whole = Truth::Yes;
  for (const auto part : parts) {
    if (part == Truth::Fails) return Truth::Fails;
    if (part == Truth::No) whole = Truth::No;
  }
  return whole;
}

/// A column of `Module_Table`, or nothing where the table has none of that name.
using Column = std::optional<store::Recordset::Field>;

Column columnIfThere(store::Recordset& rows, std::string_view name) {
  try {
    return rows.Fields(name);
  } catch (const RuntimeError& error) {
    if (error.number() != kItemNotFound) throw;
    return std::nullopt;
  }
}

/// NULL equals nothing, and that is no error.
Truth equals(const Column& column, std::int64_t number) {
  if (!column) return Truth::Fails;
  const auto& value = column->value();
  return truthOf(!value.isNull() && value.asInteger() == number);
}

/// The rules, applied to one row of `Module_Table` after the other; a later row sees what an earlier one
/// wrote.
///
/// Two errors are tolerated, a column that isn't there (3265) and NULL where a value is needed (94): the
/// number is remembered and the next statement runs. A condition that fails so counts as true.
class StatusRules {
 public:
  explicit StatusRules(store::Recordset& rows)
      : systemName_(columnIfThere(rows, "System_Name")),
        moduleId_(columnIfThere(rows, "Module_ID")),
        systemType_(columnIfThere(rows, "SystemType")),
        agentless_(columnIfThere(rows, "Agentless")),
        port_(columnIfThere(rows, "Port")) {}

  /// Reads whose agent the current row is.
  void readRow() {
    isAgentless_ = holds(equals(agentless_, 1));
    if (const auto* name = valueOf(systemName_)) name_ = name->asText();
  }
  [[nodiscard]] const std::string& name() const { return name_; }

  /// Applies the first rule that fits the current row to a row of the list.
  void apply(ui::ListItem& item) {
    const bool isEmpty = item.SubItems(kStatusColumn).get().empty();
    const bool isSysLog = item.SubItems(kTypeColumn) == kSysLog;
    const auto isOrdinary = truthOf(!isSysLog && !isAgentless_);
    if (holds(equals(moduleId_, 2))) {
      setStatus(item, isEmpty ? "Tracking Changes" : "Tracking Changes & Events");
    } else if (holds(all({equals(moduleId_, 1), equals(systemType_, 0), isOrdinary}))) {
      standardMode(item, isEmpty);
    } else if (holds(all({equals(moduleId_, 1), truthOf(isAgentless_)}))) {
      if (isEmpty) setStatusAndPort(item, "Managed - Agentless Mode");
    } else if (holds(all({equals(moduleId_, 1), equals(systemType_, 1), isOrdinary}))) {
      highPerformanceMode(item, isEmpty);
    } else if (isSysLog && !isAgentless_) {
      if (isEmpty) setStatusAndPort(item, "Managed");
    }
  }

 private:
  /// Whether a branch is entered.
  bool holds(Truth condition) {
    if (condition == Truth::Fails) lastError_ = kItemNotFound;
    return condition != Truth::No;
  }

  /// A value that must be there; nothing where using it is a tolerated error.
  const store::Value* valueOf(const Column& column) {
    if (!column) {
      lastError_ = kItemNotFound;
      return nullptr;
    }
    const auto& value = column->value();
    if (!value.isNull()) return &value;
    lastError_ = kInvalidUseOfNull;
    return nullptr;
  }

  void standardMode(ui::ListItem& item, bool isEmpty) {
    const char* status = isEmpty ? "Managed - Standard Mode" : "Tracking Changes & Events";
    if (lastError_ == kItemNotFound) {
      olderSchema([&] { setStatus(item, status); });
    } else {
      setStatusAndPort(item, status);
    }
  }

  void highPerformanceMode(ui::ListItem& item, bool isEmpty) {
    if (lastError_ == kItemNotFound) {
      olderSchema([&] {
        if (isEmpty) setStatus(item, "Managed - Standard Mode");
      });
    } else if (isEmpty) {
      setStatusAndPort(item, "Managed - High Performance Mode");
    }
  }

  /// The branches of the two agent modes in a database without `SystemType`: every real agent counts as one
  /// in standard mode, and no port is shown. The error stays remembered while a row is none of those.
  template <class Deed>
  void olderSchema(Deed deed) {
    if (!holds(all({equals(moduleId_, 1), truthOf(!isAgentless_)}))) return;
    deed();
    lastError_ = kNoError;
  }

  static void setStatus(ui::ListItem& item, const char* status) { item.SubItems(kStatusColumn) = status; }

  void setStatusAndPort(ui::ListItem& item, const char* status) {
    setStatus(item, status);
    if (const auto* port = valueOf(port_)) item.SubItems(kPortColumn) = port->asText();
  }

  Column systemName_, moduleId_, systemType_, agentless_, port_;
  std::string name_;  // a row without a name counts for the computer of the row before it
  bool isAgentless_ = false;
  int lastError_ = kNoError;
};

void applyAgents(store::Connection& connection, const NameIndex& computers) {
  store::Recordset rows;
  rows.Open(std::string(store::mdDataBase::kModuleTable), connection, store::CursorType::Static,
            store::LockType::ReadOnly);
  if (rows.Eof() || rows.Bof()) return;
  StatusRules rules(rows);
  for (; !rows.Eof(); rows.MoveNext()) {
    rules.readRow();
    computers.forEach(rules.name(), [&](ui::ListItem& item) { rules.apply(item); });
  }
}

/// No agent is possible on these, whatever the inventory says.
bool takesNoAgent(const std::string& type) {
  return type == "Windows 95" || type == "Windows 98" || type == "Windows Me";
}

void nameTheRest(ui::ListView& list, int startIndex) {
  const int count = list.ListItems.Count();
  for (int i = startIndex; i <= count; ++i) {
    auto& item = list.ListItems(i);
    if (takesNoAgent(item.SubItems(kTypeColumn))) item.SubItems(kStatusColumn) = "Not Applicable";
    if (item.SubItems(kStatusColumn).get().empty()) item.SubItems(kStatusColumn) = "Unmanaged";
  }
}

}  // namespace

bool LoadAgentStatus(store::Connection& connection, ui::ListView& list, int startIndex, platform::Ui& ui) {
  try {
    const ui::ListView::BulkUpdate quiet(list);
    applyAgents(connection, NameIndex(list, startIndex));
    nameTheRest(list, startIndex);
    return true;
  } catch (const RuntimeError& error) {
    ui.messageBox(error.description(), platform::MessageIcon::Critical);
    return false;
  }
}

}  // namespace varnhold::console
