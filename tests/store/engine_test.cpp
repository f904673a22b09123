#include "store/engine.h"

#include <gtest/gtest.h>

namespace varnhold::store {
namespace {

TEST(Engine, IsKnownByTheNameThatItsDriverGives) {
  EXPECT_EQ(engineOfDbmsName("SQLite"), Engine::Sqlite);
  EXPECT_EQ(engineOfDbmsName("Microsoft SQL Server"), Engine::SqlServer);
  EXPECT_EQ(engineOfDbmsName("PostgreSQL"), Engine::PostgreSql);
  EXPECT_EQ(engineOfDbmsName("MariaDB"), Engine::MariaDb);
  EXPECT_EQ(engineOfDbmsName("MySQL"), Engine::MariaDb);
  EXPECT_EQ(engineOfDbmsName("ACCESS"), Engine::Other);
  EXPECT_EQ(engineOfDbmsName(""), Engine::Other);
}

constexpr std::string_view kBrackets =
    "SELECT DISTINCT *  FROM System_Group WHERE (System_Group.System_Name=[System_Table].[System_Name]) AND "
    "G = 'a[b]'";

TEST(Dialect, DropsSquareBracketsForEnginesThatDoNotKnowThem) {
  for (const Engine engine : {Engine::PostgreSql, Engine::MariaDb}) {
    EXPECT_EQ(inDialectOf(engine, kBrackets),
              "SELECT DISTINCT *  FROM System_Group WHERE "
              "(System_Group.System_Name=System_Table.System_Name) AND G = "
              "'a[b]'");
  }
}

TEST(Dialect, LeavesSquareBracketsToEnginesThatKnowThem) {
  for (const Engine engine : {Engine::Sqlite, Engine::SqlServer, Engine::Other}) {
    EXPECT_EQ(inDialectOf(engine, kBrackets), kBrackets);
  }
}

TEST(Dialect, LeavesQuotedTextUntouched) {
  for (const char* text : {"SELECT '[a]', \"[b]\"", "SELECT 'it''s [a]'", "SELECT '[never closed", "", "'",
                           "\"['\"", "SELECT '\"[a]'"}) {
    EXPECT_EQ(inDialectOf(Engine::PostgreSql, text), text);
  }
  EXPECT_EQ(inDialectOf(Engine::PostgreSql, "'['[a]']'"), "'['a']'");
}

TEST(Dialect, NamesOneRowInEachEnginesWords) {
  const auto update = [](Engine engine) {
    return oneRowStatement(engine, "UPDATE", "T", "\"A\" = ?", "\"B\" = ?");
  };
  const auto remove = [](Engine engine) { return oneRowStatement(engine, "DELETE", "T", "", "\"B\" = ?"); };
  EXPECT_EQ(update(Engine::Sqlite),
            "UPDATE T SET \"A\" = ? WHERE rowid = (SELECT rowid FROM T WHERE \"B\" = ? LIMIT 1)");
  EXPECT_EQ(remove(Engine::Sqlite),
            "DELETE FROM T WHERE rowid = (SELECT rowid FROM T WHERE \"B\" = ? LIMIT 1)");
  EXPECT_EQ(update(Engine::PostgreSql),
            "UPDATE T SET \"A\" = ? WHERE ctid = (SELECT ctid FROM T WHERE \"B\" = ? LIMIT 1)");
  EXPECT_EQ(remove(Engine::PostgreSql),
            "DELETE FROM T WHERE ctid = (SELECT ctid FROM T WHERE \"B\" = ? LIMIT 1)");
  EXPECT_EQ(update(Engine::MariaDb), "UPDATE T SET \"A\" = ? WHERE \"B\" = ? LIMIT 1");
  EXPECT_EQ(remove(Engine::MariaDb), "DELETE FROM T WHERE \"B\" = ? LIMIT 1");
  EXPECT_EQ(update(Engine::SqlServer), "UPDATE TOP (1) T SET \"A\" = ? WHERE \"B\" = ?");
  EXPECT_EQ(remove(Engine::SqlServer), "DELETE TOP (1) FROM T WHERE \"B\" = ?");
}

}  // namespace
}  // namespace varnhold::store
