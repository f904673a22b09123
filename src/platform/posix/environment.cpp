#include <unistd.h>

#include <array>

#include "base/text.h"
#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

constexpr std::size_t kComputerNameLength = 256;

class ProcessEnvironment : public Environment {
 public:
  ProcessEnvironment(std::string home, std::vector<std::string> arguments, PathResolver& paths)
      : home_(std::move(home)), arguments_(std::move(arguments)), paths_(paths) {}

  std::string commandLine() override {
    std::string line;
    for (const auto& argument : arguments_) {
      if (&argument != &arguments_.front()) line += ' ';
      line += argument;
    }
    return line;
  }

  std::string programFolder() override { return home_; }

  bool setCurrentDirectory(const std::string& folder) override {
    return ::chdir(paths_.resolve(folder).c_str()) == 0;
  }

  /// The product's platform names a computer by its host name without domain, in capitals.
  std::optional<std::string> getComputerName() override {
    std::array<char, kComputerNameLength> name{};
    if (::gethostname(name.data(), name.size() - 1) != 0) return std::nullopt;
    const auto full = TrimAtNull({name.data(), name.size()});
    return toUpper(full.substr(0, full.find('.')));
  }

  OsVersion getVersionEx() override { return {6, kPlatformWin32Nt}; }

 private:
  std::string home_;
  std::vector<std::string> arguments_;
  PathResolver& paths_;
};

}  // namespace

std::unique_ptr<Environment> makeEnvironment(std::string home, std::vector<std::string> arguments,
                                             PathResolver& paths) {
  return std::make_unique<ProcessEnvironment>(std::move(home), std::move(arguments), paths);
}

}  // namespace varnhold::platform::posix
