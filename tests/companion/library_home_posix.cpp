#include <cstdlib>

#include "tests/companion/library_home.h"

namespace varnhold::companion::test {

void useHome(const std::filesystem::path& folder) {
  ::setenv("VARNHOLD_HOME", folder.c_str(), 1);
}

}  // namespace varnhold::companion::test
