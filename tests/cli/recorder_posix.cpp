#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

#include "tests/cli/recorder.h"

namespace varnhold::cli {

void* forwardedFunction(const char* name) {
  static void* const library = dlopen(std::getenv("VARNHOLD_RECORDED_LIBRARY"), RTLD_NOW | RTLD_LOCAL);
  void* const function = library == nullptr ? nullptr : dlsym(library, name);
  if (function == nullptr) {
    std::fprintf(stderr, "recorder: %s: %s\n", name, dlerror());
    std::abort();
  }
  return function;
}

}  // namespace varnhold::cli
