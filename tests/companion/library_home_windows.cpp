#include "tests/companion/library_home.h"

namespace varnhold::companion::test {

void useHome(const std::filesystem::path&) {}

}  // namespace varnhold::companion::test
