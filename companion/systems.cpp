#include "companion/systems.h"

#include "base/text.h"
#include "companion/lab/lab_network.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "store/table_names.h"

namespace varnhold::companion {
namespace {

bool isBlank(const store::Value& value) {
  return value.isNull() || value.asText().empty();
}

/// Makes the row of that name the one to be written; true when a description stands in it already.
bool findOrAddRow(store::Recordset& rows, const std::string& name) {
  const std::string literal = replaceAll(name, "'", "''");
  rows.setFilter(store::statements::fill(store::statements::kSystemNameFilter, {{"name", literal}}));
  if (!rows.Bof() || !rows.Eof()) return !isBlank(rows.Fields("System_Description").value());
  rows.AddNew();
  rows.Fields("System_Name").setValue(name);
  return false;
}

}  // namespace

std::optional<ResolvedAddress> resolveAddress(const Network& network, const std::string& nameOrAddress) {
  const auto computer = network.find(nameOrAddress);
  if (computer == nullptr || computer->facts().address.empty()) return std::nullopt;
  const ComputerFacts& facts = computer->facts();
  const std::string plain = plainComputerName(nameOrAddress);
  return ResolvedAddress{equalsIgnoringCase(plain, facts.name) ? plain : facts.name, facts.address};
}

std::optional<SystemFacts> findSystem(const Network& network, const std::string& nameOrAddress) {
  const auto computer = network.find(nameOrAddress);
  if (computer == nullptr || !computer->answers()) return std::nullopt;
  const ComputerFacts& facts = computer->facts();
  return SystemFacts{facts.name, facts.osMajor, facts.systemType, facts.description, facts.address};
}

void storeSystem(store::Connection& connection, const SystemRow& system) {
  store::Recordset rows;
  rows.Open(std::string(store::mdDataBase::kSystemTable), connection, store::CursorType::Keyset,
            store::LockType::Optimistic);
  const bool described = findOrAddRow(rows, system.name);
  rows.Fields("System_Type").setValue(system.systemType);
  rows.Fields("IP_Address").setValue(system.address);
  if (!described) rows.Fields("System_Description").setValue(system.description);
  rows.Update();
  rows.Close();
}

std::optional<std::string> programFilesFolder(const Network& network, const std::string& computer) {
  const auto found = network.find(computer);
  if (found == nullptr || found->refusal("remote_registry") != kDone || found->registry().open() != kDone)
    return std::nullopt;
  return found->facts().programFiles;
}

}  // namespace varnhold::companion
