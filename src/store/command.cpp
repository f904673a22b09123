#include "store/command.h"

#include "base/runtime_error.h"
#include "store/session.h"

namespace varnhold::store {

void Command::Execute() {
  if (!ActiveConnection) throw RuntimeError(kObjectClosed, "The command has no connection to the inventory.");
  ActiveConnection->session().execute(CommandText);
}

}  // namespace varnhold::store
