#include "tools/provision/data_source.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "base/runtime_error.h"
#include "store/data_source.h"
#include "tools/provision/home.h"
#include "tools/provision/home_files.h"
#include "tools/provision/inventory.h"
#include "tools/provision/odbc_ini.h"

namespace varnhold::provision {
namespace {

constexpr const char* kOwnFile = "odbc.ini";

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The file in which unixODBC looks for data sources: ODBCINI, which the host's adapters set to the home's
/// own file where nobody else set it.
class FileDataSource : public DataSource {
 public:
  FileDataSource(std::filesystem::path file, bool isOwn) : file_(std::move(file)), isOwn_(isOwn) {}

  bool exists() override { return hasDataSource(contentOf(file_), kDataSource); }

  void create(const std::filesystem::path& home) override {
    if (!isOwn_)
      throw RuntimeError(kPathFileAccess,
                         "The environment variable ODBCINI names '" + utf8FromPath(file_) +
                             "', where there is no data source '" + kDataSource +
                             "'. Add it to that file, or unset ODBCINI to have one made in the home.");
    auto text = contentOf(file_);
    if (!text.empty()) text += text.ends_with('\n') ? "\n" : "\n\n";
    writeWhole(file_, text + store::renderDataSource(utf8FromPath(home / kDatabaseFile)));
  }

  std::string driverName() override {
    return dataSourceValue(contentOf(file_), kDataSource, "Driver").value_or("");
  }

  std::string place() const override { return "'" + utf8FromPath(file_) + "'"; }

 private:
  std::filesystem::path file_;
  bool isOwn_;
};

}  // namespace

std::unique_ptr<DataSource> makeDataSource(const std::filesystem::path& home,
                                           platform::Registry& /*registry*/) {
  const auto own = home / kOwnFile;
  const char* named = std::getenv("ODBCINI");
  const auto file = named == nullptr || *named == '\0' ? own : std::filesystem::path(named);
  return std::make_unique<FileDataSource>(file, file.lexically_normal() == own);
}

}  // namespace varnhold::provision
