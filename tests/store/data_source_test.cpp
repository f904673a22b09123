#include "store/data_source.h"

#include <gtest/gtest.h>

namespace varnhold::store {
namespace {

TEST(DataSource, IsRenderedAsASectionOfOdbcIni) {
  EXPECT_EQ(renderDataSource("/home/me/.local/share/varnhold/qrvdbv3.mdb"),
            "[qrvdb]\n"
            "Driver=SQLite3\n"
            "Database=/home/me/.local/share/varnhold/qrvdbv3.mdb\n"
            "Timeout=20000\n"
            "JournalMode=WAL\n"
            "SyncPragma=NORMAL\n"
            "NoCreat=1\n"
            "StepAPI=0\n"
            "BigInt=1\n");
}

TEST(DataSource, MayHaveAnotherName) {
  EXPECT_EQ(renderSqliteDataSource("second", "/x").substr(0, 36), "[second]\nDriver=SQLite3\nDatabase=/x\n");
}

}  // namespace
}  // namespace varnhold::store
