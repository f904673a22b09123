#pragma once

#include <string>

namespace varnhold::platform::windows {

/// One closed library, loaded when a function of it is first asked for and kept until the process ends.
class ClosedLibrary {
 public:
  /// `folder` without closing backslash is the only place where `fileName` is looked for.
  ClosedLibrary(std::string folder, std::string fileName);

  /// The function of that name, which is of this type. Raises RuntimeError kFileNotFound without the library
  /// and kLibraryFunctionMissing without the function.
  template <typename Function>
  [[nodiscard]] Function* function(const char* name) {
    return reinterpret_cast<Function*>(address(name));
  }

 private:
  using Address = void (*)();

  [[nodiscard]] Address address(const char* name);
  void load();

  std::string path_;
  void* module_ = nullptr;
};

}  // namespace varnhold::platform::windows
