#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "platform/registry.h"
#include "tools/provision/data_source.h"
#include "tools/provision/options.h"

namespace varnhold::provision {

/// What a home is made with.
struct Host {
  platform::Registry& registry;
  DataSource& dataSource;
  std::string computerName;  ///< of the manager
};

/// Makes the home at `home`, a path of `resolveHome`, and tells `out` what it made. Raises RuntimeErrors that
/// say what is in the way, where, and what to do; then nothing that was there before has changed, and what
/// was made is removed again.
void provision(const Options& options, const std::filesystem::path& home, const Host& host,
               std::ostream& out);

}  // namespace varnhold::provision
