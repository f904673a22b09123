#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/formats/registry_text.h"
#include "platform/registry.h"

namespace varnhold::platform {

/// A registry in the text form that the registry editor exports and imports, "Windows Registry Editor
/// Version 5.00".
///
/// Everything in the file is kept and printed again in its place: comments, blank lines, order, values of any
/// type, keys of any hive. A file with anything that is not understood is not accepted at all, so that
/// rewriting it can lose nothing. Deletions (`"name"=-`, `[-key]`) are not accepted either: they are orders
/// to an importer and say nothing in a store. A file that ends in a number or in hex bytes without a line end
/// counts as cut off, since digits may be missing.
///
/// Keys are full paths that begin with the hive's name (`HKEY_LOCAL_MACHINE\SOFTWARE`). Keys and value names
/// compare without case; where a value is written twice the later one holds, as for an import.
class RegistryFile {
 public:
  /// A file with its version line and nothing else.
  RegistryFile();

  /// Nothing, and `error` set, for bytes that are not understood.
  [[nodiscard]] static std::optional<RegistryFile> parse(std::string_view bytes, RegistryFileError& error);

  /// The bytes to write: ASCII or UTF-16 (see `encodeRegistryText`), lines ended by CR LF.
  [[nodiscard]] std::string print() const;

  /// True for a key that is in the file, and for those above one.
  [[nodiscard]] bool hasKey(std::string_view key) const;
  /// The value, or null when it or its key is missing; holds until the next change.
  [[nodiscard]] const RegistryValue* find(std::string_view key, std::string_view name) const;

  /// Adds the key at the end unless it is there; false when the file cannot hold its name (line breaks,
  /// NULs).
  [[nodiscard]] bool createKey(std::string_view key);
  /// Puts a value in the place of the earlier one, else behind the last value of its key. False when the key
  /// is missing or the file cannot hold the name.
  [[nodiscard]] bool set(std::string_view key, std::string_view name, const RegistryValue& value);

  /// The names of the keys right below, as first written, each once.
  [[nodiscard]] std::vector<std::string> subkeys(std::string_view key) const;
  /// The names of a key's values, as written, each once.
  [[nodiscard]] std::vector<std::string> valueNames(std::string_view key) const;
  /// Removes a value and the comment behind it; false when there is none.
  bool removeValue(std::string_view key, std::string_view name);
  /// Removes a key with its values and the comments below its header; false when it is not there or has keys
  /// below it.
  bool removeKey(std::string_view key);

 private:
  friend class RegistryFileParser;

  struct Line {
    std::string text;                    ///< as printed, without its line end; may go over several
    std::optional<RegistryValue> value;  ///< of a value's line
    std::string tail;                    ///< what stands behind a value: blanks and a comment
    std::string name = {};               ///< of a value's line
  };
  /// The lines before the first key, then one section for each header, which is its first line.
  struct Section {
    std::vector<Line> lines;
    std::string key = {};  ///< full path; empty before the first key
  };
  struct Place {
    std::size_t section, line;
  };
  struct Key {
    std::size_t lastSection;
    std::unordered_map<std::string, Place> values;  ///< by upper-case name
  };

  struct Empty {};
  explicit RegistryFile(Empty) {}

  void index();
  void addLine(std::string text);
  void addOther(std::string_view text);
  Key& addHeader(std::string text, std::string_view key);
  void addValue(Key& key, std::string_view name, Line line);
  void insertValue(Key& key, std::string_view name, Line line);

  std::vector<Section> sections_{1};
  std::map<std::string, Key, std::less<>> keys_;  ///< by upper-case path
};

}  // namespace varnhold::platform
