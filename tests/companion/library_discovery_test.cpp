// Discovery through the library as the program has it, and the library's connection to the inventory.
#include <gmock/gmock.h>

#include <thread>

#include "companion/inventory.h"
#include "store/recordset.h"
#include "tests/companion/library_home.h"
#include "tests/fakes/lines_are.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::companion::test {
namespace {

using platform::ThreadHandle;

class LibraryDiscovery : public testing::Test {
 protected:
  ~LibraryDiscovery() override { libraries().qrvCloseDbConnection(); }

  platform::ClosedLibraries& libraries() { return home_.host().libraries(); }
  ThreadHandle walk() {
    ThreadHandle thread = 0;
    libraries().qrvNetworkEnum(thread);
    return thread;
  }
  std::uint32_t exitCode(ThreadHandle thread) {
    std::uint32_t code = 0;
    EXPECT_TRUE(home_.host().threads().getExitCodeThread(thread, code));
    return code;
  }
  void waitFor(const std::function<bool()>& condition) {
    for (int tries = 0; tries < 5'000 && !condition(); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }

  fakes::TestInventory inventory_;
  LibraryHome home_;
};

TEST_F(LibraryDiscovery, EntersTheNetworkInTheInventoryAndEndsWith1000) {
  home_.lab().addHost("WKS01", "[host]\naddress=10.1.1.11\ntype=7\n");
  home_.lab().addHost("WKS02", "[host]\ntype=16\n");
  const ThreadHandle thread = walk();
  ASSERT_NE(thread, 0u);
  EXPECT_EQ(home_.finish(thread), 1000u);
  EXPECT_THAT(inventory_.computers(), LinesAre({"WKS01|7", "WKS02|16"}));
}

TEST_F(LibraryDiscovery, EndsWith1000AlsoWithoutALabAndWithoutAnInventory) {
  EXPECT_EQ(home_.finish(walk()), 1000u);
  home_.lab().addHost("WKS01");
  inventory_.execute("DROP TABLE System_Table");
  EXPECT_EQ(home_.finish(walk()), 1000u);
}

TEST_F(LibraryDiscovery, FindsNothingByItselfInTheManualMode) {
  home_.lab().addHost("WKS01", "[host]\ntype=7\n");
  ASSERT_NE(libraries().qrvSetNetAccessMode(0), 0);
  EXPECT_EQ(home_.finish(walk()), 1000u);
  EXPECT_THAT(inventory_.computers(), testing::IsEmpty());
  ASSERT_NE(libraries().qrvSetNetAccessMode(1), 0);
  EXPECT_EQ(home_.finish(walk()), 1000u);
  EXPECT_THAT(inventory_.computers(), LinesAre({"WKS01|7"}));
}

TEST_F(LibraryDiscovery, IsEndedAbruptlyWhereverItIs) {
  home_.lab().addHost("WKS01", "[host]\ntype=7\n");
  home_.lab().addHost("WKS02", "[delay_ms]\ndiscovery=never\n");
  const ThreadHandle thread = walk();
  waitFor([&] { return !inventory_.computers().empty(); });
  EXPECT_EQ(exitCode(thread), platform::kStillActive);
  EXPECT_TRUE(home_.host().threads().terminateThread(thread, 0));
  EXPECT_EQ(home_.finish(thread), 0u);
  EXPECT_THAT(inventory_.computers(), LinesAre({"WKS01|7"}));
}

TEST_F(LibraryDiscovery, EntersNothingMoreOnceItWasEnded) {
  home_.lab().addHost("WKS01", "[host]\ntype=7\n");
  home_.lab().addHost("WKS02", "[host]\ntype=7\n[delay_ms]\ndiscovery=300\n");
  const ThreadHandle thread = walk();
  waitFor([&] { return !inventory_.computers().empty(); });
  EXPECT_TRUE(home_.host().threads().terminateThread(thread, 0));
  home_.host().threads().closeHandle(thread);
  std::this_thread::sleep_for(std::chrono::milliseconds(600));
  EXPECT_THAT(inventory_.computers(), LinesAre({"WKS01|7"}));
}

TEST_F(LibraryDiscovery, LeavesTheConnectionUsableWhenItIsEnded) {
  home_.lab().addHost("WKS01", "[delay_ms]\ndiscovery=never\n");
  const ThreadHandle thread = walk();
  EXPECT_TRUE(home_.host().threads().terminateThread(thread, 0));
  home_.host().threads().closeHandle(thread);
  libraries().qrvCloseDbConnection();
  libraries().qrvInitDbConnection();
  platform::SystemDetails details;
  details.SystemName = "WKS09";
  details.SystemType = 4;
  EXPECT_TRUE(libraries().qrvUpdateSystemDetailsInDB(details));
  EXPECT_THAT(inventory_.computers(), LinesAre({"WKS09|4"}));
}

TEST_F(LibraryDiscovery, OpensTheConnectionAgainWhenItIsNeededAfterAClose) {
  platform::SystemDetails details;
  details.SystemName = "WKS01";
  details.SystemType = 7;
  libraries().qrvInitDbConnection();
  libraries().qrvInitDbConnection();
  EXPECT_TRUE(libraries().qrvUpdateSystemDetailsInDB(details));
  libraries().qrvCloseDbConnection();
  libraries().qrvCloseDbConnection();
  details.SystemName = "WKS02";
  EXPECT_TRUE(libraries().qrvUpdateSystemDetailsInDB(details));
  EXPECT_THAT(inventory_.computers(), LinesAre({"WKS01|7", "WKS02|7"}));
}

TEST_F(LibraryDiscovery, TellsWhichAddressesBelongToASubnet) {
  EXPECT_NE(libraries().qrvCheckIfBelongsToSubnet("10.1.1.11", "10.1.0.0"), 0);
  EXPECT_EQ(libraries().qrvCheckIfBelongsToSubnet("10.2.1.11", "10.1.0.0"), 0);
  EXPECT_EQ(libraries().qrvCheckIfBelongsToSubnet("", "0.0.0.0"), 0);
}

/// On Windows this is the machine's registry: what stood there is put back.
class LibraryDiscoveryMode : public testing::Test {
 protected:
  static constexpr auto kHive = platform::RegistryHive::LocalMachine;
  static constexpr const char* kKey = R"(SOFTWARE\Kelmont Works\Quorvane)";

  LibraryDiscoveryMode() {
    EXPECT_EQ(registry().createKey(kHive, kKey), platform::RegistryOutcome::Done);
    static_cast<void>(registry().query(kHive, kKey, "NetAccessMode", 1024, earlier_));
    // No number: none was saved.
    EXPECT_EQ(registry().set(kHive, kKey, "NetAccessMode", none_), platform::RegistryOutcome::Done);
  }
  ~LibraryDiscoveryMode() override {
    static_cast<void>(registry().set(kHive, kKey, "NetAccessMode", earlier_));
  }
  platform::Registry& registry() { return home_.host().registry(); }
  platform::ClosedLibraries& libraries() { return home_.host().libraries(); }

  LibraryHome home_;
  platform::RegistryValue none_{platform::kRegText, std::string(1, '\0')}, earlier_ = none_;
};

TEST_F(LibraryDiscoveryMode, IsKeptInTheRegistry) {
  std::uint8_t mode = 42;
  EXPECT_EQ(libraries().qrvGetNetAccessMode(mode), 0);
  EXPECT_EQ(mode, 42);
  EXPECT_NE(libraries().qrvSetNetAccessMode(1), 0);
  EXPECT_NE(libraries().qrvGetNetAccessMode(mode), 0);
  EXPECT_EQ(mode, 1);
  EXPECT_NE(libraries().qrvSetNetAccessMode(0), 0);
  EXPECT_NE(libraries().qrvGetNetAccessMode(mode), 0);
  EXPECT_EQ(mode, 0);
}

TEST_F(LibraryDiscovery, DoesNothingMoreOnceItMustStop) {
  Inventory own;
  bool worked = false;
  own.use([&](store::Connection&) { worked = true; }, [] { return true; });
  EXPECT_FALSE(worked);
  own.use([&](store::Connection& connection) { worked = connection.isOpen(); });
  EXPECT_TRUE(worked);
}

}  // namespace
}  // namespace varnhold::companion::test
