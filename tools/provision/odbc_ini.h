#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What provisioning reads of an odbc.ini, as unixODBC understands it: names compare without case, blanks
/// around names and values don't count, `;` and `#` begin a comment line.
namespace varnhold::provision {

[[nodiscard]] bool hasDataSource(std::string_view odbcIni, std::string_view dataSource);

/// A value of the data source's section; nothing when there is none.
[[nodiscard]] std::optional<std::string> dataSourceValue(std::string_view odbcIni,
                                                         std::string_view dataSource, std::string_view name);

}  // namespace varnhold::provision
