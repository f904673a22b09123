#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "store/connection.h"

namespace varnhold::provision {

struct Ended {
  int status = -1;
  std::string out, err;
};

/// Runs the built varnhold-provision for real, with the arguments as they are, in `folder`. The environment
/// is ours without ODBCINI and the home's variables, and with `environment` ("NAME=value").
[[nodiscard]] Ended runProvision(const std::vector<std::string>& arguments,
                                 const std::vector<std::string>& environment = {},
                                 const std::filesystem::path& folder = ".");

/// Every file below the folder with its content, and every folder with "<folder>", by its relative path.
[[nodiscard]] std::map<std::string, std::string> contentsOf(const std::filesystem::path& folder);

[[nodiscard]] std::string contentOf(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, const std::string& content);

/// The names in a folder, sorted.
[[nodiscard]] std::vector<std::string> namesIn(const std::filesystem::path& folder);

/// This computer's name, as the program has it.
[[nodiscard]] std::string managerName();

/// A value of the home's registry: `text:...`, `number:<byte>:...` lowest first, or `missing`.
[[nodiscard]] std::string registryValue(const std::filesystem::path& home, std::string_view key,
                                        std::string_view name);

/// An odbc.ini whose data source leads to the database file.
[[nodiscard]] std::string iniFor(const std::filesystem::path& database);

inline const std::vector<std::string> kTables = {"System_Table", "Module_Table", "System_Group_Master",
                                                 "System_Group_Detail", "System_Group"};

/// Opens the SQLite file of a home, whatever homes this process looked at before.
void openDatabase(store::Connection& connection, const std::filesystem::path& database);

/// The rows of a SELECT, as text, columns joined by `|`, NULL as `-`.
[[nodiscard]] std::vector<std::string> rowsOf(store::Connection& connection, const std::string& select,
                                              const std::vector<std::string>& columns);

/// A folder of its own for each test, taken away again.
class ProvisionTest : public testing::Test {
 protected:
  ProvisionTest();
  ~ProvisionTest() override;

  const std::filesystem::path folder;
};

}  // namespace varnhold::provision
