#include "tools/provision/odbc_ini.h"

#include "base/text.h"

namespace varnhold::provision {
namespace {

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
}

/// Calls `see` with each trimmed line that stands in the data source's section, its heading first; `see`
/// returns false to stop.
template <typename See>
void eachLine(std::string_view odbcIni, std::string_view dataSource, See see) {
  const auto heading = "[" + std::string(dataSource) + "]";
  bool inside = false;
  for (const auto& raw : split(odbcIni, '\n')) {
    const auto line = trimmed(raw);
    if (line.empty() || line[0] == ';' || line[0] == '#') continue;
    if (line[0] == '[') inside = equalsIgnoringCase(line, heading);
    if (inside && !see(line)) return;
  }
}

}  // namespace

bool hasDataSource(std::string_view odbcIni, std::string_view dataSource) {
  bool found = false;
  eachLine(odbcIni, dataSource, [&](const std::string&) {
    found = true;
    return false;
  });
  return found;
}

std::optional<std::string> dataSourceValue(std::string_view odbcIni, std::string_view dataSource,
                                           std::string_view name) {
  std::optional<std::string> value;
  eachLine(odbcIni, dataSource, [&](const std::string& line) {
    const auto equals = line.find('=');
    if (equals == std::string::npos || !equalsIgnoringCase(trimmed(line.substr(0, equals)), name))
      return true;
    value = trimmed(line.substr(equals + 1));
    return false;
  });
  return value;
}

}  // namespace varnhold::provision
