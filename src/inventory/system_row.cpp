#include "inventory/system_row.h"

#include "base/runtime_error.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

namespace varnhold::inventory {
namespace {

using store::CursorType;
using store::LockType;

void open(store::Recordset& rows, store::Connection& connection, const std::string& name, CursorType cursor,
          LockType lock) {
  rows.Open(std::string(store::mdDataBase::kSystemTable), connection, cursor, lock);
  rows.setFilter(store::statements::fill(store::statements::kSystemNameFilter, {{"name", name}}));
}

}  // namespace

std::string shownAddress(store::Connection& connection, const std::string& name) {
  store::Recordset rows;
  open(rows, connection, name, CursorType::Static, LockType::ReadOnly);
  if (rows.Bof() || rows.Eof()) return "-error retrieving data-";
  const store::Value address = rows.Fields("IP_Address").value();
  return address.isNull() || address.asText().empty() ? "-Not Resolved-" : address.asText();
}

bool changeSystem(store::Connection& connection, const std::string& name, std::string_view column,
                  const store::Value& value) {
  const ResumeNext resumeNext;
  store::Recordset rows;
  bool found = false;
  resumeNext.step([&] { open(rows, connection, name, CursorType::Keyset, LockType::Optimistic); });
  resumeNext.step([&] { found = !rows.Bof() && !rows.Eof(); });
  if (!found) return false;
  resumeNext.step([&] { rows.Fields(column).setValue(value); });
  resumeNext.step([&] { rows.Update(); });
  return true;
}

}  // namespace varnhold::inventory
