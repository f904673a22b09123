#include "tests/platform/posix/temporary_folder.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace varnhold::platform::posix {

TemporaryFolder::TemporaryFolder() {
  auto pattern = (std::filesystem::temp_directory_path() / "varnhold_posix_XXXXXX").string();
  path_ = ::mkdtemp(pattern.data());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, std::string_view content) {
  std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
}

}  // namespace varnhold::platform::posix
