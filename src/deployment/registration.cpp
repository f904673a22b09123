#include "deployment/registration.h"

#include "platform/closed_libraries.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

namespace varnhold::deployment {
namespace {

constexpr std::int32_t kRegistered = 1;
constexpr std::int32_t kNotResponding = -1;

/// The set is closed before the answer is used: the library writes over a connection of its own.
bool hasSystemRow(core::Program& program, const std::string& systemName) {
  store::Recordset systems;
  systems.Open(std::string(store::mdDataBase::kSystemTable), program.gConn, store::CursorType::ForwardOnly,
               store::LockType::ReadOnly);
  systems.setFilter(store::statements::fill(store::statements::kSystemNameFilter, {{"name", systemName}}));
  return !systems.Bof() && !systems.Eof();
}

}  // namespace

std::int32_t EnsureSystemRegistered(core::Program& program, const std::string& systemName) {
  if (hasSystemRow(program, systemName)) return kRegistered;
  platform::SystemDetails details;
  details.SystemName = systemName;
  auto& libraries = program.host.libraries;
  if (!libraries.qrvFindSystemAndReturnDetails(details)) return kNotResponding;
  if (!libraries.qrvUpdateSystemDetailsInDB(details)) return kNotResponding;
  return hasSystemRow(program, systemName) ? kRegistered : kNotResponding;
}

}  // namespace varnhold::deployment
