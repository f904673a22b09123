#include "tools/provision/work_mark.h"

#include <windows.h>

#include <system_error>

#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

/// The open file shares nothing, and goes away when its handle is closed in good order.
class HeldMark : public WorkMark {
 public:
  HeldMark(std::filesystem::path file, HANDLE handle) : file_(std::move(file)), handle_(handle) {}
  ~HeldMark() override {
    CloseHandle(handle_);
    if (!stays_) DeleteFileW(file_.c_str());
  }
  HeldMark(const HeldMark&) = delete;
  HeldMark& operator=(const HeldMark&) = delete;

  void leaveBehind() override { stays_ = true; }

 private:
  std::filesystem::path file_;
  HANDLE handle_;
  bool stays_ = false;
};

}  // namespace

std::unique_ptr<WorkMark> WorkMark::tryToTake(const std::filesystem::path& file) {
  const auto handle = CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle != INVALID_HANDLE_VALUE) return std::make_unique<HeldMark>(file, handle);
  const auto error = GetLastError();
  if (error == ERROR_SHARING_VIOLATION) return nullptr;
  raiseFileError("Cannot write", file, {static_cast<int>(error), std::system_category()});
}

}  // namespace varnhold::provision
