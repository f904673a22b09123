#include "store/odbc_diagnostics.h"

#include <algorithm>
#include <array>
#include <vector>

namespace varnhold::store::odbc {
namespace {

using Diagnostics = std::vector<DiagnosticText>;

Diagnostics diagnosticsOf(SQLSMALLINT type, SQLHANDLE handle, TextWay way) {
  constexpr SQLSMALLINT kMostRecords = 8;
  Diagnostics records;
  DiagnosticText record;
  for (SQLSMALLINT i = 1; i <= kMostRecords && readDiagnostic(type, handle, i, way, record); ++i) {
    records.push_back(record);
  }
  return records;
}

/// SQLite's driver has one SQLSTATE for all; it gives SQLite's own result code as the native number, and -1
/// for what it refuses itself.
bool isSqliteRefusal(const DiagnosticText& record) {
  constexpr SQLINTEGER kSqliteError = 1, kRefusedByDriver = -1;
  const bool general = record.state == "HY000" || record.state == "S1000";
  return general && (record.native == kSqliteError || record.native == kRefusedByDriver);
}

/// Class 42 is a refusal, 37 and S0 are what ODBC 2 drivers say for it; 07 is a stray parameter mark, as a
/// name with an apostrophe can leave one outside the quotes.
bool isRefusal(const DiagnosticText& record, Engine engine) {
  constexpr std::array<std::string_view, 4> kClasses{"42", "37", "S0", "07"};
  if (engine == Engine::Sqlite && isSqliteRefusal(record)) return true;
  return std::any_of(kClasses.begin(), kClasses.end(),
                     [&](auto state) { return record.state.starts_with(state); });
}

struct Advice {
  std::string_view state;  ///< SQLSTATE; empty: SQLite, by native number
  SQLINTEGER native;
  std::string_view words;
};

constexpr std::array<Advice, 10> kAdvice{{
    {"IM002", 0,
     "No such data source is set up on this computer. Set it up, or run the product's set-up again."},
    {"IM003", 0, "The data source's ODBC driver is not installed or can't be loaded."},
    {"", 5, "Another program holds the database locked. Close it and try again."},
    {"", 6, "Another program holds the database locked. Close it and try again."},
    {"", 8, "The database can only be read. Check the rights on its file and folder."},
    {"", 10, "The database's file can't be read or written. Check the disk."},
    {"", 11, "The database is damaged. Restore it from a backup."},
    {"", 13, "The disk is full. Make room and try again."},
    {"", 14,
     "The database's file is missing or can't be opened. Check the path in the data source and its rights."},
    {"", 26, "The file that the data source names is no database. Restore it from a backup."},
}};

std::string_view adviceFor(const DiagnosticText& record) {
  for (const Advice& advice : kAdvice) {
    const bool sqlite = record.words.find("[SQLite]") != std::string::npos && record.native == advice.native;
    if (advice.state.empty() ? sqlite : advice.state == record.state) return advice.words;
  }
  return {};
}

/// A driver's words in one line: descriptions end up in logs that have a line per entry.
std::string inOneLine(std::string words) {
  std::replace_if(
      words.begin(), words.end(), [](char letter) { return letter == '\n' || letter == '\r'; }, ' ');
  return words;
}

std::string describe(const std::string& what, const Diagnostics& records) {
  std::string text = what + ":";
  for (const DiagnosticText& record : records)
    text += " " + inOneLine(record.words) + " (SQLSTATE " + record.state + ")";
  if (records.empty()) return text + " the driver gives no reason.";
  const std::string_view advice = adviceFor(records.front());
  return advice.empty() ? text : text + " " + std::string(advice);
}

}  // namespace

RuntimeError odbcError(const FailedStep& step) {
  const Diagnostics records = diagnosticsOf(step.type, step.handle, step.way);
  const bool refused = std::any_of(records.begin(), records.end(),
                                   [&](const auto& record) { return isRefusal(record, step.engine); });
  return {refused ? kStatementRefused : kDatabaseFailed, describe(step.what, records)};
}

}  // namespace varnhold::store::odbc
