#include "platform/processes.h"

#include <windows.h>
// shellapi.h wants windows.h before it.
#include <shellapi.h>

#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

static_assert(static_cast<int>(ShowState::Hidden) == SW_HIDE);
static_assert(static_cast<int>(ShowState::Normal) == SW_SHOWNORMAL);
static_assert(static_cast<int>(ShowState::Maximised) == SW_MAXIMIZE);

class WindowsProcesses : public Processes {
 public:
  int shellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                   ShowState show) override {
    const auto wideVerb = toWide(verb);
    const auto wideFile = toWide(file);
    const auto wideParameters = toWide(parameters);
    SHELLEXECUTEINFOW start{};
    start.cbSize = sizeof start;
    // No error box of the shell may wait for a person, and the start must be complete when this returns: the
    // caller deletes the file soon, or ends.
    start.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    start.lpVerb = wideVerb.c_str();
    start.lpFile = wideFile.c_str();
    start.lpParameters = wideParameters.empty() ? nullptr : wideParameters.c_str();
    start.nShow = static_cast<int>(show);
    const bool started = ShellExecuteExW(&start) != FALSE;
    const auto result = static_cast<int>(reinterpret_cast<INT_PTR>(start.hInstApp));
    if (started) return result > kLastFailure ? result : kLastFailure + 1;
    return result > kLastFailure ? kGeneralFailure : result;
  }

 private:
  static constexpr int kLastFailure = 32;    ///< shellapi.h: a result above it is a success
  static constexpr int kGeneralFailure = 0;  ///< ShellExecute: out of memory or resources
};

}  // namespace

std::unique_ptr<Processes> makeProcesses() {
  return std::make_unique<WindowsProcesses>();
}

}  // namespace varnhold::platform::windows
