#include "base/unicode.h"

#include <algorithm>
#include <array>

namespace varnhold {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// A run of letters whose upper case lies `offset` away. `step` 2: only every second letter from the first
/// on is a small one, as in the blocks that alternate.
struct CaseRun {
  char32_t first, last;
  int offset;
  unsigned step;
};

constexpr std::array kCaseRuns = {
    CaseRun{'a', 'z', -32, 1},       CaseRun{0x00B5, 0x00B5, 743, 1},  // micro sign: capital mu
    CaseRun{0x00E0, 0x00F6, -32, 1}, CaseRun{0x00F8, 0x00FE, -32, 1}, CaseRun{0x00FF, 0x00FF, 121, 1},
    CaseRun{0x0101, 0x012F, -1, 2},  CaseRun{0x0133, 0x0137, -1, 2},  CaseRun{0x013A, 0x0148, -1, 2},
    CaseRun{0x014B, 0x0177, -1, 2},  CaseRun{0x017A, 0x017E, -1, 2},  CaseRun{0x03AC, 0x03AC, -38, 1},
    CaseRun{0x03AD, 0x03AF, -37, 1}, CaseRun{0x03B1, 0x03C1, -32, 1}, CaseRun{0x03C2, 0x03C2, -31, 1},
    CaseRun{0x03C3, 0x03CB, -32, 1}, CaseRun{0x03CC, 0x03CC, -64, 1}, CaseRun{0x03CD, 0x03CE, -63, 1},
    CaseRun{0x0430, 0x044F, -32, 1}, CaseRun{0x0450, 0x045F, -80, 1}, CaseRun{0x0461, 0x0481, -1, 2},
    CaseRun{0x048B, 0x04BF, -1, 2},  CaseRun{0x04D1, 0x052F, -1, 2},  CaseRun{0x0561, 0x0586, -48, 1},
    CaseRun{0x1E01, 0x1E95, -1, 2},  CaseRun{0x1EA1, 0x1EFF, -1, 2},
};

bool isSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDFFF;
}

/// How many bytes a sequence with this first byte has, and the bits that byte carries.
struct Lead {
  int length;
  char32_t bits;
};

Lead readLead(unsigned char byte) {
  if (byte < 0x80) return {1, byte};
  if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1Fu};
  if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0Fu};
  if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07u};
  return {0, 0};
}

bool isShortest(char32_t codePoint, int length) {
  return length < 3 || (length == 3 ? codePoint >= 0x800 : codePoint >= 0x10000 && codePoint <= 0x10FFFF);
}

}  // namespace

char32_t nextCodePoint(std::string_view text, std::size_t& at) {
  const auto start = at++;
  const auto lead = readLead(static_cast<unsigned char>(text[start]));
  if (lead.length == 0 || start + static_cast<std::size_t>(lead.length) > text.size()) return kNotUtf8;
  auto codePoint = lead.bits;
  for (std::size_t i = 1; i < static_cast<std::size_t>(lead.length); ++i) {
    const auto byte = static_cast<unsigned char>(text[start + i]);
    if ((byte & 0xC0u) != 0x80) return kNotUtf8;
    codePoint = codePoint << 6 | (byte & 0x3Fu);
  }
  if (!isShortest(codePoint, lead.length) || isSurrogate(codePoint)) return kNotUtf8;
  at = start + static_cast<std::size_t>(lead.length);
  return codePoint;
}

void appendUtf8(std::string& text, char32_t codePoint) {
  const auto tail = [&](int shift) { text += static_cast<char>(0x80u | (codePoint >> shift & 0x3Fu)); };
  if (codePoint < 0x80) {
    text += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    text += static_cast<char>(0xC0u | codePoint >> 6);
    tail(0);
  } else if (codePoint < 0x10000) {
    text += static_cast<char>(0xE0u | codePoint >> 12);
    tail(6), tail(0);
  } else {
    text += static_cast<char>(0xF0u | codePoint >> 18);
    tail(12), tail(6), tail(0);
  }
}

char32_t upperCase(char32_t letter) {
  const auto* run =
      std::find_if(kCaseRuns.begin(), kCaseRuns.end(), [&](const CaseRun& r) { return letter <= r.last; });
  if (run == kCaseRuns.end() || letter < run->first || (letter - run->first) % run->step != 0) return letter;
  return static_cast<char32_t>(static_cast<int>(letter) + run->offset);
}

std::u16string toUtf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    auto codePoint = nextCodePoint(text, at);
    if (codePoint == kNotUtf8) codePoint = kReplacement;
    if (codePoint < 0x10000) {
      units += static_cast<char16_t>(codePoint);
    } else {
      units += static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
      units += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
    }
  }
  return units;
}

std::string fromUtf16(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t codePoint = text[i];
    const bool isPair = codePoint >= 0xD800 && codePoint < 0xDC00 && i + 1 < text.size() &&
                        text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
    if (isPair) codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (text[++i] - 0xDC00u);
    appendUtf8(bytes, isSurrogate(codePoint) ? kReplacement : codePoint);
  }
  return bytes;
}

}  // namespace varnhold
