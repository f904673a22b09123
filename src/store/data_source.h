#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace varnhold::store {

/// The product's data source.
inline constexpr std::string_view kDataSourceName = "qrvdb";

/// The driver of the embedded default store, as the SQLite driver's package registers it with unixODBC.
inline constexpr std::string_view kSqliteDriver = "SQLite3";

/// How the SQLite driver opens the embedded default store. Two processes have it open at once, this program
/// and the closed library in another connection:
/// - Timeout: the milliseconds that a writer waits for another before it gives up with "locked";
/// - JournalMode WAL: readers and a writer never wait for each other, and a process that is killed leaves a
///   file that the next opener recovers, with every committed row;
/// - SyncPragma NORMAL: with WAL, a power cut may cost the last commits but never the database, and a commit
///   need not wait for the disk;
/// - NoCreat: a wrong path is an error, not an empty inventory. What sets a home up makes the empty file;
/// - StepAPI off: a result is read at once, so that no read is open while the next statement runs;
/// - BigInt: whole numbers come with all their digits.
inline constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kSqliteSettings{{
    {"Timeout", "20000"},
    {"JournalMode", "WAL"},
    {"SyncPragma", "NORMAL"},
    {"NoCreat", "1"},
    {"StepAPI", "0"},
    {"BigInt", "1"},
}};

/// The keywords and values of the embedded default's data source, in order, the driver apart. `databaseFile`
/// is the whole path of the database, in the host's own form.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> sqliteSettings(std::string_view databaseFile);

/// The section of odbc.ini for a data source of that name on an SQLite file, ended by a line feed.
[[nodiscard]] std::string renderSqliteDataSource(std::string_view name, std::string_view databaseFile);

/// The same for the product's own data source.
[[nodiscard]] std::string renderDataSource(std::string_view databaseFile);

}  // namespace varnhold::store
