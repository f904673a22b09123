// VhwLogonCtrl through its plain C interface.
#include <dlfcn.h>
#include <gmock/gmock.h>

#include "base/text.h"
#include "companion/include/vhwlogonctrl.h"
#include "tests/companion/library_home.h"

namespace varnhold::companion::test {
namespace {

class LogonLibrary : public testing::Test {
 protected:
  LogonLibrary() {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    void* const library =
        ::dlopen((program.parent_path() / "libVhwLogonCtrl.so").c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error(::dlerror());
    fnLogRight_ = reinterpret_cast<decltype(::fnLogRight)*>(::dlsym(library, "fnLogRight"));
  }

  LibraryHome home_;
  decltype(::fnLogRight)* fnLogRight_ = nullptr;
  std::uint8_t sid_[16] = {1, 2, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 2, 0, 0};
};

TEST_F(LogonLibrary, GrantsTheRightOnTheNamedComputer) {
  const auto host = home_.lab().addHost("B\xC3\xBCro");
  EXPECT_EQ(fnLogRight_(u"\\\\B\u00FCro", sid_), 0);
  EXPECT_EQ(readText(host / "rights.ini"), "[SeServiceLogonRight]\r\nS-1-5-32-544=granted\r\n");
}

TEST_F(LogonLibrary, GrantsTheRightOnThisComputerWhenNoneIsNamed) {
  const auto host = home_.lab().addHost(TrimAtNull(home_.host().environment().getComputerName().value()));
  EXPECT_EQ(fnLogRight_(u"", sid_), 0);
  EXPECT_TRUE(std::filesystem::exists(host / "rights.ini"));
}

TEST_F(LogonLibrary, SaysWhyTheRightWasNotGranted) {
  home_.lab().addHost("SHUT", "[refuse]\nlogon_right = yes\n");
  EXPECT_EQ(fnLogRight_(u"SHUT", sid_), 5);
  EXPECT_EQ(fnLogRight_(u"NOBODY", sid_), 1722);
  EXPECT_EQ(fnLogRight_(nullptr, sid_), 87);
  EXPECT_EQ(fnLogRight_(u"SHUT", nullptr), 1337);
  EXPECT_EQ(fnLogRight_(std::u16string(5000, u'A').c_str(), sid_), 87);
}

}  // namespace
}  // namespace varnhold::companion::test
