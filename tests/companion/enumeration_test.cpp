#include "companion/enumeration.h"

#include <gmock/gmock.h>

#include "base/runtime_error.h"
#include "store/recordset.h"
#include "tests/companion/lab_fixture.h"
#include "tests/fakes/lines_are.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::companion::test {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

class Enumeration : public testing::Test {
 protected:
  Enumeration() { connection_.Open("qrvdb", "", ""); }

  void walk() {
    enumerateNetwork(lab_.network(), withInventory(), sleep_, [this] { return mustStop_; });
  }
  WithInventory withInventory() {
    return [this](const std::function<void(store::Connection&)>& work) { work(connection_); };
  }
  /// name|type|address|description, in the order of names.
  std::vector<std::string> systems() {
    store::Recordset rows;
    rows.Open("SELECT * FROM System_Table ORDER BY System_Name", connection_, store::CursorType::Static,
              store::LockType::ReadOnly);
    std::vector<std::string> all;
    for (; !rows.Eof(); rows.MoveNext()) {
      std::string line;
      for (const char* column : {"System_Name", "System_Type", "IP_Address", "System_Description"}) {
        const store::Value value = rows.Fields(column).value();
        line += (line.empty() ? "" : "|") + (value.isNull() ? "NULL" : value.asText());
      }
      all.push_back(line);
    }
    return all;
  }
  void add(const std::string& name, int type, const std::string& address, const std::string& description) {
    inventory_.execute("INSERT INTO System_Table VALUES ('" + name + "', " + std::to_string(type) + ", '" +
                       address + "', '" + description + "')");
  }

  LabFixture lab_;
  fakes::TestInventory inventory_;
  store::Connection connection_;
  bool mustStop_ = false;
  std::vector<milliseconds> slept_;
  StoppableSleep sleep_ = [this](milliseconds time, const host::MustStop&) { slept_.push_back(time); };
};

TEST_F(Enumeration, AddsTheComputersThatAnswer) {
  lab_.addHost("WKS02", "[host]\naddress=10.1.1.12\ntype=7\ndescription=Desk\n");
  lab_.addHost("WKS01", "[host]\ntype=16\n");
  lab_.addHost("WKS03", "[host]\naddress=10.1.1.13\nanswers=no\n");
  walk();
  EXPECT_THAT(systems(), LinesAre({"WKS01|16||", "WKS02|7|10.1.1.12|Desk"}));
}

TEST_F(Enumeration, LeavesAKnownComputerAsItIsButForANewAddress) {
  add("wks01", 14, "10.1.1.1", "Corrected by hand");
  add("WKS02", 14, "10.1.1.12", "");
  add("WKS03", 4, "10.1.1.13", "");
  lab_.addHost("WKS01", "[host]\naddress=10.1.1.11\ntype=7\ndescription=Desk\n");
  lab_.addHost("WKS02", "[host]\naddress=10.1.1.12\ntype=7\ndescription=Desk\n");
  lab_.addHost("WKS03", "[host]\ntype=7\n");
  walk();
  EXPECT_THAT(systems(), LinesAre({"WKS02|14|10.1.1.12|", "WKS03|4|10.1.1.13|",
                                   "wks01|14|10.1.1.11|Corrected by hand"}));
}

TEST_F(Enumeration, LeavesARowThatIsNoComputer) {
  add("WKS01", 99999, "", "");
  lab_.addHost("WKS01", "[host]\naddress=10.1.1.11\ntype=7\n");
  walk();
  EXPECT_THAT(systems(), LinesAre({"WKS01|99999||"}));
}

TEST_F(Enumeration, UnderstandsRowsWithNulls) {
  inventory_.execute("INSERT INTO System_Table VALUES ('WKS01', NULL, NULL, NULL)");
  lab_.addHost("WKS01", "[host]\naddress=10.1.1.11\n");
  walk();
  EXPECT_THAT(systems(), LinesAre({"WKS01|NULL|10.1.1.11|NULL"}));
}

TEST_F(Enumeration, EntersNamesWithApostrophes) {
  add("O''HARA", 4, "", "");
  lab_.addHost("O'HARA", "[host]\naddress=10.1.1.11\n");
  lab_.addHost("D'ARC", "[host]\naddress=10.1.1.12\ntype=7\n");
  walk();
  EXPECT_THAT(systems(), LinesAre({"D'ARC|7|10.1.1.12|", "O'HARA|4|10.1.1.11|"}));
}

TEST_F(Enumeration, WaitsAtEachComputerAsItsScriptSays) {
  lab_.addHost("WKS02", "[delay_ms]\ndiscovery=200\n");
  lab_.addHost("WKS01", "[delay_ms]\ndiscovery=100\ninstall=5\n");
  lab_.addHost("WKS03");
  walk();
  EXPECT_THAT(slept_, ElementsAre(milliseconds(100), milliseconds(200)));
}

TEST_F(Enumeration, StopsBeforeItsNextStep) {
  lab_.addHost("WKS01");
  lab_.addHost("WKS02", "[delay_ms]\ndiscovery=200\n");
  lab_.addHost("WKS03");
  sleep_ = [this](milliseconds, const host::MustStop&) { mustStop_ = true; };
  walk();
  EXPECT_THAT(systems(), LinesAre({"WKS01|10|10.1.1.11|"}));
}

TEST_F(Enumeration, GetsNoFurtherThanAComputerThatNeverLetsItOn) {
  lab_.addHost("WKS01", "[delay_ms]\ndiscovery=never\n");
  lab_.addHost("WKS02");
  sleep_ = [this](milliseconds time, const host::MustStop&) {
    slept_.push_back(time);
    if (slept_.size() == 3) mustStop_ = true;
  };
  walk();
  EXPECT_EQ(slept_.size(), 3u);
  EXPECT_THAT(systems(), ElementsAre());
}

TEST_F(Enumeration, PassesOverAComputerThatCannotBeEntered) {
  for (const char* name : {"WKS01", "WKS02", "WKS03"}) lab_.addHost(name, "[host]\ntype=7\n");
  int uses = 0;
  const WithInventory failing = [&](const std::function<void(store::Connection&)>& work) {
    // The first is the reading of what is known.
    if (++uses == 3) throw RuntimeError(kDatabaseFailed, "locked");
    work(connection_);
  };
  enumerateNetwork(lab_.network(), failing, sleep_, [] { return false; });
  EXPECT_THAT(systems(), LinesAre({"WKS01|7||", "WKS03|7||"}));
}

TEST_F(Enumeration, VisitsNobodyWithoutAnInventory) {
  lab_.addHost("WKS01", "[delay_ms]\ndiscovery=100\n");
  const WithInventory failing = [](const auto&) { throw RuntimeError(kDatabaseFailed, "gone"); };
  enumerateNetwork(lab_.network(), failing, sleep_, [] { return false; });
  EXPECT_THAT(slept_, ElementsAre());
}

}  // namespace
}  // namespace varnhold::companion::test
