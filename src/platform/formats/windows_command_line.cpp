#include "platform/formats/windows_command_line.h"

namespace varnhold::platform {
namespace {

bool isSpace(char letter) {
  return static_cast<unsigned char>(letter) <= ' ';
}

}  // namespace

std::string argumentsOf(std::string_view commandLine) {
  std::size_t at = 0;
  bool quoted = false;
  for (; at < commandLine.size() && (quoted || !isSpace(commandLine[at])); ++at) {
    if (commandLine[at] == '"') quoted = !quoted;
  }
  while (at < commandLine.size() && isSpace(commandLine[at])) ++at;
  return std::string(commandLine.substr(at));
}

}  // namespace varnhold::platform
