#include "platform/posix/home.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>

namespace varnhold::platform::posix {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string{} : std::string(value);
}

std::string userFolder() {
  if (auto folder = variable("HOME"); !folder.empty()) return folder;
  passwd entry{};
  passwd* found = nullptr;
  std::array<char, 4096> strings{};
  ::getpwuid_r(::geteuid(), &entry, strings.data(), strings.size(), &found);
  return found == nullptr ? std::string("/") : std::string(found->pw_dir);
}

std::string chooseHome() {
  if (auto home = variable("VARNHOLD_HOME"); !home.empty()) return home;
  if (const auto data = variable("XDG_DATA_HOME"); !data.empty()) return data + "/varnhold";
  return userFolder() + "/.local/share/varnhold";
}

}  // namespace

std::string homeFolder(const std::optional<std::string>& given) {
  auto home = std::filesystem::absolute(given ? *given : chooseHome()).lexically_normal().string();
  while (home.ends_with('/')) home.pop_back();
  return home;
}

}  // namespace varnhold::platform::posix
