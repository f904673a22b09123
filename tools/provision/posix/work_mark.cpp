#include "tools/provision/work_mark.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "base/runtime_error.h"
#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

class HeldMark : public WorkMark {
 public:
  HeldMark(std::filesystem::path file, int descriptor, bool wasThere)
      : file_(std::move(file)), descriptor_(descriptor), wasThere_(wasThere) {}
  ~HeldMark() override {
    if (!stays_) unlink(file_.c_str());
    close(descriptor_);
  }
  HeldMark(const HeldMark&) = delete;
  HeldMark& operator=(const HeldMark&) = delete;

  [[nodiscard]] bool wasThere() const override { return wasThere_; }
  void leaveBehind() override { stays_ = true; }

 private:
  std::filesystem::path file_;
  int descriptor_;
  bool wasThere_;
  bool stays_ = false;
};

[[noreturn]] void raiseErrno(const char* what, const std::filesystem::path& file) {
  raiseFileError(what, file, {errno, std::generic_category()});
}

/// Does the name still lead to the open file? Its holder may have removed it between our open and our lock.
bool stillNamed(const std::filesystem::path& file, int descriptor) {
  struct stat named {};
  struct stat held {};
  return stat(file.c_str(), &named) == 0 && fstat(descriptor, &held) == 0 && named.st_ino == held.st_ino;
}

}  // namespace

std::unique_ptr<WorkMark> WorkMark::take(const std::filesystem::path& home) {
  const auto file = home / kWorkMarkFile;
  for (;;) {
    int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    const bool wasThere = descriptor < 0 && errno == EEXIST;
    if (wasThere) descriptor = open(file.c_str(), O_RDWR | O_CLOEXEC);
    if (descriptor < 0 && wasThere && errno == ENOENT) continue;
    if (descriptor < 0) raiseErrno("Cannot write", file);
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
      close(descriptor);
      throw RuntimeError(kPermissionDenied,
                         "Another varnhold-provision is at work in '" + utf8FromPath(home) + "'.");
    }
    if (stillNamed(file, descriptor)) return std::make_unique<HeldMark>(file, descriptor, wasThere);
    close(descriptor);
  }
}

}  // namespace varnhold::provision
