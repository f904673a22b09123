#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "store/data_source.h"

namespace varnhold::store {

/// The folder of this program's databases. The driver manager wants paths as its own system writes them, so
/// that the text that the build gives is what goes into odbc.ini.
inline const std::string kFolder = VARNHOLD_STORE_FOLDER;

/// Makes a new folder with the odbc.ini that ODBCINI names and the data sources of these tests, each as what
/// sets a home up would make it.
class SqliteDataSources : public testing::Environment {
 public:
  void SetUp() override {
    std::filesystem::remove_all(kFolder);
    std::filesystem::create_directories(kFolder);
    ini_.open(kFolder + "/odbc.ini", std::ios::binary);
    add("inventory", "qrvdbv3.mdb");
    std::ofstream(kFolder + "/qrvdbv3.mdb").flush();
    add("absent", "absent.mdb");
    add("no database", "text.mdb");
    std::ofstream(kFolder + "/text.mdb") << std::string(4096, 'x');
    add("second", "second.mdb");
    std::ofstream(kFolder + "/second.mdb").flush();
    // As the product's own, but for the time that it waits for another program.
    ini_ << "[hasty]\nDriver=" << kSqliteDriver << "\nDatabase=" << kFolder << "/second.mdb\nTimeout=300\n"
         << "JournalMode=WAL\nNoCreat=1\n";
    ini_.close();
    ASSERT_FALSE(ini_.fail());
  }

 private:
  void add(const std::string& name, const std::string& file) {
    ini_ << renderSqliteDataSource(name, kFolder + "/" + file);
  }

  std::ofstream ini_;
};

}  // namespace varnhold::store
