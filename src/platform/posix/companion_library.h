#pragma once

#include <map>
#include <string>
#include <vector>

#include "companion/include/qrvhost.h"
#include "companion/include/vhwlogonctrl.h"

namespace varnhold::platform::posix {

inline constexpr const char* kCompanionFile = "libqrvUtil.so";
inline constexpr const char* kLogonControlFile = "libVhwLogonCtrl.so";

/// A companion library, loaded when a function of it is first asked for and kept to the end of the process:
/// its worker threads may outlive their job. Main thread.
class CompanionLibrary {
 public:
  /// `folders` are searched for the file in this order.
  explicit CompanionLibrary(std::vector<std::string> folders, std::string fileName = kCompanionFile)
      : folders_(std::move(folders)), fileName_(std::move(fileName)) {}

  /// The function of that name, as `decltype(qrvCInstall)` has its type. Raises kFileNotFound when the
  /// library is in none of the folders or cannot be loaded, kLibraryFunctionMissing when it lacks the
  /// function.
  template <class Function>
  [[nodiscard]] Function* function(const std::string& name) {
    return reinterpret_cast<Function*>(symbol(name));
  }

 private:
  void* symbol(const std::string& name);
  void load();

  std::vector<std::string> folders_;
  std::string fileName_;
  std::string path_;  ///< of the loaded library
  void* library_ = nullptr;
  std::map<std::string, void*> symbols_;
};

/// Where a companion library may lie: the home, beside the executable, and `../lib` of it.
[[nodiscard]] std::vector<std::string> companionFolders(const std::string& home);

}  // namespace varnhold::platform::posix
