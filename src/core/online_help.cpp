#include "core/online_help.h"

namespace varnhold::core {

bool openWebPage(platform::Processes& processes, const std::string& page) {
  constexpr int kLast = platform::Processes::kLastShellError;
  return processes.shellExecute("open", page, platform::ShowState::Normal) > kLast ||
         processes.shellExecute("open", "iexplore", page, platform::ShowState::Normal) > kLast;
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
