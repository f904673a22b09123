#include "tests/fakes/journal.h"

#include <algorithm>
#include <iterator>

namespace varnhold::fakes {

std::string shown(std::string_view text) {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\0') {
      if (i == 0 || text[i - 1] != '\0') line += "<NUL>";
    } else if (text[i] == '\r') {
      line += "<CR>";
    } else if (text[i] == '\n') {
      line += "<LF>";
    } else {
      line += text[i];
    }
  }
  return line;
}

Journal linesOf(const Journal& journal, std::string_view beginning) {
  Journal lines;
  std::copy_if(journal.begin(), journal.end(), std::back_inserter(lines),
               [&](const std::string& line) { return line.starts_with(beginning); });
  return lines;
}

Journal linesWithout(const Journal& journal, const std::vector<std::string_view>& beginnings) {
  Journal lines;
  std::copy_if(journal.begin(), journal.end(), std::back_inserter(lines), [&](const std::string& line) {
    return std::none_of(beginnings.begin(), beginnings.end(),
                        [&](std::string_view beginning) { return line.starts_with(beginning); });
  });
  return lines;
}

}  // namespace varnhold::fakes
