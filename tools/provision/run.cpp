#include "tools/provision/run.h"

#include <iostream>

#include "base/runtime_error.h"
#include "base/text.h"
#include "tools/provision/data_source.h"
#include "tools/provision/home.h"
#include "tools/provision/home_files.h"
#include "tools/provision/options.h"
#include "tools/provision/provision.h"

namespace varnhold::provision {
namespace {

void provisionHost(const Options& options, platform::ProcessStart start) {
  if (options.home) start.home = utf8FromPath(resolveHome(*options.home));
  const auto adapters = platform::makeHostAdapters(start);
  const auto home = resolveHome(start.home ? *start.home : adapters->environment().programFolder());
  const auto name = TrimAtNull(adapters->environment().getComputerName().value_or(""));
  const auto dataSource = makeDataSource(home, adapters->registry());
  provision(options, home, {adapters->registry(), *dataSource, name.empty() ? "LocalHost" : name}, std::cout);
}

}  // namespace

int run(const std::vector<std::string>& arguments, platform::ProcessStart start) {
  const auto [options, error] = parseOptions(arguments);
  if (!error.empty()) {
    std::cerr << "varnhold-provision: " << error << "\n\n" << usage();
    return 2;
  }
  if (options.help) {
    std::cout << usage();
    return 0;
  }
  try {
    provisionHost(options, std::move(start));
    return 0;
  } catch (const RuntimeError& failure) {
    std::cerr << "varnhold-provision: " << failure.description() << "\n";
    return 1;
  }
}

}  // namespace varnhold::provision
