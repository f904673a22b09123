// What a Recordset costs over ODBC itself: filling it with 100,000 computers against a bare loop that fetches
// the same rows into bound columns, at most 1.5 times; and finding one computer by filter among 100,000
// against among 1,000, at most 1.2 times. Works in a folder of its own below the system's temporary one.
#include <benchmark/benchmark.h>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "store/bulk_insert.h"
#include "store/connection.h"
#include "store/data_source.h"
#include "store/recordset.h"
#include "store/schema.h"

namespace {

using namespace varnhold::store;
namespace fs = std::filesystem;

constexpr int kMany = 100000, kFew = 1000;
constexpr double kFillLimit = 1.5, kLookupLimit = 1.2;

std::string nameOf(int number) {
  return "COMPUTER" + std::to_string(1000000 + number);
}

/// Two inventories, "many" and "few", and the odbc.ini that names them.
class Inventories {
 public:
  Inventories() : folder_(fs::temp_directory_path() / "varnhold-store-bench") {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    std::ofstream ini(folder_ / "odbc.ini");
    for (const char* name : {"many", "few"}) {
      const fs::path file = folder_ / (std::string(name) + ".mdb");
      std::ofstream(file).flush();
      ini << renderSqliteDataSource(name, file.string());
    }
    ini.close();
    setenv("ODBCINI", (folder_ / "odbc.ini").c_str(), 1);
    fill("many", kMany);
    fill("few", kFew);
  }
  ~Inventories() { fs::remove_all(folder_); }

 private:
  static void fill(const std::string& dataSource, int computers) {
    Connection connection;
    connection.Open(dataSource, "", "");
    createTables(connection);
    Transaction whole(connection);
    BulkInsert systems(connection, "System_Table",
                       {"System_Name", "System_Type", "IP_Address", "System_Description"});
    for (int i = 0; i < computers; ++i) {
      systems.add({nameOf(i), 4 + i % 5,
                   "10." + std::to_string(i / 65536) + "." + std::to_string(i / 256 % 256) + ".7",
                   i % 4 == 0 ? "Mail server of the branch office, second floor" : ""});
    }
    systems.finish();
    whole.commit();
  }

  fs::path folder_;
};

/// ODBC and nothing else: blocks of rows into bound columns of the schema's widths.
class BareFetch {
 public:
  BareFetch() {
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    SQLConnectW(connection_, text(u"many"), SQL_NTS, text(u""), 0, text(u""), 0);
  }
  ~BareFetch() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }

  std::size_t rows() {
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
    SQLExecDirectW(statement, text(u"SELECT * FROM System_Table"), SQL_NTS);
    SQLULEN fetched = 0;
    SQLSetStmtAttrW(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kBlock), 0);
    SQLSetStmtAttrW(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    bind(statement, 1, SQL_C_WCHAR, names_.data(), sizeof names_[0]);
    bind(statement, 2, SQL_C_SBIGINT, types_.data(), sizeof types_[0]);
    bind(statement, 3, SQL_C_WCHAR, addresses_.data(), sizeof addresses_[0]);
    bind(statement, 4, SQL_C_WCHAR, descriptions_.data(), sizeof descriptions_[0]);
    std::size_t rows = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement))) rows += fetched;
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return rows;
  }

 private:
  static constexpr std::size_t kBlock = 100;
  using Name = std::array<SQLWCHAR, 257>;
  using Description = std::array<SQLWCHAR, 1025>;

  static SQLWCHAR* text(const char16_t* units) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(units));
  }
  void bind(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type, void* place, std::size_t bytes) {
    SQLBindCol(statement, column, type, place, static_cast<SQLLEN>(bytes), indicators_[column - 1U].data());
  }

  SQLHENV environment_ = nullptr;
  SQLHDBC connection_ = nullptr;
  std::vector<Name> names_ = std::vector<Name>(kBlock), addresses_ = std::vector<Name>(kBlock);
  std::vector<Description> descriptions_ = std::vector<Description>(kBlock);
  std::array<std::int64_t, kBlock> types_{};
  std::array<std::array<SQLLEN, kBlock>, 4> indicators_{};
};

void bareFetch(benchmark::State& state) {
  BareFetch bare;
  for (auto _ : state) {
    if (bare.rows() != kMany) state.SkipWithError("not all rows were fetched");
  }
}

void fillRecordset(benchmark::State& state) {
  Connection connection;
  connection.Open("many", "", "");
  for (auto _ : state) {
    Recordset rows;
    rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
    if (rows.Eof()) state.SkipWithError("no rows");
  }
}

/// Filling and then reading every cell, as a list does. Told for comparison, without a limit.
void fillAndReadEveryCell(benchmark::State& state) {
  Connection connection;
  connection.Open("many", "", "");
  for (auto _ : state) {
    Recordset rows;
    rows.Open("System_Table", connection, CursorType::Static, LockType::ReadOnly);
    for (; !rows.Eof(); rows.MoveNext()) {
      for (const char* column : {"System_Name", "System_Type", "IP_Address", "System_Description"}) {
        benchmark::DoNotOptimize(rows.Fields(column).value());
      }
    }
  }
}

void findOne(benchmark::State& state, const char* dataSource, int computers) {
  Connection connection;
  connection.Open(dataSource, "", "");
  int number = 0;
  for (auto _ : state) {
    number = (number + 7919) % computers;
    Recordset rows;
    rows.Open("System_Table", connection, CursorType::Keyset, LockType::ReadOnly);
    rows.setFilter("System_Name = '" + nameOf(number) + "'");
    if (rows.Eof()) state.SkipWithError("the computer was not found");
  }
}

BENCHMARK(bareFetch)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(fillRecordset)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(fillAndReadEveryCell)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(findOne, few, "few", kFew)->UseRealTime();
BENCHMARK_CAPTURE(findOne, many, "many", kMany)->UseRealTime();

/// Prints as usual and keeps the best processor time of each benchmark: all data is in memory, and what else
/// disturbs a run only ever adds to it.
class BestTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      failed = failed || run.error_occurred;
      if (run.run_type != Run::RT_Iteration) continue;
      const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
      const auto [place, isNew] = best.try_emplace(run.run_name.function_name, seconds);
      if (!isNew) place->second = std::min(place->second, seconds);
    }
    ConsoleReporter::ReportRuns(runs);
  }

  /// Prints the ratio of two benchmarks; true when it is within the limit.
  bool isWithin(const std::string& what, const std::string& above, const std::string& below, double limit) {
    const double ratio = best[above] / best[below];
    std::cout << what << ": " << ratio << " times (at most " << limit << ")\n";
    return ratio <= limit;
  }

  std::map<std::string, double> best;
  bool failed = false;
};

}  // namespace

int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string repetitions = "--benchmark_repetitions=9",
              mixed = "--benchmark_enable_random_interleaving=true";
  arguments.insert(arguments.begin() + 1, {repetitions.data(), mixed.data()});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  const Inventories inventories;
  BestTimes times;
  benchmark::RunSpecifiedBenchmarks(&times);
  benchmark::Shutdown();
  const bool fill =
      times.isWithin("Filling a recordset against a bare fetch", "fillRecordset", "bareFetch", kFillLimit);
  const bool find = times.isWithin("Finding one of 100,000 against one of 1,000", "findOne/many",
                                   "findOne/few", kLookupLimit);
  return !times.failed && fill && find ? 0 : 1;
}
