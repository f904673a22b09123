// The arrows of the house: which folder may include what. A wrong #include fails here, with file and line.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// A folder and all that its files may include of the house, beside themselves.
struct Room {
  std::string_view folder;
  std::vector<std::string_view> mayUse;
};

const std::vector<Room>& rooms() {
  static const std::vector<Room> all = {
      {"src/base", {}},
      {"src/platform/formats", {"base/", "platform/"}},
      {"src/platform/posix", {"base/", "platform/", "companion/include/"}},
      {"src/platform/windows", {"base/", "platform/", "companion/include/"}},
      {"src/platform", {"base/"}},
      {"src/store", {"base/"}},
      {"src/ui/controls", {"base/", "platform/"}},
      {"src/ui/wx",
       {"base/", "platform/", "store/", "ui/controls/", "core/", "inventory/", "deployment/", "console/"}},
      {"src/core", {"base/", "platform/", "store/"}},
      {"src/deployment", {"base/", "platform/", "store/", "core/", "ui/controls/"}},
      {"src/inventory", {"base/", "platform/", "store/", "core/", "ui/controls/"}},
      {"src/console", {"base/", "platform/", "store/", "core/", "ui/controls/", "inventory/", "deployment/"}},
      {"src/startup",
       {"base/", "platform/", "store/", "core/", "deployment/", "inventory/", "console/", "ui/controls/"}},
      {"src/app",
       {"base/", "platform/", "store/", "core/", "deployment/", "startup/", "inventory/", "console/", "ui/"}},
      {"companion", {"base/", "platform/", "store/", "qrvutil.h", "qrvhost.h"}},
      {"tools", {"base/", "platform/", "store/", "core/"}},
  };
  return all;
}

/// A header of a host or of the database, and the only places that may include it.
struct ForeignHeader {
  std::string_view prefix;
  std::vector<std::string_view> places;
};

const std::vector<ForeignHeader>& foreignHeaders() {
  static const std::vector<ForeignHeader> all = {
      {"windows.h", {"src/platform/windows/", "companion/windows/", "tools/provision/windows/"}},
      {"sql", {"src/store/odbc"}},
      {"odbc", {"src/store/odbc", "tools/provision/windows/"}},
      {"unistd.h", {"src/platform/posix/", "companion/posix/", "tools/provision/posix/"}},
      {"fcntl.h", {"src/platform/posix/", "companion/posix/", "tools/provision/posix/"}},
      {"dlfcn.h", {"src/platform/posix/", "companion/posix/"}},
      {"pthread.h", {"src/platform/posix/", "companion/posix/"}},
      {"sys/", {"src/platform/posix/", "companion/posix/", "tools/provision/posix/"}},
      {"wx/", {"src/ui/wx/"}},
  };
  return all;
}

struct Include {
  std::string file;  // relative to the tree
  int line;
  std::string header;
  bool isOurs;  // in quotes
};

std::vector<Include> includesOf(const fs::path& tree, const fs::path& file) {
  std::vector<Include> found;
  std::ifstream in(file);
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    const auto hash = line.find_first_not_of(" \t");
    if (hash == std::string::npos || line.compare(hash, 8, "#include") != 0) continue;
    const auto open = line.find_first_of("<\"", hash + 8);
    const auto close = line.find_first_of(">\"", open + 1);
    if (open == std::string::npos || close == std::string::npos) continue;
    found.push_back({fs::relative(file, tree).generic_string(), number,
                     line.substr(open + 1, close - open - 1), line[open] == '"'});
  }
  return found;
}

std::vector<Include> allIncludes() {
  std::vector<Include> all;
  const fs::path tree = VARNHOLD_SOURCE_DIR;
  for (const auto* top : {"src", "companion", "tools"}) {
    for (const auto& entry : fs::recursive_directory_iterator(tree / top)) {
      const auto extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp" && extension != ".c") continue;
      const auto some = includesOf(tree, entry.path());
      all.insert(all.end(), some.begin(), some.end());
    }
  }
  return all;
}

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

const Room* roomOf(std::string_view file) {
  const auto it = std::find_if(rooms().begin(), rooms().end(), [&](const Room& room) {
    return startsWith(file, room.folder) && file.size() > room.folder.size() &&
           file[room.folder.size()] == '/';
  });
  return it == rooms().end() ? nullptr : &*it;
}

bool mayInclude(const Room& room, std::string_view header) {
  auto own = room.folder;
  if (startsWith(own, "src/")) own.remove_prefix(4);
  const auto named = [&](std::string_view prefix) { return startsWith(header, prefix); };
  return named(std::string(own) + "/") || std::any_of(room.mayUse.begin(), room.mayUse.end(), named);
}

std::string at(const Include& include) {
  return include.file + ":" + std::to_string(include.line);
}

TEST(House, EverySourceFileIsInARoom) {
  const auto includes = allIncludes();
  ASSERT_GT(includes.size(), 50u) << "the sources were not found";
  for (const auto& include : includes) EXPECT_NE(roomOf(include.file), nullptr) << at(include);
}

TEST(House, AFolderIncludesOnlyWhatTheArrowsAllow) {
  for (const auto& include : allIncludes()) {
    const auto* room = roomOf(include.file);
    if (!include.isOurs || room == nullptr) continue;
    EXPECT_TRUE(mayInclude(*room, include.header)) << at(include) << " includes " << include.header;
  }
}

TEST(House, PortsAreIncludedButNeverTheirAdapters) {
  for (const auto& include : allIncludes()) {
    const bool isAdapter =
        startsWith(include.header, "platform/posix/") || startsWith(include.header, "platform/windows/");
    if (!isAdapter) continue;
    const auto ownFolder = "src/" + include.header.substr(0, include.header.rfind('/') + 1);
    EXPECT_TRUE(startsWith(include.file, ownFolder)) << at(include) << " includes " << include.header;
  }
}

TEST(House, AHostsHeadersStayInTheirRooms) {
  for (const auto& include : allIncludes()) {
    for (const auto& foreign : foreignHeaders()) {
      if (include.isOurs || !startsWith(include.header, foreign.prefix)) continue;
      const bool allowed =
          std::any_of(foreign.places.begin(), foreign.places.end(),
                      [&](std::string_view place) { return startsWith(include.file, place); });
      EXPECT_TRUE(allowed) << at(include) << " includes " << include.header;
    }
  }
}

TEST(House, TheArrowTestSeesAWrongArrow) {
  const auto* base = roomOf("src/base/text.cpp");
  ASSERT_NE(base, nullptr);
  EXPECT_TRUE(mayInclude(*base, "base/text.h"));
  EXPECT_FALSE(mayInclude(*base, "platform/files.h"));
  EXPECT_FALSE(mayInclude(*roomOf("src/core/program.h"), "deployment/job.h"));
}

}  // namespace
