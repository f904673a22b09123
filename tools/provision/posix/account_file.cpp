#include "tools/provision/account_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

std::error_code lastError() {
  return {errno, std::generic_category()};
}

/// A new file that nobody else may read at any moment.
std::error_code writeOwnersAlone(const std::filesystem::path& file, std::string_view content) {
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (descriptor < 0) return lastError();
  std::error_code reason;
  while (!content.empty() && !reason) {
    const auto written = write(descriptor, content.data(), content.size());
    if (written >= 0) content.remove_prefix(static_cast<std::size_t>(written));
    if (written < 0 && errno != EINTR) reason = lastError();
  }
  if (close(descriptor) != 0 && !reason) reason = lastError();
  return reason;
}

}  // namespace

void writeAccountFile(const std::filesystem::path& file, std::string_view accounts) {
  writeWhole(file, accounts, writeOwnersAlone);
}

}  // namespace varnhold::provision
