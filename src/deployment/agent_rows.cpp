#include "deployment/agent_rows.h"

#include "base/runtime_error.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

namespace varnhold::deployment {

bool IsAgentlessSystem(core::Program& program, const std::string& systemName) {
  try {
    store::Recordset agents;
    agents.Open(std::string(store::mdDataBase::kModuleTable), program.gConn, store::CursorType::ForwardOnly,
                store::LockType::ReadOnly);
    agents.setFilter(
        store::statements::fill(store::statements::kAgentFilter, {{"name", systemName}, {"module", 1}}));
    if (agents.Bof() || agents.Eof()) return false;
    const auto agentless = agents.Fields("AgentLess").value();
    return !agentless.isNull() && agentless.asBoolean();
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace varnhold::deployment
