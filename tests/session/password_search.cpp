#include "tests/session/password_search.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>

#include "base/secret.h"

namespace varnhold::session {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kChunk = 1U << 20;
constexpr std::size_t kLongestMark = 256;
constexpr std::size_t kWindow = kChunk + 4 * kLongestMark;
/// What is larger are the sanitizers' own books.
constexpr std::uintptr_t kLargestRegion = 1U << 30;

/// Each letter's successor in its place.
std::string successors(std::string letters) {
  for (char& letter : letters) ++letter;
  return letters;
}

struct Region {
  std::uintptr_t begin, end;
};

std::vector<Region> writableMemory() {
  std::vector<Region> regions;
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    Region region{};
    std::string rights;
    char dash = 0;
    std::istringstream fields(line);
    fields >> std::hex >> region.begin >> dash >> region.end >> rights;
    if (rights.starts_with("rw") && region.end - region.begin <= kLargestRegion) regions.push_back(region);
  }
  return regions;
}

std::size_t countIn(std::string_view bytes, std::string_view mark) {
  std::size_t count = 0;
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  while (const void* found = memmem(at, static_cast<std::size_t>(end - at), mark.data(), mark.size())) {
    at = static_cast<const char*>(found) + 1;
    ++count;
  }
  return count;
}

/// Memory that is not searched: what is looked for, and what is copied there to be looked through.
class Window {
 public:
  explicit Window(const MarkedPassword& password) {
    std::string texts[] = {password.mark(), password.wideMark()};
    char* place = memory_ + kChunk + 2 * kLongestMark;
    for (std::size_t i = 0; i < marks_.size(); ++i) {
      marks_[i] = {place, texts[i].size()};
      place = std::copy(texts[i].begin(), texts[i].end(), place);
      wipe(texts[i]);
    }
  }
  ~Window() { munmap(memory_, kWindow); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  [[nodiscard]] bool isIn(const Region& region) const {
    const auto at = reinterpret_cast<std::uintptr_t>(memory_);
    return region.begin < at + kWindow && at < region.end;
  }
  [[nodiscard]] std::size_t countIn(std::string_view bytes) const {
    std::size_t count = 0;
    for (const auto& mark : marks_) count += session::countIn(bytes, mark);
    return count;
  }
  /// Chunks overlap by what a mark takes less one byte, so that each occurrence is met once.
  [[nodiscard]] std::size_t countInRegion(int memory, const Region& region) const {
    std::size_t count = 0;
    for (auto at = region.begin; at < region.end; at += kChunk) {
      for (const auto& mark : marks_) {
        const auto wanted = std::min<std::uintptr_t>(kChunk + mark.size() - 1, region.end - at);
        const auto got = pread(memory, memory_, wanted, static_cast<off_t>(at));
        if (got > 0) count += session::countIn({memory_, static_cast<std::size_t>(got)}, mark);
      }
    }
    return count;
  }

 private:
  char* memory_ =
      static_cast<char*>(mmap(nullptr, kWindow, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  std::array<std::string_view, 2> marks_;
};

std::string readAll(const fs::path& file) {
  std::string bytes(fs::file_size(file), '\0');
  std::ifstream(file, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

}  // namespace

std::string MarkedPassword::text() const {
  return successors(letters_);
}

std::string MarkedPassword::mark() const {
  return successors(letters_.substr(kLost));
}

std::string MarkedPassword::wideMark() const {
  std::string narrow = mark(), wide;
  wide.reserve(2 * narrow.size());
  for (const char letter : narrow) {
    // Without the outermost zero it is the same in both orders of bytes.
    if (!wide.empty()) wide += '\0';
    wide += letter;
  }
  wipe(narrow);
  return wide;
}

std::vector<std::string> filesHolding(const fs::path& folder, const MarkedPassword& password) {
  const Window marks(password);
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::string bytes = readAll(entry.path());
    const WipedAtEnd wiped(bytes);
    if (marks.countIn(bytes) > 0) names.push_back(entry.path().lexically_relative(folder).string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::size_t countInMemory(const MarkedPassword& password) {
  const Window window(password);
  const int memory = open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
  std::size_t count = 0;
  for (const auto& region : writableMemory())
    if (!window.isIn(region)) count += window.countInRegion(memory, region);
  close(memory);
  return count;
}

}  // namespace varnhold::session
