#pragma once

#include <string>

#include "platform/processes.h"
#include "platform/ui.h"

namespace varnhold::core {

inline constexpr const char* kOnlineHelpPage =
    "https://docs.example.com/Varnhold%20Online%20Help/Varnhold_Online_Help.htm";

/// Opens an address in the host's browser, or else in the one that Windows always has. False where neither
/// works.
[[nodiscard]] bool openWebPage(platform::Processes& processes, const std::string& page);

/// Opens the product's help page in the host's browser, or where that fails through the program "iexplore".
/// Where neither starts, a box tells the page's address. Main thread.
void ShowOnlineHelp(platform::Processes& processes, platform::Ui& ui);

}  // namespace varnhold::core
