#include "tools/provision/odbc_ini.h"

#include <gtest/gtest.h>

namespace varnhold::provision {
namespace {

constexpr auto kTwoSources =
    "; [qrvdb] is not here\r\n[other]\r\nDriver = Other\r\n\r\n [QRVDB] \r\n# Driver = No\r\n driver "
    "=PostgreSQL "
    "Unicode \r\nDatabase=a = b\r\n[last]\r\nDriver = Last\r\n";

TEST(OdbcIni, FindsADataSourceWhateverItsCaseAndBlanks) {
  EXPECT_TRUE(hasDataSource(kTwoSources, "qrvdb"));
  EXPECT_TRUE(hasDataSource("[qrvdb]", "qrvdb"));
}

TEST(OdbcIni, ACommentOrAnotherNameIsNoDataSource) {
  EXPECT_FALSE(hasDataSource("", "qrvdb"));
  EXPECT_FALSE(hasDataSource(";[qrvdb]\n#[qrvdb]\n[qrvdb2]\nqrvdb = x\n", "qrvdb"));
}

TEST(OdbcIni, ReadsAValueOfItsOwnSectionOnly) {
  EXPECT_EQ(dataSourceValue(kTwoSources, "qrvdb", "Driver"), "PostgreSQL Unicode");
  EXPECT_EQ(dataSourceValue(kTwoSources, "qrvdb", "database"), "a = b");
  EXPECT_EQ(dataSourceValue(kTwoSources, "qrvdb", "Server"), std::nullopt);
  EXPECT_EQ(dataSourceValue(kTwoSources, "none", "Driver"), std::nullopt);
}

TEST(OdbcIni, AnyBytesCanBeRead) {
  EXPECT_FALSE(hasDataSource(std::string("\0\xFF[\n]\r=\n[", 10), "qrvdb"));
  EXPECT_EQ(dataSourceValue("[qrvdb]\n=\n=x\nDriver", "qrvdb", "Driver"), std::nullopt);
}

}  // namespace
}  // namespace varnhold::provision
