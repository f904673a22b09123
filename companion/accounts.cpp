#include "companion/accounts.h"

#include "base/text.h"
#include "companion/lab/lab_network.h"

namespace varnhold::companion {
namespace {

constexpr std::size_t kSidHead = 8, kSubAuthority = 4, kMostSubAuthorities = 15;

/// FNV-1a, begun with `seed`: the same on every host.
std::uint32_t hashOf(const std::string& text, std::uint32_t seed) {
  std::uint32_t hash = 2166136261U ^ seed;
  for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
  return hash;
}

/// S-1-5-21, three numbers for the domain, one for the user.
std::vector<std::uint8_t> madeUpSid(const std::string& domain, const std::string& user) {
  constexpr std::uint32_t kFirstUser = 1000, kUsers = 1'000'000;
  const std::uint32_t numbers[] = {21, hashOf(domain, 1), hashOf(domain, 2), hashOf(domain, 3),
                                   kFirstUser + hashOf(user, 4) % kUsers};
  std::vector<std::uint8_t> sid = {1, 5, 0, 0, 0, 0, 0, 5};
  for (const std::uint32_t number : numbers)
    for (unsigned shift = 0; shift < 32; shift += 8) sid.push_back(number >> shift & 0xFF);
  return sid;
}

std::unique_ptr<RemoteComputer> findComputer(const Network& network, const std::string& managerName,
                                             const std::string& machine) {
  const std::string name = plainComputerName(machine);
  return network.find(name.empty() ? managerName : name);
}

}  // namespace

Win32Error lookupAccount(const Network& network, const std::string& managerName, const std::string& machine,
                         const std::string& account, KnownAccount& found) {
  const auto computer = findComputer(network, managerName, machine);
  if (computer == nullptr || !computer->answers()) return kServerUnavailable;
  const auto cut = account.find('\\');
  std::string domain = cut == std::string::npos ? "" : account.substr(0, cut);
  const std::string user = cut == std::string::npos ? account : account.substr(cut + 1);
  // The service manager's own word for its built-in account, which is the name of none.
  if (user.empty() || equalsIgnoringCase(account, ServiceEntry().account)) return kAccountUnknown;
  if (domain.empty() || domain == ".") domain = computer->facts().name;
  found = {madeUpSid(toUpper(domain), toUpper(user)), domain};
  return kDone;
}

std::optional<std::string> sidText(const std::uint8_t* sid) {
  constexpr std::uint8_t kRevision = 1;
  if (sid == nullptr || sid[0] != kRevision || sid[1] > kMostSubAuthorities) return std::nullopt;
  std::uint64_t authority = 0;
  for (std::size_t at = 2; at < kSidHead; ++at) authority = authority << 8 | sid[at];
  std::string text = "S-1-" + std::to_string(authority);
  for (std::size_t part = 0; part < sid[1]; ++part) {
    std::uint32_t number = 0;
    for (std::size_t byte = kSubAuthority; byte-- > 0;)
      number = number << 8 | sid[kSidHead + part * kSubAuthority + byte];
    text += "-" + std::to_string(number);
  }
  return text;
}

Win32Error grantServiceLogon(const Network& network, const std::string& managerName,
                             const std::string& machine, const std::uint8_t* sid) {
  const auto text = sidText(sid);
  if (!text) return kInvalidSid;
  const auto computer = findComputer(network, managerName, machine);
  return computer == nullptr ? kServerUnavailable : computer->grantServiceLogon(*text);
}

}  // namespace varnhold::companion
