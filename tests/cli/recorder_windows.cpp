#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "tests/cli/recorder.h"

namespace varnhold::cli {

void* forwardedFunction(const char* name) {
  static const auto library = LoadLibraryA(std::getenv("VARNHOLD_RECORDED_LIBRARY"));
  const auto function = library == nullptr ? nullptr : GetProcAddress(library, name);
  if (function == nullptr) {
    std::fprintf(stderr, "recorder: %s is not there\n", name);
    std::exit(3);
  }
  return reinterpret_cast<void*>(function);
}

}  // namespace varnhold::cli
