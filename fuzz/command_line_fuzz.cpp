// The command line and the list file of the command-line installer, on any bytes.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/runtime_error.h"
#include "startup/command_line.h"

namespace {

using namespace varnhold;

void require(bool holds) {
  if (!holds) std::abort();
}

bool isBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

void readCommandLine(std::string_view text) {
  try {
    const auto line = startup::parseCommandLine(text);
    if (line.kind == startup::CommandLineKind::Usage) return;
    require(line.action == startup::kCliInstall || line.action == startup::kCliUninstall);
    require(!isBlank(line.path));
    require(isBlank(line.value) == (line.kind == startup::CommandLineKind::EmptyValue));
    require(line.value.find("-P:") == std::string::npos);
  } catch (const RuntimeError& error) {
    require(error.number() == kInvalidProcedureCall);
  }
}

void readList(std::string_view content) {
  const auto computers = startup::computersOfList(content);
  require(!computers.empty() && computers.back().empty());
  for (const auto& computer : computers) require(computer.find_first_of(",\r\n") == std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  readCommandLine(text);
  readList(text);
  return 0;
}
