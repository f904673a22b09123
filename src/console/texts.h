#pragma once

/// Texts that several of the console's routines show.
namespace varnhold::console {

inline constexpr const char* kDisplaying = "Displaying Windows Systems";
inline constexpr const char* kReading = "Reading...";
inline constexpr const char* kRootText = "Groups";
inline constexpr const char* kRootKey = "qrv_Root_Node_Key";

}  // namespace varnhold::console
