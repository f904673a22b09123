#include "tests/platform/windows/temporary_folder.h"

#include <windows.h>

#include <atomic>
#include <string>

#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

std::filesystem::path freshPath() {
  static std::atomic<unsigned> made{0};
  const auto name = L"varnhold-" + std::to_wstring(GetCurrentProcessId()) + L'-' + std::to_wstring(++made);
  return std::filesystem::temp_directory_path() / name;
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(freshPath()) {
  // Numbers of processes come again, and one that was killed has left its folders.
  while (!std::filesystem::create_directory(path_)) path_ = freshPath();
}

TemporaryFolder::~TemporaryFolder() {
  // A batch file stays open a little longer than it takes to do its work.
  std::error_code error;
  for (int tries = 0; tries < 200; ++tries) {
    std::filesystem::remove_all(path_, error);
    if (!error) return;
    Sleep(10);
  }
}

std::string TemporaryFolder::path() const {
  return fromWide(path_.wstring());
}

}  // namespace varnhold::platform::windows
