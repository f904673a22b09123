#pragma once

#include <filesystem>
#include <memory>

namespace varnhold::provision {

inline constexpr const char* kWorkMarkFile = "provisioning.mark";

/// The file that stands in a home while it is being made. Only one process holds it; one that was killed
/// leaves it behind, so that the next knows that what it finds was never finished. The destructor takes it
/// away, unless it is to stay.
class WorkMark {
 public:
  virtual ~WorkMark() = default;

  /// Takes the mark of a home whose folder is there, waiting some seconds for another process to go. Raises
  /// kPermissionDenied when that one stays, and the errors of home_files.h when the folder cannot be written.
  [[nodiscard]] static std::unique_ptr<WorkMark> take(const std::filesystem::path& home);

  /// Lets the mark stay when this process goes: what was begun could neither be finished nor removed.
  virtual void leaveBehind() = 0;

 private:
  /// Nothing while another process holds the mark. Each host has its own source.
  [[nodiscard]] static std::unique_ptr<WorkMark> tryToTake(const std::filesystem::path& file);
};

}  // namespace varnhold::provision
