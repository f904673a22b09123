#include "platform/posix/companion_library.h"

#include <dlfcn.h>

#include <algorithm>
#include <filesystem>

#include "base/runtime_error.h"

namespace varnhold::platform::posix {
namespace {

namespace fs = std::filesystem;

std::string listed(const std::vector<std::string>& folders) {
  std::string list;
  for (const auto& folder : folders) list += (list.empty() ? "" : ", ") + folder;
  return list;
}

}  // namespace

void* CompanionLibrary::symbol(const std::string& name) {
  if (const auto known = symbols_.find(name); known != symbols_.end()) return known->second;
  load();
  void* const found = ::dlsym(library_, name.c_str());
  if (found == nullptr) {
    throw RuntimeError(kLibraryFunctionMissing, "The library " + path_ + " has no function " + name +
                                                    ". Put the library of this release in its place.");
  }
  symbols_[name] = found;
  return found;
}

void CompanionLibrary::load() {
  if (library_ != nullptr) return;
  const auto folder = std::find_if(folders_.begin(), folders_.end(), [this](const std::string& candidate) {
    std::error_code error;
    return fs::exists(fs::path(candidate) / fileName_, error);
  });
  if (folder == folders_.end()) {
    throw RuntimeError(kFileNotFound, "The library " + fileName_ + " was not found in " + listed(folders_) +
                                          ". Put it into one of these folders.");
  }
  path_ = (fs::path(*folder) / fileName_).string();
  library_ = ::dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library_ == nullptr) {
    const char* reason = ::dlerror();
    throw RuntimeError(kFileNotFound, "The library " + path_ + " cannot be loaded (" +
                                          (reason == nullptr ? "no reason given" : reason) +
                                          "). Put the library of this release in its place.");
  }
}

std::vector<std::string> companionFolders(const std::string& home) {
  std::vector<std::string> folders{home};
  std::error_code error;
  const auto program = fs::read_symlink("/proc/self/exe", error);
  if (!error) {
    const auto folder = program.parent_path();
    folders.push_back(folder.string());
    folders.push_back((folder.parent_path() / "lib").string());
  }
  return folders;
}

}  // namespace varnhold::platform::posix
