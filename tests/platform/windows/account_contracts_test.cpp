// The adapters around accounts keep the contracts of their ports. NTLM knows the one account that
// `wine/ntlm_auth` has; on Windows itself that would have to be an account of the computer.
#include <windows.h>

#include "platform/windows/adapters.h"
#include "platform/windows/owned_handle.h"
#include "tests/contract/accounts_contract.h"
#include "tests/contract/heap_contract.h"
#include "tests/contract/security_package_contract.h"

namespace varnhold::contract {
namespace {

namespace windows = platform::windows;

class WindowsSecurityHost {
 public:
  explicit WindowsSecurityHost(const char* library = "secur32")
      : sspi_(windows::makeSecurityPackage(library)) {}
  platform::SecurityPackage& sspi() { return *sspi_; }
  std::string domain() { return "VARNHOLD"; }
  std::string user() { return "tester"; }
  std::string password() { return "pa ss'word"; }

 private:
  std::unique_ptr<platform::SecurityPackage> sspi_;
};

/// The same calls in the library that Windows NT 4 has them in.
class WindowsNt4SecurityHost : public WindowsSecurityHost {
 public:
  WindowsNt4SecurityHost() : WindowsSecurityHost("security") {}
};

class WindowsHeapHost {
 public:
  platform::Heap& heap() { return *heap_; }

 private:
  std::unique_ptr<platform::Heap> heap_ = windows::makeHeap();
};

class WindowsAccountsHost {
 public:
  platform::Accounts& accounts() { return *accounts_; }
  std::string account() { return "Everyone"; }

 private:
  std::unique_ptr<platform::Accounts> accounts_ = windows::makeAccounts();
};

INSTANTIATE_TYPED_TEST_SUITE_P(Windows, SecurityPackageContract, WindowsSecurityHost);
INSTANTIATE_TYPED_TEST_SUITE_P(WindowsNt4, SecurityPackageContract, WindowsNt4SecurityHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, HeapContract, WindowsHeapHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, AccountsContract, WindowsAccountsHost);

TEST(WindowsSecurityPackage, HasNoPackageInALibraryThatIsNotThere) {
  const auto sspi = windows::makeSecurityPackage("no-such-library");
  platform::SecurityPackageInfo info;
  EXPECT_EQ(sspi->querySecurityPackageInfo("NTLM", info), platform::kSecPackageNotFound);
  platform::SecurityHandle credential = 0;
  EXPECT_EQ(sspi->acquireCredentialsHandle("NTLM", platform::kSecpkgCredInbound, nullptr, credential),
            platform::kSecPackageNotFound);
}

TEST(WindowsProcesses, StartsAProgramAsTheOwnerOfAToken) {
  HANDLE own = nullptr;
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own));
  const auto processes = windows::makeProcesses();
  platform::ProcessInformation started;
  EXPECT_EQ(processes->createProcessAsUser(reinterpret_cast<platform::TokenHandle>(own), "cmd.exe /c exit 7",
                                           platform::kCreateDefaultErrorMode, "C:\\", started),
            0u);
  const windows::OwnedHandle process(reinterpret_cast<HANDLE>(started.process));
  const windows::OwnedHandle thread(reinterpret_cast<HANDLE>(started.thread));
  ASSERT_TRUE(process && thread);
  EXPECT_EQ(WaitForSingleObject(process.get(), 30'000), DWORD{WAIT_OBJECT_0});
  DWORD code = 0;
  GetExitCodeProcess(process.get(), &code);
  EXPECT_EQ(code, 7u);
  processes->closeHandle(reinterpret_cast<platform::TokenHandle>(own));
  EXPECT_FALSE(GetTokenInformation(own, TokenUser, nullptr, 0, &code));
  EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST(WindowsProcesses, TellsTheErrorOfAProgramThatCannotBeStarted) {
  const auto processes = windows::makeProcesses();
  platform::ProcessInformation started;
  EXPECT_NE(processes->createProcessWithLogon("no such user", "VARNHOLD", "secret",
                                              platform::kLogonWithProfile, "no-such-program.exe",
                                              platform::kCreateDefaultErrorMode, "C:\\", started),
            0u);
  EXPECT_EQ(started.thread, 0u);
}

}  // namespace
}  // namespace varnhold::contract
