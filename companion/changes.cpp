#include "companion/changes.h"

#include <optional>

#include "base/text.h"
#include "companion/agent_files.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

/// For a take-back, which can do nothing more about an error.
void attempt(Win32Error) {}

std::string keyAbove(const std::string& key) {
  const auto last = key.rfind('\\');
  return last == std::string::npos ? std::string() : key.substr(0, last);
}

std::optional<NamedValue> valueOf(RemoteRegistry& registry, const std::string& key, std::string_view name) {
  for (const NamedValue& value : registry.values(key))
    if (equalsIgnoringCase(value.name, name)) return value;
  return std::nullopt;
}

Win32Error removeOneKey(RemoteRegistry& registry, const std::string& key, TakeBack& takeBack) {
  const auto values = registry.values(key);
  takeBack.add([&registry, key, values] {
    attempt(registry.createKey(key));
    for (const NamedValue& value : values) attempt(registry.set(key, value));
  });
  return registry.removeKey(key);
}

}  // namespace

Win32Error makeFolders(RemoteFiles& files, const std::string& path, TakeBack& takeBack,
                       std::vector<std::string>& made) {
  if (!readDrivePath(path)) return kBadPathName;
  const auto above = folderAbove(path);
  if (!above || files.isFolder(path)) return kDone;
  if (const Win32Error error = makeFolders(files, *above, takeBack, made)) return error;
  if (const Win32Error error = files.createFolder(path)) return error;
  takeBack.add([&files, path] { attempt(files.removeFolder(path)); });
  made.push_back(path);
  return kDone;
}

Win32Error writeFile(RemoteFiles& files, const std::string& path, std::string_view bytes,
                     TakeBack& takeBack) {
  const auto before = files.read(path);
  if (before == bytes) return kDone;
  if (const Win32Error error = files.write(path, bytes)) return error;
  takeBack.add([&files, path, before] { attempt(before ? files.write(path, *before) : files.remove(path)); });
  return kDone;
}

Win32Error removeFile(RemoteFiles& files, const std::string& path, TakeBack& takeBack) {
  const auto before = files.read(path);
  const Win32Error error = files.remove(path);
  if (error == kFileMissing || error == kPathMissing) return kDone;
  if (error != kDone) return error;
  if (before) takeBack.add([&files, path, bytes = *before] { attempt(files.write(path, bytes)); });
  return kDone;
}

Win32Error removeEmptyFolder(RemoteFiles& files, const std::string& path, TakeBack& takeBack) {
  if (!files.isFolder(path)) return kDone;
  const Win32Error error = files.removeFolder(path);
  if (error == kFolderNotEmpty) return kDone;
  if (error != kDone) return error;
  takeBack.add([&files, path] { attempt(files.createFolder(path)); });
  return kDone;
}

Win32Error removeFolderTree(RemoteFiles& files, const std::string& path, TakeBack& takeBack) {
  for (const std::string& name : files.names(path)) {
    const std::string entry = below(path, name);
    const auto remove = files.isFolder(entry) ? removeFolderTree : removeFile;
    if (const Win32Error error = remove(files, entry, takeBack)) return error;
  }
  return removeEmptyFolder(files, path, takeBack);
}

Win32Error makeKeys(RemoteRegistry& registry, const std::string& key, TakeBack& takeBack) {
  if (key.empty() || registry.hasKey(key)) return kDone;
  if (const Win32Error error = makeKeys(registry, keyAbove(key), takeBack)) return error;
  if (const Win32Error error = registry.createKey(key)) return error;
  takeBack.add([&registry, key] { attempt(registry.removeKey(key)); });
  return kDone;
}

Win32Error setValue(RemoteRegistry& registry, const std::string& key, const NamedValue& value,
                    TakeBack& takeBack) {
  const auto before = valueOf(registry, key, value.name);
  if (const Win32Error error = registry.set(key, value)) return error;
  if (!before)
    takeBack.add([&registry, key, name = value.name] { attempt(registry.removeValue(key, name)); });
  else
    takeBack.add([&registry, key, present = *before] { attempt(registry.set(key, present)); });
  return kDone;
}

Win32Error removeValue(RemoteRegistry& registry, const std::string& key, const std::string& name,
                       TakeBack& takeBack) {
  const auto before = valueOf(registry, key, name);
  if (!before) return kDone;
  if (const Win32Error error = registry.removeValue(key, name)) return error;
  takeBack.add([&registry, key, present = *before] { attempt(registry.set(key, present)); });
  return kDone;
}

Win32Error removeKeyTree(RemoteRegistry& registry, const std::string& key, TakeBack& takeBack) {
  if (!registry.hasKey(key)) return kDone;
  for (const std::string& name : registry.subkeys(key))
    if (const Win32Error error = removeKeyTree(registry, key + '\\' + name, takeBack)) return error;
  // With its last key below it, a key that had no lines of its own is gone as well.
  return registry.hasKey(key) ? removeOneKey(registry, key, takeBack) : kDone;
}

Win32Error removeEmptyKeys(RemoteRegistry& registry, std::string key, TakeBack& takeBack) {
  for (; key.find('\\') != std::string::npos; key = keyAbove(key)) {
    if (!registry.values(key).empty() || !registry.subkeys(key).empty()) break;
    if (const Win32Error error = removeKeyTree(registry, key, takeBack)) return error;
  }
  return kDone;
}

}  // namespace varnhold::companion
