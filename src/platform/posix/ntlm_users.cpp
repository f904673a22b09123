#include "platform/posix/ntlm_users.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "base/text.h"

namespace varnhold::platform::posix {

std::string domainAsInFile(std::string_view content, const std::string& domain) {
  while (!content.empty()) {
    const auto line = content.substr(0, content.find('\n'));
    content.remove_prefix(std::min(content.size(), line.size() + 1));
    const auto known = line.substr(0, line.find(':'));
    if (known.size() < line.size() && equalsIgnoringCase(known, domain)) return std::string(known);
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
