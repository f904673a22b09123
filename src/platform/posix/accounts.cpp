#include "platform/accounts.h"

#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

class CompanionAccounts : public Accounts {
 public:
  explicit CompanionAccounts(CompanionLibrary& companion) : companion_(companion) {}

  bool lookupAccountName(const std::string& system, const std::string& account,
                         AccountBuffers& buffers) override {
    const auto look = companion_.function<decltype(qrvHostLookupAccountName)>("qrvHostLookupAccountName");
    buffers.sidSize = static_cast<std::uint32_t>(buffers.sid.size());
    buffers.domainSize = static_cast<std::uint32_t>(buffers.domain.size());
    return look(system.c_str(), account.c_str(), buffers.sid.data(), &buffers.sidSize, buffers.domain.data(),
                &buffers.domainSize) == 0;
  }

 private:
  CompanionLibrary& companion_;
};

}  // namespace

std::unique_ptr<Accounts> makeAccounts(CompanionLibrary& companion) {
  return std::make_unique<CompanionAccounts>(companion);
}

}  // namespace varnhold::platform::posix
