#include "platform/environment.h"

#include <windows.h>

#include <array>

#include "platform/formats/windows_command_line.h"
#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

static_assert(kPlatformWin32Nt == VER_PLATFORM_WIN32_NT);

constexpr std::size_t kNameCharacters = 256;

std::wstring programFile() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const auto length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

class WindowsEnvironment : public Environment {
 public:
  std::string commandLine() override { return argumentsOf(fromWide(GetCommandLineW())); }

  std::string programFolder() override {
    const auto file = programFile();
    return fromWide(file.substr(0, file.find_last_of(L'\\')));
  }

  bool setCurrentDirectory(const std::string& folder) override {
    // "C:" alone means the folder that was last current on that drive, not its root.
    const bool isDrive = folder.size() == 2 && folder[1] == ':';
    return SetCurrentDirectoryW(toWide(isDrive ? folder + '\\' : folder).c_str()) != FALSE;
  }

  std::optional<std::string> getComputerName() override {
    std::array<wchar_t, kNameCharacters> buffer{};
    DWORD size = buffer.size();
    if (!GetComputerNameW(buffer.data(), &size)) return std::nullopt;
    std::string filled(kNameCharacters, '\0');
    fromWide({buffer.data(), size}).copy(filled.data(), filled.size());
    return filled;
  }

  OsVersion getVersionEx() override {
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExW(&version)) return {};
    return {version.dwMajorVersion, version.dwPlatformId};
  }
};

}  // namespace

std::unique_ptr<Environment> makeEnvironment() {
  return std::make_unique<WindowsEnvironment>();
}

}  // namespace varnhold::platform::windows
