#include "companion/include/vhwlogonctrl.h"

#include "companion/abi.h"
#include "companion/accounts.h"
#include "companion/lab/lab_network.h"
#include "companion/paths.h"
#include "companion/surroundings.h"

namespace varnhold::companion {
namespace {

/// The name as UTF-8; nothing for one that no computer has.
std::optional<std::string> nameOf(const char16_t* system) {
  if (system == nullptr) return std::nullopt;
  std::size_t size = 0;
  while (size <= abi::kLongestText && system[size] != u'\0') ++size;
  if (size > abi::kLongestText) return std::nullopt;
  return utf8FromPath(std::filesystem::path(std::u16string(system, size)));
}

}  // namespace
}  // namespace varnhold::companion

using namespace varnhold::companion;

int32_t QRV_CALL fnLogRight(const char16_t* system, uint8_t* sid) {
  return abi::guarded<std::int32_t>(kInvalidParameter, [&]() -> std::int32_t {
    const auto name = nameOf(system);
    if (!name) return kInvalidParameter;
    const Surroundings surroundings = readSurroundings();
    const LabNetwork network(surroundings.labFolder);
    return static_cast<std::int32_t>(grantServiceLogon(network, surroundings.managerName, *name, sid));
  });
}
