// What the console's list costs: filling it with 100,000 computers and their status against a bare loop that
// fetches the same two tables into bound columns, at most 2 times; and its growth from 10,000 to 100,000
// computers against that of the loop, at most 1.2 times. Run with
// ODBCINI=<build>/inventories/console_bench/odbc.ini.
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "bench/large_inventory.h"
#include "console/forms.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/scripted_ui.h"
#include "tests/fakes/test_inventory.h"

namespace {

using namespace varnhold;

constexpr double kFetchLimit = 2.0, kGrowthLimit = 1.2;
constexpr int kRounds = 7;

/// ODBC and nothing else: blocks of rows into bound columns of the schema's widths.
class BareFetch {
 public:
  BareFetch() {
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    SQLConnectW(connection_, text(u"qrvdb"), SQL_NTS, text(u""), 0, text(u""), 0);
  }
  BareFetch(const BareFetch&) = delete;
  BareFetch& operator=(const BareFetch&) = delete;
  ~BareFetch() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }

  /// Widths in characters, 0 for a number. Gives the number of rows.
  std::size_t rows(const char16_t* statementText, const std::vector<std::size_t>& widths) {
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
    SQLExecDirectW(statement, text(statementText), SQL_NTS);
    SQLULEN fetched = 0;
    SQLSetStmtAttrW(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kBlock), 0);
    SQLSetStmtAttrW(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    std::vector<std::vector<char>> cells(widths.size());
    std::vector<std::array<SQLLEN, kBlock>> indicators(widths.size());
    for (std::size_t i = 0; i < widths.size(); ++i) {
      const auto bytes = widths[i] == 0 ? sizeof(std::int64_t) : (widths[i] + 1) * sizeof(SQLWCHAR);
      cells[i].resize(bytes * kBlock);
      SQLBindCol(statement, static_cast<SQLUSMALLINT>(i + 1), widths[i] == 0 ? SQL_C_SBIGINT : SQL_C_WCHAR,
                 cells[i].data(), static_cast<SQLLEN>(bytes), indicators[i].data());
    }
    std::size_t rows = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement))) rows += fetched;
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return rows;
  }

 private:
  static constexpr std::size_t kBlock = 100;

  static SQLWCHAR* text(const char16_t* units) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(units));
  }

  SQLHENV environment_ = nullptr;
  SQLHDBC connection_ = nullptr;
};

/// The least processor time of several runs, in milliseconds: what disturbs a run only ever adds to it.
double bestOf(const std::function<void()>& run) {
  double best = 1e9;
  for (int round = 0; round < kRounds; ++round) {
    const auto start = std::clock();
    run();
    best = std::min(best, 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  return best;
}

[[noreturn]] void fail(const char* what) {
  std::cerr << what << '\n';
  std::exit(EXIT_FAILURE);
}

struct Times {
  double fetch, load;
};

Times measure(int computers) {
  const fakes::TestInventory inventory;
  bench::fillInventory(computers);
  const auto expected = static_cast<std::size_t>(computers);
  BareFetch bare;
  const double fetch = bestOf([&] {
    if (bare.rows(u"SELECT * FROM System_Table", {256, 0, 256, 1024}) != expected ||
        bare.rows(u"SELECT * FROM Module_Table", {256, 0, 1024, 0, 0, 0, 0}) != expected) {
      fail("not all rows were fetched");
    }
  });
  fakes::FakeHost fake;
  fakes::ScriptedUi ui(fake.journal);
  core::Program program{fake.host(), core::kManagerTitle};
  program.gConn.Open("qrvdb", "", "");
  console::Forms forms(program, ui.screen);
  const double load = bestOf([&] {
    if (!forms.frmMain.LoadAllComputers("Reading...")) fail("the list could not be filled");
    // Someone looks at the first row, so that the rows are sorted.
    if (forms.frmMain.lvListView.ListItems(1).SubItems(3).get().empty()) fail("a row has no status");
  });
  std::cout << computers << " computers: bare fetch " << fetch << " ms, list with status " << load << " ms\n";
  return {fetch, load};
}

bool isWithin(const char* what, double ratio, double limit) {
  std::cout << what << ": " << ratio << " times (at most " << limit << ")\n";
  return ratio <= limit;
}

}  // namespace

int main() {
  const auto small = measure(10'000);
  const auto large = measure(100'000);
  const bool fetch = isWithin("The list against a bare fetch", large.load / large.fetch, kFetchLimit);
  const double growthOfLoad = large.load / small.load, growthOfFetch = large.fetch / small.fetch;
  const bool growth = isWithin("Its growth from 10,000 to 100,000 computers against the fetch's",
                               growthOfLoad / growthOfFetch, kGrowthLimit);
  return fetch && growth ? EXIT_SUCCESS : EXIT_FAILURE;
}
