#include "store/foreign_key.h"

#include <string>

#include "base/text.h"
#include "store/command.h"
#include "store/recordset.h"
#include "store/statements.h"

namespace varnhold::store {

bool dropComputerForeignKey(Connection& connection, std::string_view driverName) {
  if (toUpper(TrimAtNull(driverName)).find("SQL SERVER") == std::string::npos) return false;
  Recordset keys;
  keys.Open(std::string(statements::kComputerForeignKey), connection, CursorType::Static, LockType::ReadOnly);
  if (keys.Eof()) return false;
  Command drop;
  drop.ActiveConnection = &connection;
  drop.CommandText =
      statements::fill(statements::kDropConstraint, {{"constraint", keys.Fields("name").value().asText()}});
  drop.Execute();
  return true;
}

}  // namespace varnhold::store
