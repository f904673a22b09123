#include "core/online_help.h"

#include <string>

namespace varnhold::core {
namespace {

constexpr int kLastShellError = 32;  // shellapi.h: above it, ShellExecute worked

}  // namespace

void ShowOnlineHelp(platform::Processes& processes, platform::Ui& ui) {
  const std::string page = kOnlineHelpPage;
  if (processes.shellExecute("open", page, platform::ShowState::Normal) > kLastShellError) return;
  if (processes.shellExecute("open", "iexplore", page, platform::ShowState::Normal) > kLastShellError) return;
  ui.messageBox(
      "Failed to launch the default web browser. You can use the following URL to check whats new in "
      "Varnhold.\r" +
          page,
      platform::MessageIcon::Information);
}

}  // namespace varnhold::core
