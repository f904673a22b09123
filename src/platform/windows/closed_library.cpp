#include "platform/windows/closed_library.h"

#include <windows.h>

#include "base/runtime_error.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

/// Why a library was not loaded and what to do, by the number of GetLastError.
RuntimeError loadError(const std::string& path, DWORD error) {
  const bool isThere = GetFileAttributesW(toWide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
  if (!isThere) {
    return {kFileNotFound,
            "The library \"" + path +
                "\" is not there, and it is looked for nowhere else. Install the product again, "
                "or copy the library into that folder."};
  }
  return {kFileNotFound,
          "The library \"" + path + "\" cannot be loaded (Windows error " + std::to_string(error) +
              "): it is damaged, is made for another kind of processor, or lacks a library that "
              "it needs itself. Install the product again."};
}

}  // namespace

ClosedLibrary::ClosedLibrary(std::string folder, std::string fileName)
    : path_(std::move(folder) + '\\' + std::move(fileName)) {}

void ClosedLibrary::load() {
  // The libraries that it needs itself stand beside it.
  module_ = LoadLibraryExW(toWide(path_).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (module_ == nullptr) throw loadError(path_, GetLastError());
}

ClosedLibrary::Address ClosedLibrary::address(const char* name) {
  if (module_ == nullptr) load();
  const auto found = GetProcAddress(static_cast<HMODULE>(module_), name);
  if (found != nullptr) return reinterpret_cast<Address>(found);
  throw RuntimeError(kLibraryFunctionMissing,
                     "The library \"" + path_ + "\" has no function " + name +
                         ": it belongs to another version of the product. Install the product again.");
}

}  // namespace varnhold::platform::windows
