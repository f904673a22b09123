#include "store/data_source.h"

namespace varnhold::store {

std::vector<std::pair<std::string, std::string>> sqliteSettings(std::string_view databaseFile) {
  std::vector<std::pair<std::string, std::string>> settings{{"Database", std::string(databaseFile)}};
  settings.insert(settings.end(), kSqliteSettings.begin(), kSqliteSettings.end());
  return settings;
}

std::string renderSqliteDataSource(std::string_view name, std::string_view databaseFile) {
  std::string section = "[" + std::string(name) + "]\nDriver=" + std::string(kSqliteDriver) + "\n";
  for (const auto& [keyword, value] : sqliteSettings(databaseFile)) section += keyword + "=" + value + "\n";
  return section;
}

std::string renderDataSource(std::string_view databaseFile) {
  return renderSqliteDataSource(kDataSourceName, databaseFile);
}

}  // namespace varnhold::store
