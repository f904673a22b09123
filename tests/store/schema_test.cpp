#include "store/schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/runtime_error.h"

namespace varnhold::store {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr Engine kEngines[] = {Engine::Sqlite, Engine::SqlServer, Engine::PostgreSql, Engine::MariaDb};

TEST(Schema, AFileIsReadAsStatements) {
  EXPECT_EQ(
      schemaStatements("-- why\n\nCREATE TABLE A (\n  B INT\n);\r\n\nCREATE INDEX C ON A (B);\nDROP TABLE A"),
      (std::vector<std::string>{"CREATE TABLE A (\n  B INT\n)", "CREATE INDEX C ON A (B)", "DROP TABLE A"}));
  EXPECT_TRUE(schemaStatements("").empty());
  EXPECT_TRUE(schemaStatements("-- nothing;\n\n").empty());
}

TEST(Schema, EveryEnginesHasTheSameTablesAndKeys) {
  for (const Engine engine : kEngines) {
    const auto statements = schemaStatements(schemaText(engine));
    ASSERT_EQ(statements.size(), 12u);
    std::vector<std::string> words;
    for (const std::string& statement : statements) {
      std::string word = statement.substr(0, statement.find_first_of("(") - 1);
      for (const char* extra : {"dbo.", "NONCLUSTERED "}) {
        for (auto at = word.find(extra); at != std::string::npos; at = word.find(extra)) {
          word.erase(at, std::string(extra).size());
        }
      }
      words.push_back(word);
    }
    EXPECT_EQ(words, (std::vector<std::string>{
                         "CREATE TABLE System_Table",
                         "CREATE UNIQUE INDEX System_Table_Key ON System_Table",
                         "CREATE TABLE Module_Table",
                         "CREATE INDEX Module_Table_Index ON Module_Table",
                         "CREATE TABLE System_Group_Master",
                         "CREATE UNIQUE INDEX System_Group_Master_Key ON System_Group_Master",
                         "CREATE TABLE System_Group_Detail",
                         "CREATE INDEX System_Group_Detail_Index ON System_Group_Detail",
                         "CREATE TABLE System_Group",
                         "CREATE UNIQUE INDEX System_Group_Key ON System_Group",
                         "CREATE INDEX System_Group_Index ON System_Group",
                         "CREATE TABLE Events_Table",
                     }));
  }
}

TEST(Schema, EveryEngineHasTheDocumentedColumns) {
  const std::vector<std::vector<std::string>> columns{
      {"System_Name", "System_Type", "IP_Address", "System_Description"},
      {"System_Name", "Module_ID", "Install_Directory", "Manual", "Agentless", "Port", "SystemType"},
      {"Group_Name", "Description", "Auto"},
      {"Group_Name", "OS_Type", "IP_Subnet", "Domain"},
      {"System_Name", "Group_Name"},
      {"Computer"},
  };
  for (const Engine engine : kEngines) {
    std::size_t table = 0;
    for (const std::string& statement : schemaStatements(schemaText(engine))) {
      if (!statement.starts_with("CREATE TABLE")) continue;
      for (const std::string& column : columns[table])
        EXPECT_THAT(statement, HasSubstr("\n  " + column + " "));
      ++table;
    }
    EXPECT_EQ(table, columns.size());
  }
}

TEST(Schema, OnlyKeysMayNotBeNull) {
  for (const Engine engine : kEngines) {
    const std::string text(schemaText(engine));
    for (const char* column : {"Agentless", "Port", "SystemType", "IP_Address", "System_Description",
                               "IP_Subnet", "Domain", "Description", "Computer"}) {
      const auto at = text.find("\n  " + std::string(column) + " ");
      ASSERT_NE(at, std::string::npos);
      EXPECT_THAT(text.substr(at, text.find('\n', at + 1) - at), Not(HasSubstr("NOT NULL")));
    }
  }
}

TEST(Schema, NamesCompareExactlyOnEveryEngine) {
  EXPECT_THAT(std::string(schemaText(Engine::SqlServer)),
              HasSubstr("System_Name NVARCHAR(256) COLLATE Latin1_General_100_BIN2 NOT NULL"));
  EXPECT_THAT(std::string(schemaText(Engine::PostgreSql)),
              HasSubstr("System_Name VARCHAR(256) COLLATE \"C\" NOT NULL"));
  EXPECT_THAT(std::string(schemaText(Engine::MariaDb)), HasSubstr("COLLATE utf8mb4_nopad_bin"));
  EXPECT_THAT(std::string(schemaText(Engine::Sqlite)), Not(HasSubstr("NOCASE")));
}

TEST(Schema, TheEventStoreRefersToAComputerOnSqlServerAlone) {
  const auto statements = schemaStatements(schemaText(Engine::SqlServer));
  EXPECT_EQ(statements.back(),
            "CREATE TABLE dbo.Events_Table (\n"
            "  Computer NVARCHAR(256) COLLATE Latin1_General_100_BIN2\n"
            "    CONSTRAINT Events_Table_Computer FOREIGN KEY REFERENCES dbo.System_Table (System_Name)\n"
            ")");
  for (const Engine engine : {Engine::Sqlite, Engine::PostgreSql, Engine::MariaDb}) {
    EXPECT_THAT(std::string(schemaText(engine)), Not(HasSubstr("FOREIGN KEY")));
  }
}

TEST(Schema, AnUnknownEngineHasNone) {
  try {
    (void)schemaText(Engine::Other);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), kDatabaseFailed);
  }
}

}  // namespace
}  // namespace varnhold::store
