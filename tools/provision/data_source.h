#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/registry.h"

namespace varnhold::provision {

/// The ODBC data source of the inventory, as the host keeps it. Errors are RuntimeErrors that say where it is
/// kept and what to do. Each host has its own source.
class DataSource {
 public:
  virtual ~DataSource() = default;

  /// True when the host knows the data source already, whether or not it can be opened.
  [[nodiscard]] virtual bool exists() = 0;
  /// Makes it for the embedded engine, with the database file in `home`. Only when it does not exist.
  virtual void create(const std::filesystem::path& home) = 0;
  /// The name of its driver, for the registry. Only when it exists.
  [[nodiscard]] virtual std::string driverName() = 0;
  /// Where it is kept, for people.
  [[nodiscard]] virtual std::string place() const = 0;
};

/// The data source of the product for the home; the adapters of the host are made already.
[[nodiscard]] std::unique_ptr<DataSource> makeDataSource(const std::filesystem::path& home,
                                                         platform::Registry& registry);

}  // namespace varnhold::provision
