#include "tools/provision/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <string_view>

namespace varnhold::provision {
namespace {

/// Puts an option's value in its place; what is wrong with it, or nothing.
using Taker = std::string (*)(Options&, std::string_view value);

struct Option {
  std::string_view name, value, meaning;
  Taker take;
};

std::string takeNumber(std::string_view text, int most, int& number) {
  const auto allowed = "a whole number from 0 to " + std::to_string(most);
  int read = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
  if (error != std::errc{} || end != text.data() + text.size() || read < 0 || read > most)
    return "'" + std::string(text) + "' is not " + allowed;
  number = read;
  return {};
}

std::string takeHome(Options& options, std::string_view value) {
  if (value.empty()) return "the folder's name is empty";
  options.home = std::string(value);
  return {};
}

std::string takeLab(Options& options, std::string_view value) {
  return takeNumber(value, kMostLabComputers, options.labComputers);
}

std::string takeComputers(Options& options, std::string_view value) {
  return takeNumber(value, kMostInventoryComputers, options.inventoryComputers);
}

constexpr std::array<Option, 3> kOptions{{
    {"--home", "DIR", "the folder to make the home in (default: the host's own, see docs/home.md)", takeHome},
    {"--lab", "N", "computers in the lab (default 12)", takeLab},
    {"--computers", "N", "computers to fill the inventory with, for work at scale (default 0)",
     takeComputers},
}};

bool looksLikeOption(std::string_view argument) {
  return argument.starts_with("--");
}

/// Reads one option and, where it stands apart, its value; `at` ends on the last argument used.
std::string readOption(const std::vector<std::string>& arguments, std::size_t& at, Options& options,
                       std::set<std::string_view>& seen) {
  const std::string_view argument = arguments[at];
  const auto equals = argument.find('=');
  const auto name = argument.substr(0, equals);
  const auto option =
      std::find_if(kOptions.begin(), kOptions.end(), [&](const Option& o) { return o.name == name; });
  if (option == kOptions.end()) return "unknown option '" + std::string(argument) + "'";
  if (!seen.insert(option->name).second) return std::string(name) + " is given twice";
  if (equals == std::string_view::npos && (at + 1 == arguments.size() || looksLikeOption(arguments[at + 1])))
    return std::string(name) + " needs a value: " + std::string(option->value);
  const auto value =
      equals != std::string_view::npos ? argument.substr(equals + 1) : std::string_view(arguments[++at]);
  const auto wrong = option->take(options, value);
  return wrong.empty() ? wrong : std::string(name) + ": " + wrong;
}

}  // namespace

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
  ParsedOptions parsed;
  if (std::find(arguments.begin(), arguments.end(), "--help") != arguments.end()) {
    parsed.options.help = true;
    return parsed;
  }
  std::set<std::string_view> seen;
  for (std::size_t at = 0; at < arguments.size() && parsed.error.empty(); ++at)
    parsed.error = readOption(arguments, at, parsed.options, seen);
  return parsed;
}

std::string usage() {
  std::string text = "Usage: varnhold-provision";
  for (const auto& option : kOptions)
    text += " [" + std::string(option.name) + " " + std::string(option.value) + "]";
  text +=
      "\nMakes a home for Varnhold - System Manager: registry values, data source, tables, the material for\n"
      "remote installation, and a lab of computers to deploy to. Never overwrites a home that holds "
      "data.\n\n";
  for (const auto& option : kOptions) {
    auto left = "  " + std::string(option.name) + " " + std::string(option.value);
    left.resize(18, ' ');
    text += left + std::string(option.meaning) + "\n";
  }
  return text +
         "  --help          this text\n\nExit status: 0 done, 1 not done (the message says why), 2 wrong "
         "usage.\n";
}

}  // namespace varnhold::provision
