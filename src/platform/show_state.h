#pragma once

namespace varnhold::platform {

/// How a window shows (winuser.h, SW_*).
enum class ShowState : int { Hidden = 0, Normal = 1, Maximised = 3 };

}  // namespace varnhold::platform
