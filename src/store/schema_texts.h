#pragma once

#include <string_view>

/// The files of schema/, put into the program by the build.
namespace varnhold::store::schema_texts {

extern const std::string_view kSqlite;
extern const std::string_view kSqlServer;
extern const std::string_view kPostgreSql;
extern const std::string_view kMariaDb;

}  // namespace varnhold::store::schema_texts
