#include "core/online_help.h"

namespace varnhold::core {
namespace {

constexpr int kLastShellError = 32;  // shellapi.h: above it, ShellExecute worked

}  // namespace

bool openWebPage(platform::Processes& processes, const std::string& page) {
  return processes.shellExecute("open", page, platform::ShowState::Normal) > kLastShellError ||
         processes.shellExecute("open", "iexplore", page, platform::ShowState::Normal) > kLastShellError;
}

void ShowOnlineHelp(platform::Processes& processes, platform::Ui& ui) {
  const std::string page = kOnlineHelpPage;
  if (openWebPage(processes, page)) return;
  ui.messageBox(
      "Failed to launch the default web browser. You can use the following URL to check whats new in "
      "Varnhold.\r" +
          page,
      platform::MessageIcon::Information);
}

}  // namespace varnhold::core
