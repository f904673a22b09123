#pragma once

#include <string_view>

/// The pictures of the console, by their names in the program's own set.
namespace varnhold::console::icons {

inline constexpr const char* kComputer = "computer";
inline constexpr const char* kGroup = "group";
inline constexpr const char* kAppTessmark = "app-tessmark";
inline constexpr const char* kAppVarnhold = "app-varnhold";
inline constexpr const char* kSplashTessmark = "splash-tessmark";
inline constexpr const char* kSplashVarnhold = "splash-varnhold";

inline constexpr const char* kConfigure = "configure";
inline constexpr const char* kSearch = "search";
inline constexpr const char* kCreateGroup = "create-group";
inline constexpr const char* kDeleteGroup = "delete-group";
inline constexpr const char* kAddSystem = "add-system";
inline constexpr const char* kRemoveSystem = "remove-system";
inline constexpr const char* kUpgrade = "upgrade";

/// Places in the console's image list. Forms that bear the product's own icon take it from there.
enum ConsoleImage : int { kRowImage = 1, kGroupImage = 2, kTessmarkTitleImage = 3, kVarnholdTitleImage = 4 };

}  // namespace varnhold::console::icons
