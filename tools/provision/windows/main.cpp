#include <filesystem>

#include "tools/provision/home_files.h"
#include "tools/provision/run.h"

/// The wide form of main: the narrow one has lost every letter that the ANSI code page does not know.
extern "C" int wmain(int argc, wchar_t** argv) {
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) arguments.push_back(varnhold::provision::utf8FromPath(argv[i]));
  return varnhold::provision::run(arguments, {});
}
