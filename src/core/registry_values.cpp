#include "core/registry_values.h"

#include <initializer_list>

namespace varnhold::core {
namespace {

std::string typeName(platform::RegistryType type) {
  return type == platform::kRegNumber ? "32-bit number" : "text";
}

std::string code(std::string_view text) {
  return "`" + std::string(text) + "`";
}

std::string row(std::initializer_list<std::string> cells) {
  std::string line = "|";
  for (const auto& cell : cells) line += " " + cell + " |";
  return line + "\n";
}

}  // namespace

std::string registryValuesAsMarkdown() {
  auto table = row({"Key", "Value", "Type", "When missing", "Read by", "Written by", "Use"}) +
               row({"---", "---", "---", "---", "---", "---", "---"});
  for (const auto& value : kRegistryValues) {
    table += row({code(value.key), code(value.name), typeName(value.type), std::string(value.whenMissing),
                  std::string(value.readBy), std::string(value.writtenBy), std::string(value.use)});
  }
  return table;
}

}  // namespace varnhold::core
