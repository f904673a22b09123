#include "tests/store/inventory_contract.h"
#include "tests/store/server_contract.h"

namespace varnhold::store {

const EngineUnderTest kEngineUnderTest{Engine::MariaDb, VARNHOLD_STORE_LETTERS};
const ServerUnderTest kServerUnderTest{"SELECT CONNECTION_ID() AS Session_Number", "KILL {number}"};

}  // namespace varnhold::store
