#include "platform/posix/ntlm_users.h"

#include <sys/stat.h>
#include <unistd.h>

#include <iostream>

#include "base/text.h"

namespace varnhold::platform::posix {

std::string domainAsInFile(std::string_view content, const std::string& domain) {
  for (const auto& line : split(content, '\n')) {
    const auto end = line.find(':');
    if (end == std::string::npos) continue;
    const auto known = line.substr(0, end);
    if (equalsIgnoringCase(known, domain)) return known;
  }
  return domain;
}

bool isOwnersAlone(const std::string& file) {
  struct stat facts {};
  if (::stat(file.c_str(), &facts) != 0) return false;
  if (facts.st_uid == ::geteuid() && (facts.st_mode & (S_IRWXG | S_IRWXO)) == 0) return true;
  std::cerr << "The accounts in " << file << " are not used: it holds passwords, and others than "
            << "the user of this program may read it. Make the file this user's own, with mode 600.\n";
  return false;
}

}  // namespace varnhold::platform::posix
