// The adapters around accounts keep the contracts of their ports.
#include <cstdlib>
#include <filesystem>

#include "platform/posix/adapters.h"
#include "tests/contract/accounts_contract.h"
#include "tests/contract/heap_contract.h"
#include "tests/contract/security_package_contract.h"
#include "tests/platform/posix/standin.h"
#include "tests/platform/posix/temporary_folder.h"
#include "tests/platform/posix/user_file.h"

namespace varnhold::contract {
namespace {

namespace posix = platform::posix;

class PosixSecurityHost {
 public:
  platform::SecurityPackage& sspi() { return *sspi_; }
  std::string domain() { return "corp"; }
  std::string user() { return "admin"; }
  std::string password() { return "pa ss'word"; }

 private:
  posix::UserFile users_{"OTHER:admin:other\nCORP:Admin:pa ss'word\n"};
  std::unique_ptr<platform::SecurityPackage> sspi_ = posix::makeSecurityPackage(users_.path());
};

class PosixHeapHost {
 public:
  platform::Heap& heap() { return *heap_; }

 private:
  std::unique_ptr<platform::Heap> heap_ = posix::makeHeap();
};

class PosixAccountsHost {
 public:
  platform::Accounts& accounts() { return *accounts_; }
  std::string account() { return R"(CORP\svc)"; }

 private:
  std::unique_ptr<posix::CompanionLibrary> standin_ = posix::makeStandin();
  std::unique_ptr<platform::Accounts> accounts_ = posix::makeAccounts(*standin_);
};

INSTANTIATE_TYPED_TEST_SUITE_P(Posix, SecurityPackageContract, PosixSecurityHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, HeapContract, PosixHeapHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, AccountsContract, PosixAccountsHost);

}  // namespace
}  // namespace varnhold::contract
