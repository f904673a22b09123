#include "companion/enumeration.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

namespace varnhold::companion {
namespace {

constexpr std::int32_t kNoComputer = 99999;

/// A column's text; NULL is empty.
std::string textOf(store::Recordset& rows, std::string_view column) {
  const store::Value value = rows.Fields(column).value();
  return value.isNull() ? std::string{} : value.asText();
}

std::int32_t numberOf(store::Recordset& rows, std::string_view column) {
  const store::Value value = rows.Fields(column).value();
  return value.isNull() ? 0 : static_cast<std::int32_t>(value.asInteger());
}

void writeAddress(store::Connection& connection, const std::string& name, const std::string& address) {
  store::Recordset rows;
  rows.Open(std::string(store::mdDataBase::kSystemTable), connection, store::CursorType::Keyset,
            store::LockType::Optimistic);
  rows.setFilter(
      store::statements::fill(store::statements::kSystemNameFilter, {{"name", replaceAll(name, "'", "''")}}));
  if (rows.Eof()) return;
  rows.Fields("IP_Address").setValue(address);
  rows.Update();
}

void visit(const Network& network, const std::string& name, const KnownSystems& known,
           const WithInventory& withInventory) {
  const auto facts = findSystem(network, name);
  if (!facts) return;
  const SystemRow found{facts->resolvedName, facts->systemType, facts->address, facts->description};
  withInventory([&](store::Connection& connection) { enterFoundSystem(connection, known, found); });
}

void waitAt(const JobScript& script, const StoppableSleep& sleep, const host::MustStop& mustStop) {
  constexpr auto kLong = std::chrono::hours(1);
  if (script.delay) sleep(*script.delay, mustStop);
  while (script.neverEnds && !mustStop()) sleep(kLong, mustStop);
}

}  // namespace

KnownSystems readKnownSystems(store::Connection& connection) {
  store::Recordset rows;
  rows.Open(std::string(store::mdDataBase::kSystemTable), connection, store::CursorType::Static,
            store::LockType::ReadOnly);
  KnownSystems known;
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string name = textOf(rows, "System_Name");
    known.try_emplace(toUpper(name),
                      SystemRow{name, numberOf(rows, "System_Type"), textOf(rows, "IP_Address"),
                                textOf(rows, "System_Description")});
  }
  return known;
}

void enterFoundSystem(store::Connection& connection, const KnownSystems& known, const SystemRow& found) {
  const auto row = known.find(toUpper(found.name));
  if (row == known.end()) return storeSystem(connection, found);
  const SystemRow& there = row->second;
  if (there.systemType == kNoComputer || found.address.empty() || found.address == there.address) return;
  writeAddress(connection, there.name, found.address);
}

void enumerateNetwork(const Network& network, const WithInventory& withInventory, const StoppableSleep& sleep,
                      const host::MustStop& mustStop) {
  const ResumeNext resumeNext;
  KnownSystems known;
  const bool hasInventory = resumeNext.step(
      [&] { withInventory([&](store::Connection& connection) { known = readKnownSystems(connection); }); });
  if (!hasInventory) return;
  for (const std::string& name : network.names()) {
    if (!mustStop()) waitAt(network.script(name, "discovery"), sleep, mustStop);
    if (mustStop()) return;
    resumeNext.step([&] { visit(network, name, known, withInventory); });
  }
}

}  // namespace varnhold::companion
