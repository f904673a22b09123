#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnhold::companion {

/// An ini file: sections in brackets, `key = value` lines, comments behind `;` (at a line's begin, or behind
/// a blank). A value in double quotes is what stands between them. Names of sections and keys compare without
/// case; of two equal keys the first counts. A line that is not edited stays byte for byte, line end
/// included. Any bytes can be read: what cannot be understood is passed over and named in `problems`.
class IniText {
 public:
  explicit IniText(std::string_view bytes = {});

  /// "line 3: ..." for each line that was passed over.
  [[nodiscard]] const std::vector<std::string>& problems() const { return problems_; }
  /// The names of the sections in their order, each once.
  [[nodiscard]] std::vector<std::string> sections() const;
  [[nodiscard]] bool hasSection(std::string_view section) const;
  [[nodiscard]] std::vector<std::string> keys(std::string_view section) const;
  [[nodiscard]] std::optional<std::string> value(std::string_view section, std::string_view key) const;

  /// Changes the value in its line, or adds the line at the end of its section, or the section at the end.
  /// Control characters in `value` become blanks.
  void setValue(std::string_view section, std::string_view key, std::string_view value);
  /// Removes the value's line.
  void removeValue(std::string_view section, std::string_view key);
  /// Removes all lines of the section.
  void removeSection(std::string_view section);

  [[nodiscard]] std::string text() const;

 private:
  struct Line {
    std::string text, end;
    std::string section;  ///< of which the line is part
    std::string key;      ///< empty: no `key = value` line
    std::size_t valueAt = 0, valueSize = 0;
    bool header = false;
  };

  void readLine(Line line);
  void addProblem(std::string_view what);
  [[nodiscard]] std::optional<std::size_t> find(std::string_view section, std::string_view key) const;
  [[nodiscard]] std::size_t endOfSection(std::string_view section) const;
  void insert(std::size_t at, Line line);

  std::vector<Line> lines_;
  std::vector<std::string> problems_;
  std::string newLine_;
};

}  // namespace varnhold::companion
