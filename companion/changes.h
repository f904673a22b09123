#pragma once

#include <string>
#include <string_view>

#include "companion/remote_computer.h"
#include "companion/take_back.h"

/// Changes to a computer that can be taken back: each notes, before or right after it is made, how the
/// computer was. The first error ends the call; what was done until then is noted.
namespace varnhold::companion {

/// Makes the folder and those above it; `made` gets the full path of each one that was not there.
[[nodiscard]] Win32Error makeFolders(RemoteFiles& files, const std::string& path, TakeBack& takeBack,
                                     std::vector<std::string>& made);
[[nodiscard]] Win32Error writeFile(RemoteFiles& files, const std::string& path, std::string_view bytes,
                                   TakeBack& takeBack);
/// A file that is not there counts as removed.
[[nodiscard]] Win32Error removeFile(RemoteFiles& files, const std::string& path, TakeBack& takeBack);
/// Removes the folder when it is empty; one that is not there, or not empty, is left without an error.
[[nodiscard]] Win32Error removeEmptyFolder(RemoteFiles& files, const std::string& path, TakeBack& takeBack);
/// Removes the folder with all below it; one that is not there counts as removed.
[[nodiscard]] Win32Error removeFolderTree(RemoteFiles& files, const std::string& path, TakeBack& takeBack);

/// Makes the key and those above it.
[[nodiscard]] Win32Error makeKeys(RemoteRegistry& registry, const std::string& key, TakeBack& takeBack);
[[nodiscard]] Win32Error setValue(RemoteRegistry& registry, const std::string& key, const NamedValue& value,
                                  TakeBack& takeBack);
/// A value that is not there counts as removed.
[[nodiscard]] Win32Error removeValue(RemoteRegistry& registry, const std::string& key,
                                     const std::string& name, TakeBack& takeBack);
/// Removes the key with all below it; one that is not there counts as removed.
[[nodiscard]] Win32Error removeKeyTree(RemoteRegistry& registry, const std::string& key, TakeBack& takeBack);
/// Removes the keys from this one upward that hold nothing, up to the one that belongs to all products.
[[nodiscard]] Win32Error removeEmptyKeys(RemoteRegistry& registry, std::string key, TakeBack& takeBack);

}  // namespace varnhold::companion
