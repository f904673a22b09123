#include "tools/provision/work_mark.h"

#include <windows.h>

#include <system_error>

#include "base/runtime_error.h"
#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

/// The open file shares nothing, and goes away when its handle is closed in good order.
class HeldMark : public WorkMark {
 public:
  HeldMark(std::filesystem::path file, HANDLE handle, bool wasThere)
      : file_(std::move(file)), handle_(handle), wasThere_(wasThere) {}
  ~HeldMark() override {
    CloseHandle(handle_);
    if (!stays_) DeleteFileW(file_.c_str());
  }
  HeldMark(const HeldMark&) = delete;
  HeldMark& operator=(const HeldMark&) = delete;

  [[nodiscard]] bool wasThere() const override { return wasThere_; }
  void leaveBehind() override { stays_ = true; }

 private:
  std::filesystem::path file_;
  HANDLE handle_;
  bool wasThere_;
  bool stays_ = false;
};

}  // namespace

std::unique_ptr<WorkMark> WorkMark::take(const std::filesystem::path& home) {
  const auto file = home / kWorkMarkFile;
  const auto handle = CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  const auto error = GetLastError();
  if (handle == INVALID_HANDLE_VALUE && error == ERROR_SHARING_VIOLATION)
    throw RuntimeError(kPermissionDenied,
                       "Another varnhold-provision is at work in '" + utf8FromPath(home) + "'.");
  if (handle == INVALID_HANDLE_VALUE)
    raiseFileError("Cannot write", file, {static_cast<int>(error), std::system_category()});
  return std::make_unique<HeldMark>(file, handle, error == ERROR_ALREADY_EXISTS);
}

}  // namespace varnhold::provision
