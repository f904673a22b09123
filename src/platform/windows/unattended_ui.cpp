#include "platform/ui.h"

#include <windows.h>

#include <optional>

#include "platform/windows/adapters.h"
#include "platform/windows/owned_handle.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

/// True when the handle leads to a console's screen, which takes UTF-16 only.
bool isConsole(HANDLE output) {
  DWORD mode = 0;
  return GetConsoleMode(output, &mode) != FALSE;
}

void writeLine(HANDLE output, const std::string& line) {
  DWORD written = 0;
  if (isConsole(output)) {
    const auto wide = toWide(line);
    WriteConsoleW(output, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
  } else {
    WriteFile(output, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  }
}

class UnattendedUi : public Ui {
 public:
  void messageBox(const std::string& text, MessageIcon) override {
    const auto line = text + "\r\n";
    auto* const standardError = GetStdHandle(STD_ERROR_HANDLE);
    if (standardError != nullptr && standardError != INVALID_HANDLE_VALUE) {
      writeLine(standardError, line);
    } else if (openParentsConsole()) {
      writeLine(console_->get(), line);
    }
  }

 private:
  /// A program with windows gets no standard error from the console it was started from.
  bool openParentsConsole() {
    if (!console_) {
      AttachConsole(ATTACH_PARENT_PROCESS);
      console_.emplace(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    }
    return static_cast<bool>(*console_);
  }

  std::optional<OwnedHandle> console_;
};

}  // namespace

std::unique_ptr<Ui> makeUnattendedUi() {
  return std::make_unique<UnattendedUi>();
}

}  // namespace varnhold::platform::windows
