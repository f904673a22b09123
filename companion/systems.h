#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "companion/remote_computer.h"
#include "store/connection.h"

/// What the console asks about one computer.
namespace varnhold::companion {

struct ResolvedAddress {
  std::string name;  ///< as given, without surrounding blanks; for an address the computer's name
  std::string address;
};

/// Nothing when no computer has the name or address, or it has no address.
[[nodiscard]] std::optional<ResolvedAddress> resolveAddress(const Network& network,
                                                            const std::string& nameOrAddress);

struct SystemFacts {
  std::string resolvedName;
  std::int32_t osMajor = 0, systemType = 0;
  std::string description;
  std::string address;
};

/// Nothing when the computer is not found or does not answer.
[[nodiscard]] std::optional<SystemFacts> findSystem(const Network& network, const std::string& nameOrAddress);

/// The row of `System_Table` for one computer.
struct SystemRow {
  std::string name;
  std::int32_t systemType = 0;
  std::string address, description;
};

/// Adds the row, or brings the one of that exact name up to date. A description that somebody wrote stays.
/// Errors as for `Connection`.
void storeSystem(store::Connection& connection, const SystemRow& system);

/// The program-files folder of a computer, through its registry; nothing when that cannot be read.
[[nodiscard]] std::optional<std::string> programFilesFolder(const Network& network,
                                                            const std::string& computer);

}  // namespace varnhold::companion
