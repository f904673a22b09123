#include "platform/accounts.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

class WindowsAccounts : public Accounts {
 public:
  bool lookupAccountName(const std::string& system, const std::string& account,
                         AccountBuffers& buffers) override {
    const auto wideSystem = toWide(system);
    std::wstring domain(buffers.domain.size(), L'\0');
    DWORD sidSize = static_cast<DWORD>(buffers.sid.size());
    DWORD domainSize = static_cast<DWORD>(domain.size());
    SID_NAME_USE use{};
    const bool found =
        LookupAccountNameW(wideSystem.empty() ? nullptr : wideSystem.c_str(), toWide(account).c_str(),
                           buffers.sid.data(), &sidSize, domain.data(), &domainSize, &use) != FALSE;
    buffers.sidSize = sidSize;
    buffers.domainSize = domainSize;
    if (found) putDomain(fromWide(domain.substr(0, domainSize)), buffers.domain);
    return found;
  }

 private:
  /// As much of the name as has room: in UTF-8 it may be longer than in the host's own letters.
  static void putDomain(const std::string& name, std::string& buffer) {
    std::copy_n(name.begin(), std::min(name.size(), buffer.size()), buffer.begin());
  }
};

}  // namespace

std::unique_ptr<Accounts> makeAccounts() {
  return std::make_unique<WindowsAccounts>();
}

}  // namespace varnhold::platform::windows
