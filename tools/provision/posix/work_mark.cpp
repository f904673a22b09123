#include "tools/provision/work_mark.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

class HeldMark : public WorkMark {
 public:
  HeldMark(std::filesystem::path file, int descriptor) : file_(std::move(file)), descriptor_(descriptor) {}
  ~HeldMark() override {
    if (!stays_) unlink(file_.c_str());
    close(descriptor_);
  }
  HeldMark(const HeldMark&) = delete;
  HeldMark& operator=(const HeldMark&) = delete;

  void leaveBehind() override { stays_ = true; }

 private:
  std::filesystem::path file_;
  int descriptor_;
  bool stays_ = false;
};

/// Does the name still lead to the open file? Its holder may have removed it between our open and our lock.
bool stillNamed(const std::filesystem::path& file, int descriptor) {
  struct stat named {};
  struct stat held {};
  return stat(file.c_str(), &named) == 0 && fstat(descriptor, &held) == 0 && named.st_ino == held.st_ino;
}

}  // namespace

std::unique_ptr<WorkMark> WorkMark::tryToTake(const std::filesystem::path& file) {
  const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (descriptor < 0) raiseFileError("Cannot write", file, {errno, std::generic_category()});
  if (flock(descriptor, LOCK_EX | LOCK_NB) == 0 && stillNamed(file, descriptor))
    return std::make_unique<HeldMark>(file, descriptor);
  close(descriptor);
  return nullptr;
}

}  // namespace varnhold::provision
