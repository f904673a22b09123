#include "tools/provision/data_source.h"

#include <windows.h>

#include <odbcinst.h>

#include "base/runtime_error.h"
#include "base/text.h"
#include "core/registry_values.h"
#include "store/connection.h"
#include "store/data_source.h"
#include "tools/provision/home.h"
#include "tools/provision/home_files.h"
#include "tools/provision/inventory.h"

namespace varnhold::provision {
namespace {

constexpr const char* kPlace = "the system data sources of the ODBC administrator (64 bit)";
constexpr const char* kDriver = "SQLite3 ODBC Driver";

std::wstring wide(const std::string& text) {
  return pathFromUtf8(text).wstring();
}

/// What the ODBC installer says about its last failure.
std::string installerWords() {
  std::string words;
  for (WORD i = 1; i <= 8; ++i) {
    wchar_t text[SQL_MAX_MESSAGE_LENGTH] = {};
    DWORD number = 0;
    if (!SQL_SUCCEEDED(SQLInstallerErrorW(i, &number, text, SQL_MAX_MESSAGE_LENGTH, nullptr))) break;
    words += (words.empty() ? "" : " ") + utf8FromPath(text);
  }
  if (words.empty()) words = "no reason is given";
  return words.ends_with('.') ? words : words + ".";
}

class SystemDataSource : public DataSource {
 public:
  explicit SystemDataSource(platform::Registry& registry) : registry_(registry) {}

  bool exists() override { return !registeredDriver().empty() || opens(); }

  void create(const std::filesystem::path& home) override {
    auto attributes = wide("DSN=" + kDataSource) + L'\0';
    for (const auto& [keyword, value] : store::sqliteSettings(utf8FromPath(home / kDatabaseFile)))
      attributes += wide(keyword + "=" + value) + L'\0';
    if (SQLConfigDataSourceW(nullptr, ODBC_ADD_SYS_DSN, wide(kDriver).c_str(), attributes.c_str())) return;
    throw RuntimeError(kDatabaseFailed,
                       "Cannot make the data source '" + kDataSource + "' in " + kPlace + ": " +
                           installerWords() + " Install the driver '" + kDriver +
                           "' (64 bit), or make a data source of that name on another database, and run "
                           "varnhold-provision again with the rights of an administrator.");
  }

  std::string driverName() override {
    const auto registered = registeredDriver();
    return registered.empty() ? kDriver : registered;
  }

  std::string place() const override { return kPlace; }

 private:
  std::string registeredDriver() {
    platform::RegistryValue value;
    const auto outcome = registry_.query(platform::RegistryHive::LocalMachine, core::kDataSourcesKey,
                                         kDataSource, 1024, value);
    return outcome == platform::RegistryOutcome::Done ? TrimAtNull(value.bytes) : std::string();
  }

  /// Driver managers may know data sources that the registry does not list: a user's own, or another
  /// system's.
  static bool opens() {
    store::Connection connection;
    try {
      connection.Open(kDataSource, "", "");
      return true;
    } catch (const RuntimeError&) {
      return false;
    }
  }

  platform::Registry& registry_;
};

}  // namespace

std::unique_ptr<DataSource> makeDataSource(const std::filesystem::path& /*home*/,
                                           platform::Registry& registry) {
  return std::make_unique<SystemDataSource>(registry);
}

}  // namespace varnhold::provision
