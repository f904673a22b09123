#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "companion/remote_computer.h"

/// Accounts of computers, and the right to log on as a service.
namespace varnhold::companion {

/// The largest SID, in bytes (winnt.h SECURITY_MAX_SID_SIZE).
inline constexpr std::size_t kLargestSid = 68;

struct KnownAccount {
  std::vector<std::uint8_t> sid;
  std::string domain;
};

/// LookupAccountName on a computer; an empty machine is `managerName`. `account` is "DOMAIN\user", or a user
/// of the computer itself ("user", ".\user"). A rehearsed computer knows every account that has a user's
/// name; the SID is made from the names without regard to case, and so is the same on every computer and in
/// every run. kServerUnavailable when the computer does not answer, kAccountUnknown for what is no account.
[[nodiscard]] Win32Error lookupAccount(const Network& network, const std::string& managerName,
                                       const std::string& machine, const std::string& account,
                                       KnownAccount& found);

/// "S-1-5-21-..."; nothing for bytes that begin no SID. Reads as many bytes as the SID says that it has, at
/// most kLargestSid.
[[nodiscard]] std::optional<std::string> sidText(const std::uint8_t* sid);

/// Gives the account with the SID the right to log on as a service on the computer; an empty one is
/// `managerName`.
[[nodiscard]] Win32Error grantServiceLogon(const Network& network, const std::string& managerName,
                                           const std::string& machine, const std::uint8_t* sid);

}  // namespace varnhold::companion
